// A layout is a matter of single lines: each is laid out by its role, and by nothing that stands
// around it but blank lines. So comments stay where they are, the order stays what it is, and a
// text that was laid out is laid out the same again.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "rewrite/same_meaning.hpp"
#include "rewrite/text_patch.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t step = 2;

class Layout {
 public:
  explicit Layout(const ParsedInput& input)
      : input_(input), source_(input.source()), data_(input.data()), patch_(source_) {}

  std::vector<TextEdit> run() {
    for (std::size_t number = 1; number <= source_.line_count(); ++number) {
      const LineInfo info = input_.line(number);
      // A line that is misspelt is kept as it is, until somebody says that it be mended.
      if (!input_.is_misspelt_border(number) && !lay_out_blank(number, info)) {
        lay_out(number, info);
      }
    }
    return patch_.finish();
  }

 private:
  std::string_view text(const TextRange& range) const { return source_.text_of(range); }

  // Puts a line at an indentation, without blanks at its end.
  void indent(std::size_t number, std::size_t indentation) {
    const TextRange line = source_.line_range(number);
    const TextRange content = source_.content(number);
    if (!content.empty()) {
      patch_.replace({line.begin, content.begin}, std::string(indentation, ' '));
    }
    trim_end(number);
  }

  void trim_end(std::size_t number) {
    const TextRange line = source_.line_range(number);
    const TextRange content = source_.content(number);
    patch_.replace({content.empty() ? line.begin : content.end, line.end}, {});
  }

  void lower(const TextRange& range) { patch_.replace(range, core::text::to_lower(text(range))); }

  void lay_out(std::size_t number, const LineInfo& info) {
    switch (info.role) {
      case LineRole::Header:
        return lay_out_header(number);
      case LineRole::GeometryStart:
        return lay_out_bound(number, "Geometry");
      case LineRole::GeometryEnd:
        return lay_out_bound(number, "End Geometry");
      case LineRole::Atom:
      case LineRole::GeometryLine:
        return indent(number, is_comment(number) ? indentation_of(number) : step);
      case LineRole::ModuleHeader:
        return lay_out_module_header(number, info.record);
      case LineRole::ModuleEnd:
        return lay_out_bound(number, "$end");
      case LineRole::Keyword:
        return lay_out_keyword(number, info.record);
      case LineRole::Value:
        return lay_out_value(number, info.record);
      case LineRole::BlockEnd:
        return lay_out_block_end(number, info.record);
      case LineRole::Comment:
        return trim_end(number);
      default:
        return;
    }
  }

  bool is_comment(std::size_t number) const {
    const TextRange content = source_.content(number);
    return !content.empty() && text(content).front() == '#';
  }

  std::size_t indentation_of(std::size_t number) const {
    return source_.content(number).begin - source_.line_range(number).begin;
  }

  // --- blank lines

  // One blank line is as good as many, and none is needed at the beginning, within a module, or at
  // the end. Within values and a geometry they stay.
  bool lay_out_blank(std::size_t number, const LineInfo& info) {
    if (info.role == LineRole::ModuleHeader && number > 1) {
      separate(number);
    }
    if (info.role != LineRole::Blank) {
      return false;
    }
    const bool in_module = module_of(data_, info.record) != nullptr;
    const bool repeats = number == 1 || input_.line(number - 1).role == LineRole::Blank;
    const bool at_end = number == source_.line_count();
    if (in_module || repeats || at_end || is_before_end(number)) {
      patch_.remove_lines(number, number);
    } else {
      trim_end(number);
    }
    return true;
  }

  bool is_before_end(std::size_t number) const {
    for (std::size_t next = number; next <= source_.line_count(); ++next) {
      if (input_.line(next).role != LineRole::Blank) {
        return false;
      }
    }
    return true;
  }

  // A module is set off from the one before it. A comment above it belongs to it.
  void separate(std::size_t header) {
    const LineInfo before = input_.line(header - 1);
    if (before.role == LineRole::ModuleEnd || before.role == LineRole::GeometryEnd) {
      patch_.insert_lines(header - 1, {std::string()});
    }
  }

  // --- the header

  void lay_out_header(std::size_t number) {
    indent(number, 0);
    const BDFData& data = data_;
    for (std::size_t i = first_token(number); i < data.easy_tokens.size(); ++i) {
      if (input_.first_line(RecordId::of(RecordKind::EasyToken, i)) != number) {
        break;
      }
      lay_out_token(i);
    }
  }

  std::size_t first_token(std::size_t number) const { return input_.line(number).record.index; }

  // Only names that the schema knows lose nothing by their case.
  void lay_out_token(std::size_t index) {
    const InputSchema& schema = input_.schema();
    const SpecificationRanges parts = input_.specification_ranges(index);
    if (!parts.basis.empty()) {
      lower_known(parts.method, schema.is_known_method(text(parts.method)));
      lower_known(parts.functional, schema.is_known_functional(text(parts.functional)));
      lower_known(parts.basis, schema.is_known_basis(text(parts.basis)));
    } else if (data_.easy_tokens[index].known) {
      lower(input_.token_ranges(index).key);
    }
  }

  void lower_known(const TextRange& range, bool is_known) {
    if (is_known) {
      lower(range);
    }
  }

  // --- modules

  void lay_out_bound(std::size_t number, std::string_view word) {
    indent(number, 0);
    const TextRange content = source_.content(number);
    if (core::text::equals_ignoring_case(text(content).substr(0, word.size()), word)) {
      patch_.replace({content.begin, content.begin + word.size()}, std::string(word));
    }
  }

  void lay_out_module_header(std::size_t number, const RecordId& record) {
    indent(number, 0);
    if (data_.modules[record.index].known) {
      lower(input_.keyword_range(record));
    }
  }

  std::size_t depth_of(const RecordId& record) const {
    return record.kind == RecordKind::Child ? 2 : 1;
  }

  void lay_out_keyword(std::size_t number, const RecordId& record) {
    indent(number, depth_of(record) * step);
    lower(input_.keyword_range(record));
    const ModuleEntry* const entry = entry_or_child(data_, record);
    if (!entry->values.empty() && input_.value_line(record, 0) == number) {
      break_line(record);
    }
  }

  // A value on its keyword's line moves to the next one, with its comment.
  void break_line(const RecordId& record) {
    const TextRange value = input_.value_range(record, 0);
    const std::size_t number = input_.first_line(record);
    const std::string_view end = source_.line_end(number);
    patch_.replace(
        {input_.keyword_range(record).end, value.begin},
        std::string(end.empty() ? "\n" : end) + std::string((depth_of(record) + 1) * step, ' '));
  }

  void lay_out_value(std::size_t number, const RecordId& record) {
    const ModuleEntry* const entry = entry_or_child(data_, record);
    if (!entry->known || entry->kind == EntryValueKind::Raw) {
      return;
    }
    if (is_comment(number)) {
      return trim_end(number);
    }
    indent(number, (depth_of(record) + 1) * step);
  }

  void lay_out_block_end(std::size_t number, const RecordId& record) {
    indent(number, depth_of(record) * step);
    const TextRange content = source_.content(number);
    const TextRange comment = input_.comment_range(number);
    lower(source_.trimmed({content.begin, comment.begin}));
  }

  const ParsedInput& input_;
  const SourceText& source_;
  const BDFData& data_;
  TextPatch patch_;
};

}  // namespace

Rewrite format_input(const ParsedInput& input) {
  Rewrite rewrite;
  rewrite.text = input.source().text();
  if (const auto fault = find_text_fault(input.source())) {
    rewrite.error = fault->message;
    return rewrite;
  }
  if (input.is_empty()) {
    rewrite.error = "there is nothing to lay out: BDF input is empty";
    return rewrite;
  }
  rewrite.edits = Layout(input).run();
  rewrite.text = apply_edits(input.source().text(), rewrite.edits);
  if (rewrite.edits.empty()) {
    return rewrite;
  }
  const ParsedInput after(rewrite.text, input.schema());
  const std::string difference = first_difference(input.data(), after.data(), true).path;
  if (!difference.empty()) {
    Diagnostic loss;
    loss.code = "bdf.format_loss";
    loss.severity = Severity::Error;
    loss.message = "The layout would change what '" + difference + "' says.";
    loss.arguments = {difference};
    loss.path = difference;
    rewrite.losses.push_back(std::move(loss));
  }
  return rewrite;
}

}  // namespace kelp::input::bdf
