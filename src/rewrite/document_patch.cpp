// Records are matched by the line that they were read from. What is matched and equal is not looked
// at any closer; what is matched and differs is patched on its own lines; what has no match is
// written behind the match before it, or taken out with its lines. A record that was moved is one
// that goes here and comes there.

#include "rewrite/document_patch.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "rewrite/new_records.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::size_t line_of(const std::optional<SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

class DocumentPatch {
 public:
  DocumentPatch(const ParsedInput& input, const BDFData& edited, const PatchOptions& options,
                TextPatch& patch)
      : input_(input), old_(input.data()), new_(edited), options_(options), patch_(patch) {}

  void run() {
    patch_header(input_, new_, patch_);
    if (!options_.leaves_out_geometries) {
      patch_geometry(input_, new_, patch_);
    }
    patch_statements();
  }

 private:
  // --- statements and modules

  std::size_t first_line(const Statement& statement) const { return line_of(statement.location); }

  std::size_t last_line(std::size_t statement) const {
    const Statement& old = old_.statements[statement];
    return input_.last_line(old.kind == StatementKind::Module
                                ? RecordId::of_module(old.module_index)
                                : RecordId::of(RecordKind::Statement, statement));
  }

  // Statements stand in the order of their lines.
  std::size_t statement_at(std::size_t line) const {
    const auto found = std::lower_bound(old_.statements.begin(), old_.statements.end(), line,
                                        [&](const Statement& statement, std::size_t wanted) {
                                          return first_line(statement) < wanted;
                                        });
    return found == old_.statements.end() || first_line(*found) != line
               ? none
               : static_cast<std::size_t>(found - old_.statements.begin());
  }

  // A module may have been given another statement, but it keeps its own location.
  std::size_t statement_of(const Statement& statement) const {
    if (statement.kind != StatementKind::Module) {
      return statement_at(first_line(statement));
    }
    return statement.module_index < new_.modules.size()
               ? statement_at(line_of(new_.modules[statement.module_index].location))
               : none;
  }

  void patch_statements() {
    std::vector<bool> kept(old_.statements.size(), false);
    std::size_t next = 0;
    std::size_t behind = first_insertion_line();
    for (const Statement& statement : new_.statements) {
      const std::size_t match = statement_of(statement);
      if (match == none || match < next || old_.statements[match].kind != statement.kind) {
        insert_statement(statement, behind);
        continue;
      }
      kept[match] = true;
      next = match + 1;
      behind = last_line(match);
      if (statement.kind == StatementKind::Module) {
        patch_module(old_.statements[match].module_index, new_.modules[statement.module_index]);
      } else if (statement.lines != old_.statements[match].lines) {
        patch_.remove_lines(first_line(old_.statements[match]), behind);
        patch_.insert_lines(behind, statement.lines);
      }
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
      if (kept[i]) {
        continue;
      }
      const std::size_t line = first_line(old_.statements[i]);
      const std::size_t first =
          options_.takes_comments ? first_line_with_comments(input_, line) : line;
      if (old_.statements[i].kind == StatementKind::Module) {
        remove_module(first, last_line(i));
      } else {
        patch_.remove_lines(first, last_line(i));
      }
    }
  }

  std::size_t first_insertion_line() const {
    const std::size_t easy = last_line_of_easy_section(input_);
    if (easy > 0 || old_.statements.empty()) {
      return easy > 0 ? easy : input_.source().line_count();
    }
    return first_line(old_.statements.front()) - 1;
  }

  void insert_statement(const Statement& statement, std::size_t behind) {
    if (statement.kind != StatementKind::Module) {
      patch_.insert_lines(behind, statement.lines);
      return;
    }
    if (statement.module_index >= new_.modules.size()) {
      return;
    }
    const std::size_t before = module_before(behind);
    Lines text = lines_of(new_.modules[statement.module_index], indentation_of_module(before),
                          indentation_near(input_, before, none));
    const bool follows_new = inserted_behind_ == behind;
    const bool follows_text = behind > 0 && !input_.source().content(behind).empty();
    if (follows_new ? !is_set_apart_ : follows_text) {
      text.insert(text.begin(), std::string());
    }
    inserted_behind_ = behind;
    is_set_apart_ = before == old_.modules.size() && is_followed_by_module(behind);
    if (is_set_apart_) {
      text.emplace_back();
    }
    patch_.insert_lines(behind, text);
  }

  // In front of the first module there is no telling how the others are set apart.
  bool is_followed_by_module(std::size_t line) const {
    const LineRole role = input_.line(line + 1).role;
    return role == LineRole::ModuleHeader || role == LineRole::Comment;
  }

  void patch_module(std::size_t index, const Module& module) {
    if (module.name != old_.modules[index].name) {
      patch_.replace(input_.keyword_range(RecordId::of_module(index)), "$" + module.name);
    }
    patch_entries(input_, index, module.entries, options_, patch_);
  }

  // Modules within a wrapper are often indented.
  std::string indentation_of_module(std::size_t module) const {
    const std::size_t line = input_.first_line(RecordId::of_module(module));
    return line == 0 ? std::string() : indentation_of_line(input_, line);
  }

  // The last module that begins before the end of a line, or the number of modules.
  std::size_t module_before(std::size_t line) const {
    std::size_t count = 0;
    while (count < old_.modules.size() && line_of(old_.modules[count].location) <= line) {
      ++count;
    }
    return count == 0 ? old_.modules.size() : count - 1;
  }

  // Of the empty lines around a module that goes, one is left, and none at the edge of the text.
  void remove_module(std::size_t first, std::size_t last) {
    const std::size_t count = input_.source().line_count();
    const bool is_blank_below = last == count || is_blank(last + 1);
    if (first > 1 && is_blank(first - 1) && is_blank_below) {
      --first;
    } else if (first == 1 && last < count && is_blank_below) {
      ++last;
    }
    patch_.remove_lines(first, last);
  }

  bool is_blank(std::size_t line) const { return input_.source().content(line).empty(); }

  const ParsedInput& input_;
  const BDFData& old_;
  const BDFData& new_;
  const PatchOptions& options_;
  TextPatch& patch_;
  std::size_t inserted_behind_ = none;
  bool is_set_apart_ = false;  // an empty line follows what was inserted there
};

}  // namespace

void patch_document(const ParsedInput& input, const BDFData& edited, const PatchOptions& options,
                    TextPatch& patch) {
  DocumentPatch(input, edited, options, patch).run();
}

std::size_t last_line_of_easy_section(const ParsedInput& input) {
  const BDFData& data = input.data();
  std::size_t last = 0;
  if (data.geometry_location) {
    last = input.last_line(RecordId::of(RecordKind::Geometry, 0));
  } else if (!data.easy_tokens.empty()) {
    last = line_of(data.easy_tokens.back().location);
  }
  return last;
}

}  // namespace kelp::input::bdf
