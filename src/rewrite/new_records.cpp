#include "rewrite/new_records.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

/// Looks for a line that shows how entries are indented.
class IndentationSearch {
 public:
  explicit IndentationSearch(const ParsedInput& input) : input_(input) {}

  Indentation near(std::size_t module, std::size_t entry) {
    const std::vector<Module>& modules = input_.data().modules;
    // The module itself, from the entry upwards and then downwards; then the modules before it.
    if (module < modules.size()) {
      look_at(module, entry);
    }
    for (std::size_t i = std::min(module, modules.size()); i-- > 0 && !is_settled();) {
      look_at(i, modules[i].entries.size());
    }
    for (std::size_t i = module + 1; i < modules.size() && !is_settled(); ++i) {
      look_at(i, 0);
    }
    if (!keyword_found_) {
      return {"  ", "    "};
    }
    if (!value_found_) {
      found_.value = found_.keyword + "  ";
    }
    return found_;
  }

 private:
  bool is_settled() const { return keyword_found_ && value_found_; }

  void look_at(std::size_t module, std::size_t entry) {
    const std::size_t count = input_.data().modules[module].entries.size();
    for (std::size_t i = std::min(entry, count); i-- > 0 && !is_settled();) {
      look_at_entry(module, i);
    }
    for (std::size_t i = entry; i < count && !is_settled(); ++i) {
      look_at_entry(module, i);
    }
  }

  void look_at_entry(std::size_t module, std::size_t index) {
    const ModuleEntry& entry = input_.data().modules[module].entries[index];
    const RecordId record = RecordId::of_entry(module, index);
    if (!entry.known) {
      return;
    }
    if (!keyword_found_) {
      keyword_found_ = true;
      found_.keyword = indentation_of_line(input_, input_.first_line(record));
    }
    if (!value_found_ && !entry.values.empty() && indents_alike(record) &&
        input_.value_line(record, 0) != input_.first_line(record)) {
      value_found_ = true;
      found_.value = indentation_of_line(input_, input_.value_line(record, 0));
    }
  }

  bool indents_alike(const RecordId& record) const {
    return indentation_of_line(input_, input_.first_line(record)) == found_.keyword;
  }

  const ParsedInput& input_;
  Indentation found_;
  bool keyword_found_ = false;
  bool value_found_ = false;
};

/// Appends the lines of new records.
class NewLines {
 public:
  explicit NewLines(const Indentation& indentation) : indentation_(indentation) {}

  void add(const Module& module, const std::string& indentation) {
    lines_.push_back(module.known || module.header_line.empty() ? indentation + "$" + module.name
                                                                : module.header_line);
    for (const ModuleEntry& entry : module.entries) {
      add(entry, indentation_);
    }
    lines_.insert(lines_.end(), module.trailing_lines.begin(), module.trailing_lines.end());
    lines_.push_back(module.known || module.end_line.empty() ? indentation + "$end"
                                                             : module.end_line);
  }

  void add(const ModuleEntry& entry) { add(entry, indentation_); }
  Lines take() { return std::move(lines_); }

 private:
  void add(const ModuleEntry& entry, const Indentation& indentation) {
    if (!entry.known || entry.kind == EntryValueKind::Raw) {
      if (!entry.raw_line.empty()) {
        lines_.push_back(entry.raw_line);
      }
      lines_.insert(lines_.end(), entry.values.begin(), entry.values.end());
      return;
    }
    lines_.push_back(indentation.keyword + entry.name);
    for (const std::string& value : entry.values) {
      const std::string_view text = core::text::trim_view(value);
      lines_.push_back(text.empty() ? std::string() : indentation.value + std::string(text));
    }
    for (const ModuleEntry& child : entry.children) {
      add(child, {indentation.keyword + "  ", indentation.keyword + "    "});
    }
    if (!entry.terminator.empty()) {
      lines_.push_back(indentation.keyword + entry.terminator);
    }
  }

  const Indentation& indentation_;
  Lines lines_;
};

}  // namespace

Indentation indentation_near(const ParsedInput& input, std::size_t module, std::size_t entry) {
  return IndentationSearch(input).near(module, entry);
}

std::string indentation_of_line(const ParsedInput& input, std::size_t line) {
  const SourceText& source = input.source();
  return std::string(source.text_of({source.line_range(line).begin, source.content(line).begin}));
}

std::vector<std::string> lines_of(const Module& module, const std::string& margin,
                                  const Indentation& indentation) {
  NewLines lines(indentation);
  lines.add(module, margin);
  return lines.take();
}

std::vector<std::string> lines_of(const ModuleEntry& entry, const Indentation& indentation) {
  NewLines lines(indentation);
  lines.add(entry);
  return lines.take();
}

}  // namespace kelp::input::bdf
