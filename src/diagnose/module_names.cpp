// Functionals and basis sets that stand among the values of entries.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnose/basis_rows.hpp"
#include "diagnose/finders.hpp"
#include "diagnose/likely_names.hpp"
#include "diagnose/offers.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "model/listed_names.hpp"
#include "source/geometry_line.hpp"

namespace kelp::input::bdf {
namespace {

class ModuleNameFinder {
 public:
  ModuleNameFinder(DiagnoseContext& context, const DiagnoseOptions& options,
                   const DiagnosticSink& use)
      : context_(context), input_(context.input), options_(options), use_(use) {}

  void look_at(const ModuleEntry& entry, const RecordId& record, ListedNames holds) const {
    bool is_inline = false;
    bool has_name = false;
    for (std::size_t i = 0; i < entry.values.size(); ++i) {
      const TextRange range = input_.value_range(record, i);
      const std::string_view text = input_.source().text_of(range);
      const std::size_t equals =
          holds == ListedNames::BasisRows ? text.find('=') : std::string_view::npos;
      if (holds == ListedNames::BasisRows &&
          (is_inline || core::text::equals_ignoring_case(text, "inline"))) {
        // The data of a basis set, not its name.
        is_inline = !core::text::equals_ignoring_case(text, "end line");
      } else {
        const std::size_t skipped = equals == std::string_view::npos ? 0 : equals + 1;
        const TextRange name = {range.begin + skipped, range.end};
        if (holds == ListedNames::BasisSets && has_name && !text.empty()) {
          report_second(range, record);
          return;
        }
        const bool is_first = !has_name || holds == ListedNames::BasisRows;
        has_name = has_name || says_something(text);
        if (!is_told_as_whole(name, record, holds) && !is_malformed(entry, range, record)) {
          look_at_words(name, record, holds, is_first);
        }
      }
    }
  }

 private:
  // A line may hold nothing but wide blanks.
  static bool says_something(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char byte) { return byte > ' ' && byte <= '~'; });
  }

  // A name with a blank in it.
  bool is_told_as_whole(const TextRange& range, const RecordId& record, ListedNames holds) const {
    const TextRange whole = input_.source().trimmed(range);
    const std::string_view text = input_.source().text_of(whole);
    if (holds == ListedNames::Functionals || words_of(text).size() < 2 ||
        text.find('=') != std::string_view::npos) {
      return false;
    }
    std::vector<std::string> likely = basis_sets_with_other_marks(text, context_, options_);
    if (likely.empty()) {
      return false;
    }
    report(whole, record, holds, std::move(likely));
    return true;
  }

  // What a block that has no end takes along is none of its rows.
  bool is_malformed(const ModuleEntry& entry, const TextRange& range,
                    const RecordId& record) const {
    const std::string_view text = input_.source().text_of(range);
    if (entry.kind != EntryValueKind::TerminatedBlock || !entry.terminated || text.empty() ||
        GeometryReader(false).kind_of(text) == GeometryLineKind::Elided) {
      return false;
    }
    const auto fault = fault_of_basis_row(text, input_.schema());
    if (!fault) {
      return false;
    }
    Diagnostic diagnostic = begin_diagnostic({"names.basis_row_malformed",
                                              "The line '" + core::unicode::abridged(text) +
                                                  "' is not laid out as basis-block wants it.",
                                              {std::string(text)},
                                              record},
                                             context_.paths);
    diagnostic.severity = fault->severity;
    diagnostic.range = range;
    diagnostic.label = fault->label;
    diagnostic.help.emplace_back("write 'O,H=def2-svp', or one name for all other elements");
    if (!fault->meant.empty()) {
      offer_fix(diagnostic, "write '" + fault->meant + "'", range, fault->meant,
                fault->severity == Severity::Error);
    }
    use_(diagnostic);
    return true;
  }

  // The vocabulary allows two words for one name, `6-31G(d, p)`, but not two lines.
  void report_second(const TextRange& range, const RecordId& record) const {
    const std::string keyword(input_.source().text_of(input_.keyword_range(record)));
    const std::string text(input_.source().text_of(range));
    Diagnostic diagnostic =
        begin_diagnostic({"names.second_value",
                          "'" + keyword + "' takes one name, and '" +
                              core::unicode::abridged(text) + "' is on a second line.",
                          {keyword, text},
                          record},
                         context_.paths);
    diagnostic.range = range;
    diagnostic.label = "neither a keyword nor a value";
    diagnostic.related.push_back({input_.value_ranges(record).front(), "the name"});
    diagnostic.help.emplace_back("remove it, or write the keyword that is meant");
    use_(diagnostic);
  }

  // A line behind the first may be no name, nor may one of several words, as the validator has
  // told.
  void look_at_words(const TextRange& range, const RecordId& record, ListedNames holds,
                     bool is_first) const {
    const std::string_view text = input_.source().text_of(range);
    const std::vector<std::string_view> words = words_of(text);
    for (const std::string_view word : words) {
      const std::size_t begin = range.begin + static_cast<std::size_t>(word.data() - text.data());
      look_at_name({begin, begin + word.size()}, record, holds, is_first && words.size() == 1);
    }
  }

  void look_at_name(const TextRange& range, const RecordId& record, ListedNames holds,
                    bool is_alone) const {
    const std::string name(input_.source().text_of(range));
    const bool is_functional = holds == ListedNames::Functionals;
    const InputSchema& schema = input_.schema();
    // Whole lists are made only for what is not listed.
    if (is_functional ? schema.is_known_functional(name) : schema.is_known_basis(name)) {
      return;
    }
    std::vector<std::string> likely = is_functional ? likely_functionals(name, context_)
                                                    : likely_basis_sets(name, context_, options_);
    const bool can_be = is_functional ? can_be_functional(name) : can_be_basis_set(name);
    if (!likely.empty() || (is_alone && !can_be)) {
      report(range, record, holds, std::move(likely));
    }
  }

  void report(const TextRange& range, const RecordId& record, ListedNames holds,
              std::vector<std::string> likely) const {
    const bool is_functional = holds == ListedNames::Functionals;
    const std::string thing = is_functional ? "functional" : "basis set";
    const std::string name(input_.source().text_of(range));
    const std::string& module = module_of(input_.data(), record)->name;
    Diagnostic diagnostic = begin_diagnostic(
        {is_functional ? "names.unknown_functional" : "names.unknown_basis",
         "Unknown " + thing + " '" + core::unicode::abridged(name) + "' in $" + module + ".",
         {name, module},
         record},
        context_.paths);
    diagnostic.range = range;
    diagnostic.label = "not a " + thing + " that is listed";
    offer_names(diagnostic, std::move(likely), {thing, thing + "s"}, range, false);
    use_(diagnostic);
  }

  DiagnoseContext& context_;
  const ParsedInput& input_;
  const DiagnoseOptions& options_;
  const DiagnosticSink& use_;
};

}  // namespace

void find_module_names(DiagnoseContext& context, const DiagnoseOptions& options,
                       const DiagnosticSink& use) {
  if (options.unknown == UnknownNames::Ignore) {
    return;
  }
  const ModuleNameFinder finder(context, options, use);
  const std::vector<Module>& modules = context.input.data().modules;
  for (std::size_t i = 0; i < modules.size(); ++i) {
    for (std::size_t k = 0; k < modules[i].entries.size(); ++k) {
      const ModuleEntry& entry = modules[i].entries[k];
      const ListedNames holds = listed_names_of(modules[i].name, entry.name);
      if (holds != ListedNames::None) {
        finder.look_at(entry, RecordId::of_entry(i, k), holds);
      }
    }
  }
}

}  // namespace kelp::input::bdf
