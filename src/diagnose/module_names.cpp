// Functionals and basis sets that stand among the values of entries.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
        look_at_words({range.begin + skipped, range.end}, record, holds);
      }
    }
  }

 private:
  void look_at_words(const TextRange& range, const RecordId& record, ListedNames holds) const {
    const std::string_view text = input_.source().text_of(range);
    const std::vector<std::string_view> words = words_of(text);
    if (words.size() > 1 && holds != ListedNames::Functionals) {
      const TextRange whole = input_.source().trimmed(range);
      std::vector<std::string> likely =
          basis_sets_with_other_marks(input_.source().text_of(whole), context_, options_);
      if (!likely.empty()) {
        report(whole, record, holds, std::move(likely));
        return;
      }
    }
    for (const std::string_view word : words) {
      const std::size_t begin = range.begin + static_cast<std::size_t>(word.data() - text.data());
      look_at_name(std::string(word), {begin, begin + word.size()}, record, holds);
    }
  }

  void look_at_name(const std::string& name, const TextRange& range, const RecordId& record,
                    ListedNames holds) const {
    const bool is_functional = holds == ListedNames::Functionals;
    const InputSchema& schema = input_.schema();
    // Whole lists are made only for what is not listed.
    if (is_functional ? schema.is_known_functional(name) : schema.is_known_basis(name)) {
      return;
    }
    std::vector<std::string> likely = is_functional ? likely_functionals(name, context_)
                                                    : likely_basis_sets(name, context_, options_);
    if (!likely.empty() || !(is_functional ? can_be_functional(name) : can_be_basis_set(name))) {
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
