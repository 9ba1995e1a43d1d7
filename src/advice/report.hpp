#pragma once

#include <deque>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "advice/advice.hpp"
#include "advice/job.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// A diagnostic in the making. Each call adds something and returns the finding again:
///
///     report.add("{} electrons cannot have the multiplicity {}.", {"10", "2"})
///         .at(scf.multiplicity)
///         .help("the multiplicity must be odd");
class Finding {
 public:
  Finding(const Job& job, const Rule& rule);

  /// Marks the value of a setting, its keyword when it has none; the finding is about its record.
  Finding& at(const Setting& setting, std::string label = {});
  /// Marks the keyword of a setting.
  Finding& at_keyword(const Setting& setting, std::string label = {});
  /// Marks the name of a module.
  Finding& at(const Block& block, std::string label = {});
  /// Marks a word of the text; the finding is about the record that it stands in.
  Finding& at(Word word, std::string label = {});
  /// Marks a range of the text; the finding is about the record that it stands in.
  Finding& at(const TextRange& range, std::string label = {});
  /// Makes it as grave as this, other than its text says.
  Finding& as(Severity severity);

  /// Points at another part of the text; nothing for one that is not there.
  Finding& related(const Setting& setting, std::string message);
  Finding& related(const Block& block, std::string message);
  Finding& related(const TextRange& range, std::string message);
  /// Says what to do about it.
  Finding& help(std::string text);
  /// Offers names in place of what is marked, the nearest first.
  Finding& suggest(const std::vector<std::string>& names);
  /// Offers an edit that somebody has to choose.
  Finding& ask(std::string title, TextEdit edit);
  /// Offers edits, in the order of the text, that somebody has to choose together.
  Finding& ask_all(std::string title, std::vector<TextEdit> edits);
  /// Offers an edit that can be made unasked: there is no other sensible reading.
  Finding& fix(std::string title, TextEdit edit);
  /// Offers a fix of several edits, safe or not.
  Finding& offer(Fix fix);
  /// Offers edits, in the order of the text, that can be made together unasked.
  Finding& fix_all(std::string title, std::vector<TextEdit> edits);

 private:
  friend class Report;

  Finding& mark(const TextRange& range, const RecordId& record, std::string label);

  const Job& job_;
  Diagnostic diagnostic_;
};

/// Where rules leave what they find.
class Report {
 public:
  explicit Report(const Job& job) : job_(job) {}

  /// Tells which rule speaks from now on.
  void begin(const Rule& rule) { rule_ = &rule; }
  /// Begins a finding of the rule. Each "{}" of the message makes way for the next argument. The
  /// reference stays valid until the next call.
  Finding& add(std::string_view message, std::initializer_list<std::string_view> arguments = {});
  /// Returns what was found, in the order of the text; each once.
  std::vector<Diagnostic> take();

 private:
  const Job& job_;
  const Rule* rule_ = nullptr;
  std::deque<Finding> findings_;
};

// Edits for fixes.

/// Writes a text over a setting's value.
TextEdit value_replaced(const Setting& setting, std::string text);
/// Writes a text over a setting's keyword.
TextEdit keyword_replaced(const Setting& setting, std::string text);
/// Takes a setting away: an entry with all its lines, a header word with the blank before it.
TextEdit removed(const Job& job, const Setting& setting);
/// Adds an entry at the end of a block, with a value unless that is empty; laid out like the
/// entries before it.
TextEdit entry_added(const Job& job, const Block& block, const std::string& name,
                     const std::string& value = {});
/// Adds a block behind another one: `$mp2` and `$end`, with these lines between them.
TextEdit block_added(const Job& job, const Block& behind, const std::string& name,
                     const std::vector<std::string>& lines = {});

/// Moves all lines of an entry or a block before another one.
std::vector<TextEdit> moved_before(const Job& job, const RecordId& record, const RecordId& other);
/// Moves all lines of an entry or a block behind another one.
std::vector<TextEdit> moved_behind(const Job& job, const RecordId& record, const RecordId& other);

/// Returns a number as text, for messages.
inline std::string text_of(std::int64_t number) {
  return std::to_string(number);
}

}  // namespace kelp::input::bdf
