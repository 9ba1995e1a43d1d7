// What stands behind a keyword on its own line and is not read: words behind a flag, and a value
// where another one follows below. People write comments there without a sign for them, so that
// only what can be nothing but a keyword or a value is told of.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnose/finders.hpp"
#include "diagnose/offers.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "model/listed_names.hpp"
#include "source/geometry_line.hpp"

namespace kelp::input::bdf {
namespace {

class SurplusWordFinder {
 public:
  SurplusWordFinder(DiagnoseContext& context, const DiagnosticSink& use)
      : context_(context), input_(context.input), use_(use) {}

  void look_at(const Module& module, const ModuleEntry& entry, const RecordId& record) {
    // Most keywords stand alone on their lines, which is told without asking where.
    std::string_view rest = entry.raw_line;
    core::text::take_word(rest);
    const TextRange behind =
        core::text::trim_view(rest).empty() ? TextRange{} : input_.behind_keyword(record);
    if (behind.empty()) {
      return;
    }
    const std::vector<std::string_view> words = words_of(input_.source().text_of(behind));
    if (entry.kind == EntryValueKind::Flag) {
      if (is_number(words[0]) || is_keyword(module, words[0])) {
        report_behind_flag(module, record, behind, is_number(words[0]));
      }
    } else if (const std::vector<TextRange> below = input_.value_ranges(record);
               !below.empty() && below.front().begin > behind.end && words.size() == 1 &&
               is_value(module, entry, words[0])) {
      report_two_values(record, behind, below.front());
    }
  }

 private:
  static bool is_number(std::string_view word) { return is_decimal(word); }

  bool is_keyword(const Module& module, std::string_view word) {
    return input_.schema().entry_info(module.name, word).has_value() ||
           (can_be_slip(word) &&
            !similar_names(word, context_.names().entries(module.name)).empty());
  }

  // Whether a word would be right as the value of an entry, and is no word of a comment.
  bool is_value(const Module& module, const ModuleEntry& entry, std::string_view word) const {
    const InputSchema& schema = input_.schema();
    switch (listed_names_of(module.name, entry.name)) {
      case ListedNames::Functionals:
        return schema.is_known_functional(word);
      case ListedNames::BasisSets:
        return schema.is_known_basis(word);
      default:
        break;
    }
    const auto info = schema.entry_info(module.name, entry.name);
    if (!info || info->kind != EntryValueKind::Scalar) {
      return false;
    }
    return info->value_type == "string"
               ? std::any_of(info->allowed.begin(), info->allowed.end(),
                             [&](const std::string& value) {
                               return core::text::equals_ignoring_case(value, word);
                             })
               : is_number(word);
  }

  std::string written(const TextRange& range) const {
    return std::string(input_.source().text_of(range));
  }

  void report_behind_flag(const Module& module, const RecordId& record, const TextRange& behind,
                          bool is_a_number) {
    const std::string keyword = written(input_.keyword_range(record));
    const std::string text = written(behind);
    Diagnostic diagnostic =
        begin_diagnostic({"names.word_behind_flag",
                          "'" + keyword + "' of $" + module.name + " takes no value, and '" +
                              core::unicode::abridged(text) + "' stands behind it.",
                          {keyword, text},
                          record},
                         context_.paths);
    diagnostic.range = behind;
    diagnostic.label = "not read";
    if (is_a_number) {
      diagnostic.help.emplace_back("take it away; a comment begins with '#'");
    } else {
      diagnostic.help.emplace_back("each keyword has a line of its own; a comment begins with '#'");
      const SourceText& source = input_.source();
      const std::size_t line = source.line_at(behind.begin);
      const TextRange indent = {source.line_range(line).begin, source.content(line).begin};
      std::string end(source.line_end(line));
      offer_fix(diagnostic, "begin a new line with it",
                {input_.keyword_range(record).end, behind.begin},
                (end.empty() ? "\n" : end) + written(indent));
    }
    use_(diagnostic);
  }

  void report_two_values(const RecordId& record, const TextRange& behind, const TextRange& below) {
    const std::string keyword = written(input_.keyword_range(record));
    const std::string text = written(behind);
    Diagnostic diagnostic =
        begin_diagnostic({"names.second_value",
                          "'" + keyword + "' has two values, '" + core::unicode::abridged(text) +
                              "' and '" + core::unicode::abridged(written(below)) + "'.",
                          {keyword, text},
                          record},
                         context_.paths);
    diagnostic.range = behind;
    diagnostic.label = "one value";
    diagnostic.related.push_back({below, "another one"});
    diagnostic.help.emplace_back("keep the one that is meant; which of them counts is not said");
    use_(diagnostic);
  }

  DiagnoseContext& context_;
  const ParsedInput& input_;
  const DiagnosticSink& use_;
};

}  // namespace

void find_surplus_words(DiagnoseContext& context, const DiagnosticSink& use) {
  SurplusWordFinder finder(context, use);
  const std::vector<Module>& modules = context.input.data().modules;
  for (std::size_t i = 0; i < modules.size(); ++i) {
    for (std::size_t k = 0; modules[i].known && k < modules[i].entries.size(); ++k) {
      if (modules[i].entries[k].known) {
        finder.look_at(modules[i], modules[i].entries[k], RecordId::of_entry(i, k));
      }
    }
  }
}

}  // namespace kelp::input::bdf
