// A name may mean several things: a code without its prefix, a module, an entry of this module and
// of that, a word of the header. All that bear the name are asked for in turn, and each that there
// is makes an explanation.

#include "kelp/input/bdf/explain.hpp"

#include <algorithm>
#include <utility>

#include "explain/layout.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view header_prefix = "easy.";

/// Collects what is to be known beside the layout; empty texts say nothing.
class Facts {
 public:
  void add(std::string heading, std::string text, FactKind kind = FactKind::Plain) {
    if (!text.empty()) {
      facts_.push_back({std::move(heading), std::move(text), kind});
    }
  }

  void add_names(std::string heading, const Names& names) {
    add(std::move(heading), core::text::join(names, ", "));
  }

  // Values of a closed list that are shown with their meanings need not be named once more.
  void add_description(const EntrySchemaInfo& info, const Names& aliases, bool values_shown) {
    add("type", value_type_text(info));
    add("values", values_shown && !info.allowed.empty() ? "" : expected_value(info));
    add("default", info.default_value.value_or(""));
    add("ends with", info.terminator);
    Names needed;
    for (const ValueRequirement& other : info.required) {
      needed.push_back(other.entry + (other.equals ? " = " + *other.equals : ""));
    }
    add_names("needs", needed);
    add_names("not with", info.conflicts);
    add_names("also spelt", aliases);
    add("repeatable", info.repeatable ? "yes" : "");
  }

  std::vector<ExplanationFact> take() { return std::move(facts_); }

 private:
  std::vector<ExplanationFact> facts_;
};

/// Finds all that a name means.
class Explainer {
 public:
  Explainer(std::string_view name, const InputSchema& schema, Language language)
      : name_(name), schema_(schema), language_(language) {}

  std::vector<Explanation> run() {
    explain_code();
    if (name_.find('.') != std::string_view::npos) {
      explain_path();
    } else {
      explain_bare_name();
    }
    explain_listed_names();
    return std::move(found_);
  }

 private:
  Explanation& add(ExplainedThing thing, std::string name, const std::string& what) {
    Explanation& made = found_.emplace_back();
    made.thing = thing;
    made.title = what.empty() ? name : name + ": " + what;
    made.name = std::move(name);
    return made;
  }

  void explain_code() {
    if (const FindingText* const text = find_finding_text(name_)) {
      Explanation& made = add(ExplainedThing::Finding, std::string(text->code), "");
      made.summary = text->meaning;
      made.facts.push_back({"severity", std::string(to_string(text->severity))});
      made.finding = text;
    }
  }

  void explain_path() {
    if (core::text::to_lower(name_).starts_with(header_prefix)) {
      explain_keyword(name_.substr(header_prefix.size()));
      return;
    }
    const std::size_t dot = name_.find('.');
    // In a path, scf#2 is the second scf module; all of one name are alike here.
    const std::string_view module = name_.substr(0, std::min(dot, name_.find('#')));
    const std::string_view entry = name_.substr(dot + 1);
    const std::size_t second = entry.find('.');
    if (second == std::string_view::npos) {
      explain_entry(module, entry);
    } else {
      explain_child(module, entry.substr(0, second), entry.substr(second + 1));
    }
  }

  void explain_bare_name() {
    explain_module();
    explain_keyword(name_);
    for (const std::string& module : schema_.known_modules()) {
      explain_entry(module, name_);
      for (const std::string& entry : schema_.known_entries(module)) {
        explain_child(module, entry, name_);
      }
    }
  }

  void explain_module() {
    if (!schema_.is_known_module(name_)) {
      return;
    }
    const std::string module = schema_.canonical_module(name_);
    const Names entries = schema_.known_entries(module);
    Explanation& made = add(ExplainedThing::Module, module, "a module");
    made.summary = module_summary(schema_, module, language_);
    made.layout = {"$" + module, "$end"};
    if (!entries.empty()) {
      made.layout.insert(made.layout.begin() + 1, {"  " + entries.front(), "  ..."});
    }
    Facts facts;
    facts.add("entries", std::to_string(entries.size()), FactKind::EntryCount);
    facts.add("repeatable", schema_.module_repeatable(module) ? "yes" : "no, once in an input");
    facts.add_names("also spelt", schema_.module_aliases(module));
    made.facts = facts.take();
  }

  void explain_keyword(std::string_view name) {
    const auto info = schema_.easy_keyword_info(name);
    if (!info) {
      return;
    }
    Explanation& made = add(ExplainedThing::EasyKeyword, std::string(header_prefix) + info->name,
                            "a word of the header (" + schema_.easy_token_category(name) + ")");
    made.summary = easy_keyword_summary(schema_, name, language_);
    made.values = easy_keyword_value_meanings(schema_, name, language_);
    made.layout = {header_example(*info)};
    Facts facts;
    facts.add_description(*info, schema_.easy_keyword_aliases(info->name), !made.values.empty());
    made.facts = facts.take();
  }

  void explain_entry(std::string_view module, std::string_view name) {
    const auto info = schema_.entry_info(module, name);
    if (!info) {
      return;
    }
    const std::string canonical = schema_.canonical_module(module);
    Explanation& made =
        add(ExplainedThing::Entry, canonical + "." + info->name, "an entry of $" + canonical);
    made.summary = entry_summary(schema_, module, name, language_);
    made.values = entry_value_meanings(schema_, module, name, language_);
    describe(made, *info, schema_.entry_aliases(canonical, info->name),
             schema_.known_nested_entries(canonical, info->name));
  }

  void explain_child(std::string_view module, std::string_view entry, std::string_view name) {
    const auto parent = schema_.entry_info(module, entry);
    const auto info = schema_.nested_entry_info(module, entry, name);
    if (!parent || !info) {
      return;
    }
    const std::string path = schema_.canonical_module(module) + "." + parent->name;
    Explanation& made =
        add(ExplainedThing::NestedEntry, path + "." + info->name, "an entry of the block " + path);
    made.summary = nested_entry_summary(schema_, module, entry, name, language_);
    made.values = nested_entry_value_meanings(schema_, module, entry, name, language_);
    describe(made, *info, schema_.nested_entry_aliases(module, entry, info->name), {});
  }

  static void describe(Explanation& made, const EntrySchemaInfo& info, const Names& aliases,
                       const Names& children) {
    made.writing = layout_sentence(info.kind);
    made.layout = layout_example(info, children);
    Facts facts;
    facts.add_description(info, aliases, !made.values.empty());
    facts.add_names("entries", children);
    made.facts = facts.take();
  }

  void explain_listed_names() {
    if (schema_.is_known_method(name_)) {
      const std::string name = schema_.canonical_method(name_);
      Explanation& made = add(ExplainedThing::Method, name, "a method of the header");
      made.summary = method_summary(schema_, name, language_);
      made.layout = method_layouts(name);
    }
    if (schema_.is_known_functional(name_)) {
      const std::string name = schema_.canonical_functional(name_);
      Explanation& made = add(ExplainedThing::Functional, name, "a functional of the header");
      made.summary = functional_summary(schema_, name, language_);
      made.layout = {name + "/basis", "method/" + name + "/basis"};
    }
    if (schema_.is_known_basis(name_)) {
      explain_basis(schema_.canonical_basis(name_));
    }
  }

  std::vector<std::string> method_layouts(const std::string& method) const {
    const std::string alone = method + "/basis";
    const std::string with_functional = method + "/functional/basis";
    switch (functional_use(SchemaAccess::impl(schema_), method)) {
      case FunctionalUse::None:
        return {alone};
      case FunctionalUse::Needed:
        return {with_functional};
      case FunctionalUse::Untold:
        break;
    }
    return {alone, with_functional};
  }

  void explain_basis(const std::string& name) {
    Explanation& made = add(ExplainedThing::BasisSet, name, "a basis set of the header");
    made.summary = basis_summary(schema_, name, language_);
    made.layout = {"method/" + name, "functional/" + name};
    Facts facts;
    if (const auto family = basis_family(schema_, name, language_)) {
      facts.add("family", family->name);
    }
    made.facts = facts.take();
  }

  std::string_view name_;
  const InputSchema& schema_;
  Language language_;
  std::vector<Explanation> found_;
};

void append(Names& names, const Names& more, const std::string& prefix = {}) {
  for (const std::string& name : more) {
    names.push_back(prefix + name);
  }
}

Names explained_paths(const InputSchema& schema) {
  Names names;
  for (const FindingText& text : finding_texts()) {
    names.emplace_back(text.code);
  }
  append(names, schema.known_easy_keywords(), std::string(header_prefix));
  const NameLists lists(schema);
  for (const std::string& module : schema.known_modules()) {
    append(names, lists.entries(module), module + ".");
  }
  return names;
}

Names explained_bare_names(const InputSchema& schema) {
  Names names;
  for (const FindingText& text : finding_texts()) {
    names.emplace_back(text.code.substr(text.code.find('.') + 1));
  }
  const NameLists lists(schema);
  append(names, lists.modules());
  for (const std::string& module : schema.known_modules()) {
    append(names, lists.entries(module));
  }
  append(names, schema.known_easy_keywords());
  append(names, schema.known_methods());
  append(names, schema.known_functionals());
  append(names, schema.known_basis_sets());
  // One name may be that of several things.
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace

std::vector<Explanation> explain(std::string_view name, const InputSchema& schema,
                                 Language language) {
  return Explainer(core::text::trim_view(name), schema, language).run();
}

Names similar_explained_names(std::string_view name, const InputSchema& schema) {
  const bool is_path = name.find('.') != std::string_view::npos;
  return similar_names(name, is_path ? explained_paths(schema) : explained_bare_names(schema));
}

}  // namespace kelp::input::bdf
