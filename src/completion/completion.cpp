// What could stand at a byte follows from what the parser made of its line: the line's role and the
// record that it belongs to. A word that is being typed is no keyword yet, so that its line is an
// unknown one of its module, which is all that need be known. Only the line behind the last line
// end has no role; it is read as if something followed.

#include "kelp/input/bdf/completion.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "completion/candidates.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/listed_names.hpp"
#include "model/method_specification.hpp"
#include "model/molecule_names.hpp"
#include "schema/easy_token_syntax.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

bool is_word_byte(char byte) {
  return !core::text::is_space(byte) && byte != ',';
}

class Completer {
 public:
  Completer(const ParsedInput& input, std::size_t byte, Language language)
      : input_(input),
        data_(input.data()),
        source_(input.source()),
        lists_(input.schema(), language),
        line_(source_.line_at(byte)),
        info_(input.line(line_)) {
    find_word(byte);
  }

  Completion run() {
    const TextRange comment = input_.comment_range(line_);
    const bool in_comment = !comment.empty() && word_.end > comment.begin;
    if (!in_comment) {
      complete();
    }
    std::vector<Candidate> candidates = lists_.take();
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& left, const Candidate& right) {
                       return !left.is_present && right.is_present;
                     });
    return {word_, std::move(candidates)};
  }

 private:
  void find_word(std::size_t byte) {
    const TextRange line = source_.line_range(line_);
    const std::string_view text = source_.text();
    byte = std::clamp(byte, line.begin, line.end);
    word_ = {byte, byte};
    while (word_.begin > line.begin && is_word_byte(text[word_.begin - 1])) {
      --word_.begin;
    }
    while (word_.end < line.end && is_word_byte(text[word_.end])) {
      ++word_.end;
    }
    byte_ = byte;
    is_first_ = source_.trimmed({line.begin, word_.begin}).empty();
  }

  void complete() {
    if (source_.text_of(word_).starts_with('$')) {
      complete_module();
      return;
    }
    switch (info_.role) {
      case LineRole::Header:
        complete_header();
        break;
      case LineRole::Atom:
      case LineRole::GeometryLine:
      case LineRole::GeometryEnd:
        complete_atom("End geometry");
        break;
      case LineRole::ModuleHeader:
      case LineRole::ModuleEnd:
      case LineRole::Other:
        complete_module();
        break;
      case LineRole::Keyword:
        is_first_ ? complete_keyword() : complete_value();
        break;
      case LineRole::UnknownLine:
        complete_keyword();
        break;
      case LineRole::Value:
        complete_value_line();
        break;
      case LineRole::BlockEnd:
        complete_end_of_block();
        break;
      case LineRole::Blank:
        complete_blank();
        break;
      default:
        break;
    }
  }

  // -- modules and what stands in them

  const Module* module() const { return module_of(data_, info_.record); }

  void complete_module() {
    if (!is_first_) {
      return;
    }
    if (const Module* const around = module();
        around != nullptr && info_.role != LineRole::ModuleHeader) {
      lists_.add_end("$end");
    } else if (info_.role == LineRole::ModuleHeader && is_behind_open_module()) {
      lists_.add_end("$end");
    }
    lists_.add_modules();
    for (Candidate& made : lists_.made()) {
      const bool is_once = !input_.schema().module_repeatable(made.name);
      made.is_present = made.kind == CandidateKind::Module && is_once &&
                        data_.find_module(made.name) != nullptr && !is_of_this_line(made.name);
    }
    keep_names_where_lines_follow(LineRole::ModuleEnd);
  }

  // A `$` that is being typed ends the module before it, as the header of one without a name.
  bool is_behind_open_module() const {
    return info_.record.kind == RecordKind::Module && info_.record.index > 0 &&
           !data_.modules[info_.record.index - 1].terminated;
  }

  bool is_of_this_line(std::string_view name) const {
    return core::text::equals_ignoring_case(source_.text_of(word_), name);
  }

  // What is in the block of a child, and of an entry that is one.
  const ModuleEntry* block() const {
    const ModuleEntry* const entry = entry_of(data_, info_.record);
    return entry != nullptr && entry->kind == EntryValueKind::NestedBlock &&
                   (info_.record.kind == RecordKind::Child || info_.role != LineRole::Keyword)
               ? entry
               : nullptr;
  }

  void complete_keyword() {
    const Module* const around = module();
    if (around == nullptr || !is_first_) {
      return;
    }
    if (const ModuleEntry* const outer = block()) {
      lists_.add_nested_entries(around->name, outer->name);
      mark_present(outer->children, around->name, outer->name);
      lists_.add_end(outer->terminator);
    } else {
      lists_.add_entries(around->name);
      mark_present(around->entries, around->name, {});
      lists_.add_end("$end");
    }
    keep_names_where_lines_follow(LineRole::Value);
  }

  void mark_present(const std::vector<ModuleEntry>& entries, const std::string& module,
                    const std::string& block) {
    for (Candidate& made : lists_.made()) {
      const auto info = block.empty() ? input_.schema().entry_info(module, made.name)
                                      : input_.schema().nested_entry_info(module, block, made.name);
      const ModuleEntry* const own = entry_or_child(data_, info_.record);
      made.is_present = info && !info->repeatable &&
                        std::any_of(entries.begin(), entries.end(), [&](const ModuleEntry& entry) {
                          return &entry != own && entry.known && entry.name == made.name;
                        });
    }
  }

  // Values that stand below already belong to what is put in the word's place.
  void keep_names_where_lines_follow(LineRole follower) {
    const LineInfo next = input_.line(line_ + 1);
    const bool is_same_unknown =
        next.role == LineRole::UnknownLine && !source_.content(line_ + 1).empty();
    const bool is_rest = !source_.trimmed({word_.end, source_.line_range(line_).end}).empty();
    if (next.role != follower && !is_same_unknown && !is_rest &&
        (follower != LineRole::ModuleEnd || !module_goes_on())) {
      return;
    }
    for (Candidate& made : lists_.made()) {
      made.lines.resize(1);
      made.closes_block = false;
    }
  }

  bool module_goes_on() const {
    const LineInfo next = input_.line(line_ + 1);
    return next.role == LineRole::Keyword || next.role == LineRole::UnknownLine;
  }

  // -- values

  void complete_value() {
    const Module* const around = module();
    const ModuleEntry* const entry = entry_or_child(data_, info_.record);
    if (around == nullptr || entry == nullptr) {
      return;
    }
    if (info_.record.kind == RecordKind::Child) {
      lists_.add_nested_values(around->name, entry_of(data_, info_.record)->name, entry->name);
      return;
    }
    switch (listed_names_of(around->name, entry->name)) {
      case ListedNames::Functionals:
        lists_.add_functionals();
        break;
      case ListedNames::BasisSets:
      case ListedNames::BasisRows:
        lists_.add_basis_sets();
        break;
      case ListedNames::None:
        lists_.add_values(around->name, entry->name);
    }
  }

  void complete_value_line() {
    const ModuleEntry* const entry = entry_or_child(data_, info_.record);
    if (entry == nullptr) {
      return;
    }
    if (is_geometry_entry(*entry)) {
      complete_atom(entry->terminator);
      return;
    }
    if (entry->kind == EntryValueKind::NestedBlock) {
      complete_keyword();
      return;
    }
    complete_value();
    if (entry->kind == EntryValueKind::TerminatedBlock && is_first_) {
      lists_.add_end(entry->terminator);
    } else if (entry->kind == EntryValueKind::MultiLine && has_values_before()) {
      complete_keyword();
    }
  }

  // The first line below the keyword can be nothing but a value.
  bool has_values_before() const { return line_ > input_.first_line(info_.record) + 1; }

  void complete_end_of_block() {
    if (const ModuleEntry* const entry = entry_of(data_, info_.record)) {
      lists_.add_end(entry->terminator);
    }
  }

  // -- the header and the geometry

  void complete_header() {
    const std::string_view word = source_.text_of({word_.begin, byte_});
    if (const std::size_t equals = word.find('='); equals != std::string_view::npos) {
      word_.begin += equals + 1;
      lists_.add_easy_values(word.substr(0, equals));
    } else if (const std::size_t slash = word.rfind('/'); slash != std::string_view::npos) {
      complete_specification(word.substr(0, slash));
      word_.begin += slash + 1;
      const std::string_view rest = source_.text_of({byte_, word_.end});
      word_.end = byte_ + std::min(rest.find('/'), rest.size());
    } else {
      complete_header_word();
    }
  }

  void complete_specification(std::string_view before) {
    const std::string_view first = before.substr(0, before.find('/'));
    const bool is_method = input_.schema().is_known_method(first);
    if (is_method && first.size() == before.size() &&
        functional_use(SchemaAccess::impl(input_.schema()), first) != FunctionalUse::None) {
      lists_.add_functionals();
    }
    lists_.add_basis_sets();
  }

  void complete_header_word() {
    const bool has_specification = has_method_specification(data_);
    lists_.add_easy_keywords();
    for (Candidate& made : lists_.made()) {
      made.is_present = !is_of_this_line(made.name) &&
                        !find_easy_keywords(data_, input_.schema(), made.name).empty();
    }
    if (!has_specification) {
      lists_.add_methods();
      lists_.add_functionals();
    }
  }

  void complete_atom(const std::string& end) {
    if (is_first_) {
      lists_.add_elements();
      lists_.add_end(end);
    }
  }

  // -- lines without a word

  // An empty line is no value, but what is typed there will be the value of a keyword above that
  // has none.
  RecordId waiting_for_value() const {
    std::size_t above = line_ - 1;
    while (above > 0 && source_.content(above).empty()) {
      --above;
    }
    const LineInfo before = input_.line(above);
    const ModuleEntry* const entry = entry_or_child(data_, before.record);
    if (before.role != LineRole::Keyword || entry == nullptr || !entry->values.empty() ||
        !input_.behind_keyword(before.record).empty()) {
      return {};
    }
    switch (entry->kind) {
      case EntryValueKind::Scalar:
      case EntryValueKind::Tuple:
      case EntryValueKind::MultiLine:
      case EntryValueKind::CountedRows:
        return before.record;
      default:
        return {};
    }
  }

  void complete_blank() {
    if (const RecordId waiting = waiting_for_value()) {
      info_.record = waiting;
      complete_value();
      return;
    }
    if (module() != nullptr) {
      complete_keyword();
      return;
    }
    const bool is_before_all = !info_.record && data_.mode != InputMode::Module;
    if (is_before_all || input_.is_empty()) {
      complete_header_word();
      if (!data_.has_geometry) {
        lists_.add_geometry();
      }
    }
    if (!is_before_all || input_.is_empty() || data_.has_geometry) {
      complete_module();
    }
  }

  const ParsedInput& input_;
  const BDFData& data_;
  const SourceText& source_;
  CandidateLists lists_;
  std::size_t line_;
  LineInfo info_;
  std::size_t byte_ = 0;
  TextRange word_;
  bool is_first_ = false;  // nothing stands before the word on its line
};

}  // namespace

Completion completion_at(const ParsedInput& input, std::size_t byte, Language language) {
  const std::string_view text = input.source().text();
  if (byte >= text.size() && (text.empty() || text.ends_with('\n'))) {
    const ParsedInput longer(std::string(text) + "\n", input.schema());
    return Completer(longer, text.size(), language).run();
  }
  return Completer(input, byte, language).run();
}

}  // namespace kelp::input::bdf
