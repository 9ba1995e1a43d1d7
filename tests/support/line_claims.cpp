#include "support/line_claims.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "kelp/core/text.hpp"
#include "parser/frame.hpp"

namespace kelp::input::bdf {
namespace {

Lines split_lines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    lines.push_back(take_line(text));
  }
  return lines;
}

using core::text::equals_ignoring_case;
using core::text::trim_view;
using OptionalText = std::optional<std::string_view>;

template <typename Record>
const Record* at(const std::vector<Record>& records, std::size_t index) {
  return index < records.size() ? &records[index] : nullptr;
}

OptionalText text_at(const std::vector<std::string>& lines, std::size_t index) {
  return index < lines.size() ? OptionalText(lines[index]) : std::nullopt;
}

class Claims {
 public:
  Claims(std::string_view text, const MappedDocument& read)
      : lines_(split_lines(text)), data_(read.data), map_(read.map) {}

  std::vector<std::string> check() {
    for (std::size_t number = 1; number <= lines_.size(); ++number) {
      check(number);
    }
    if (claims_ != lines_held()) {
      complaints_.push_back(std::to_string(claims_) + " lines are claimed, but records hold " +
                            std::to_string(lines_held()));
    }
    return complaints_;
  }

 private:
  void check(std::size_t number) {
    const LineInfo& info = map_.lines[number];
    if (info.role == LineRole::Header) {
      return check_header(number);
    }
    if (const auto fixed = is_fixed_text(info, lines_[number - 1])) {
      return *fixed ? void() : complain(number, "is not of its role");
    }
    ++claims_;
    const OptionalText held = held_by_record(number, info);
    if (!held) {
      complain(number, "has no record");
    } else if (*held != lines_[number - 1]) {
      complain(number, "is held as '" + std::string(*held) + "'");
    }
  }

  // Lines of which the document does not keep the text.
  std::optional<bool> is_fixed_text(const LineInfo& info, std::string_view line) const {
    const std::string_view words = trim_view(line);
    switch (info.role) {
      case LineRole::Blank:
        return info.record ? std::nullopt : std::optional(words.empty());
      case LineRole::ScriptLine:
        return words.starts_with("#!") &&
               data_.script_name == (trim_view(words.substr(2)).empty()
                                         ? "job.bdf"
                                         : std::string(trim_view(words.substr(2))));
      case LineRole::GeometryStart:
        return info.record.kind == RecordKind::Geometry &&
               equals_ignoring_case(words.substr(0, 8), "geometry");
      case LineRole::GeometryEnd:
        return info.record.kind == RecordKind::Geometry &&
               equals_ignoring_case(words.substr(0, 12), "end geometry");
      case LineRole::BlockEnd: {
        const ModuleEntry* const entry = entry_or_child(data_, info.record);
        return entry != nullptr && entry->terminated &&
               equals_ignoring_case(words, trim_view(entry->terminator));
      }
      default:
        return std::nullopt;
    }
  }

  OptionalText held_by_record(std::size_t number, const LineInfo& info) const {
    const RecordId& record = info.record;
    switch (record.kind) {
      case RecordKind::Atom: {
        const AtomRecord* const atom = at(data_.atoms, record.index);
        return atom == nullptr ? OptionalText() : atom->line;
      }
      case RecordKind::GeometryLine:
        return text_at(data_.geometry_lines, record.index);
      case RecordKind::LeadingLine:
        return text_at(data_.leading_lines, record.index);
      case RecordKind::Statement: {
        const Statement* const statement = at(data_.statements, record.index);
        return statement == nullptr ? OptionalText()
                                    : text_at(statement->lines, number - statement->location->line);
      }
      case RecordKind::Module: {
        const Module* const module = module_of(data_, record);
        if (module == nullptr) {
          return {};
        }
        return info.role == LineRole::ModuleEnd ? module->end_line : module->header_line;
      }
      case RecordKind::Entry:
      case RecordKind::Child:
        return held_by_entry(number, info);
      default:
        return {};
    }
  }

  OptionalText held_by_entry(std::size_t number, const LineInfo& info) const {
    const ModuleEntry* const entry = entry_or_child(data_, info.record);
    if (entry == nullptr || !entry->location) {
      return {};
    }
    if (info.role == LineRole::Value) {
      return text_at(entry->values, number - entry->location->line - 1);
    }
    return entry->location->line == number ? OptionalText(entry->raw_line) : OptionalText();
  }

  // Every word of a header line is a piece of one of its tokens, and the token holds it.
  void check_header(std::size_t number) {
    const std::string_view line = lines_[number - 1];
    const auto begin = static_cast<std::size_t>(line.data() - lines_.front().data());
    std::string left(line);
    for (const TokenPiece& piece : map_.pieces) {
      if (piece.range.begin < begin || piece.range.begin >= begin + line.size()) {
        continue;
      }
      const std::string_view text = line.substr(piece.range.begin - begin, piece.range.size());
      const EasyToken* const token = at(data_.easy_tokens, piece.token);
      if (token == nullptr || token->text.substr(piece.text_begin, text.size()) != text ||
          !token->location || token->location->line != number) {
        complain(number, "has a piece that is not its token's");
      }
      left.replace(piece.range.begin - begin, text.size(), text.size(), ' ');
    }
    if (!trim_view(left).empty()) {
      complain(number, "has words that are no token's");
    }
  }

  std::size_t lines_held() const {
    std::size_t count = data_.atoms.size() + data_.geometry_lines.size() +
                        data_.leading_lines.size() + data_.free_lines.size();
    for (const Module& module : data_.modules) {
      count += 1 + (module.end_line.empty() ? 0 : 1) + lines_held(module.entries);
    }
    return count;
  }

  static std::size_t lines_held(const std::vector<ModuleEntry>& entries) {
    std::size_t count = 0;
    for (const ModuleEntry& entry : entries) {
      count += 1 + entry.values.size() + lines_held(entry.children);
    }
    return count;
  }

  void complain(std::size_t number, const std::string& what) {
    complaints_.push_back("line " + std::to_string(number) + " '" +
                          std::string(lines_[number - 1]) + "' " + what);
  }

  Lines lines_;
  const BDFData& data_;
  const LineMap& map_;
  std::size_t claims_ = 0;
  std::vector<std::string> complaints_;
};

void check_statement(const Statement& statement, const BDFData& data, std::size_t& modules,
                     std::vector<std::string>& complaints) {
  const bool is_module = statement.kind == StatementKind::Module;
  if (is_module != (statement.module_index != Statement::no_module)) {
    complaints.push_back("a statement's kind and module index disagree");
  } else if (is_module && statement.module_index != modules) {
    complaints.push_back("a module statement is out of order");
  } else if (is_module && (modules >= data.modules.size() || !statement.lines.empty())) {
    complaints.push_back("a module statement has lines or no module");
  } else if (!is_module && statement.lines.empty()) {
    complaints.push_back("a side statement has no lines");
  }
  modules += is_module ? 1 : 0;
}

}  // namespace

MappedDocument read_with_map(std::string_view text, const InputSchema& schema,
                             const ParseOptions& options) {
  MappedDocument read;
  read.map.lines.resize(split_lines(text).size() + 1);
  LineReader reader(text, read.map);
  read_input(reader, schema, options, read.data);
  return read;
}

std::vector<std::string> wrong_claims(std::string_view text, const InputSchema& schema,
                                      const ParseOptions& options) {
  return wrong_claims(text, read_with_map(text, schema, options));
}

std::vector<std::string> wrong_claims(std::string_view text, const MappedDocument& read) {
  return Claims(text, read).check();
}

std::vector<std::string> broken_invariants(const BDFData& data) {
  std::vector<std::string> complaints;
  std::vector<std::string> free_lines;
  std::size_t modules = 0;
  std::uint64_t last_line = 0;
  for (const Statement& statement : data.statements) {
    check_statement(statement, data, modules, complaints);
    free_lines.insert(free_lines.end(), statement.lines.begin(), statement.lines.end());
    if (!statement.location || statement.location->line <= last_line) {
      complaints.push_back("a statement has no location behind the one before it");
      return complaints;
    }
    last_line = statement.location->line;
  }
  if (modules != data.modules.size()) {
    complaints.push_back("not every module has its statement");
  }
  if (free_lines != data.free_lines) {
    complaints.push_back("the free lines are not those of the side statements");
  }
  return complaints;
}

}  // namespace kelp::input::bdf
