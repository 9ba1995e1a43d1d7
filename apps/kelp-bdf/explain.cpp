#include "explain.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "common_options.hpp"
#include "describe.hpp"
#include "finding_texts.hpp"
#include "kelp/core/text.hpp"
#include "output.hpp"
#include "similar.hpp"
#include "vocabulary.hpp"

namespace kelp::app {
namespace {

using input::bdf::EntrySchemaInfo;
using input::bdf::InputSchema;
using Names = std::vector<std::string>;

constexpr std::string_view header_prefix = "easy.";

std::string indented(std::string_view text, std::string_view indent = "  ") {
  std::string result;
  while (!text.empty()) {
    const std::string_view line = core::text::take_line(text);
    result += line.empty() ? "\n" : fmt::format("{}{}\n", indent, line);
  }
  return result;
}

std::string facts_text(const EntrySchemaInfo& info, const Names& aliases) {
  std::string text;
  for (const auto& [heading, fact] : facts(info, aliases)) {
    text += fmt::format("  {:<10}  {}\n", heading, fact);
  }
  return text.empty() ? text : "\n" + text;
}

std::string code_text(const FindingText& text) {
  std::string result = fmt::format("{}\n\n  {}\n\n  Cause: {}\n  Fix:   {}\n", text.code,
                                   text.meaning, text.cause, text.fix);
  if (!text.example.empty()) {
    result += "\n  Example:\n\n" + indented(text.example, "    ") + "\n  Without the finding:\n\n" +
              indented(text.fixed, "    ");
  }
  return result;
}

/// Finds all that a name means.
class Explainer {
 public:
  Explainer(std::string_view name, const InputSchema& schema) : name_(name), schema_(schema) {}

  std::string run() {
    if (const auto text = find_finding_text(name_)) {
      sections_.push_back(code_text(*text));
    }
    if (name_.find('.') != std::string_view::npos) {
      explain_path();
    } else {
      explain_bare_name();
    }
    explain_listed_name();
    return fmt::format("{}", fmt::join(sections_, "\n"));
  }

 private:
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
    explain_module(name_);
    explain_keyword(name_);
    for (const std::string& module : schema_.known_modules()) {
      explain_entry(module, name_);
      for (const std::string& entry : schema_.known_entries(module)) {
        explain_child(module, entry, name_);
      }
    }
  }

  void explain_module(std::string_view name) {
    if (!schema_.is_known_module(name)) {
      return;
    }
    const std::string module = schema_.canonical_module(name);
    const Names entries = schema_.known_entries(module);
    std::string text = fmt::format("{}: a module\n\n", module);
    text += indented(fmt::format("${}\n{}$end\n", module,
                                 entries.empty() ? "" : "  " + entries.front() + "\n  ...\n"),
                     "    ");
    text += fmt::format("\n  {:<10}  {}; 'kelp-bdf schema list {}' lists them\n", "entries",
                        entries.size(), module);
    text += fmt::format("  {:<10}  {}\n", "repeatable",
                        schema_.module_repeatable(module) ? "yes" : "no, once in an input");
    if (const Names aliases = schema_.module_aliases(module); !aliases.empty()) {
      text += fmt::format("  {:<10}  {}\n", "also spelt", fmt::join(aliases, ", "));
    }
    sections_.push_back(std::move(text));
  }

  void explain_keyword(std::string_view name) {
    const auto info = schema_.easy_keyword_info(name);
    if (!info) {
      return;
    }
    sections_.push_back(fmt::format("easy.{}: a word of the header ({})\n\n    {}\n{}", info->name,
                                    schema_.easy_token_category(name), header_example(*info),
                                    facts_text(*info, schema_.easy_keyword_aliases(info->name))));
  }

  void explain_entry(std::string_view module, std::string_view name) {
    const auto info = schema_.entry_info(module, name);
    if (!info) {
      return;
    }
    const std::string canonical = schema_.canonical_module(module);
    const Names children = schema_.known_nested_entries(canonical, info->name);
    add_entry(canonical + '.' + info->name, "an entry of $" + canonical, *info,
              schema_.entry_aliases(canonical, info->name), children);
  }

  void explain_child(std::string_view module, std::string_view entry, std::string_view name) {
    const auto parent = schema_.entry_info(module, entry);
    const auto info = schema_.nested_entry_info(module, entry, name);
    if (!parent || !info) {
      return;
    }
    const std::string path = fmt::format("{}.{}", schema_.canonical_module(module), parent->name);
    add_entry(path + '.' + info->name, "an entry of the block " + path, *info,
              schema_.nested_entry_aliases(module, entry, info->name), {});
  }

  void add_entry(const std::string& path, const std::string& place, const EntrySchemaInfo& info,
                 const Names& aliases, const Names& children) {
    std::string text = fmt::format("{}: {}\n\n  {}\n\n", path, place, kind_text(info.kind));
    for (const std::string& line : layout_example(info, children)) {
      text += "    " + line + '\n';
    }
    text += facts_text(info, aliases);
    if (!children.empty()) {
      text += fmt::format("  {:<10}  {}\n", "entries", fmt::join(children, ", "));
    }
    sections_.push_back(std::move(text));
  }

  void explain_listed_name() {
    const auto add = [this](bool known, const std::string& name, std::string_view thing,
                            std::string_view example) {
      if (known) {
        sections_.push_back(fmt::format("{}: {} of the header\n\n    {}\n", name, thing,
                                        fmt::format(fmt::runtime(example), name)));
      }
    };
    add(schema_.is_known_method(name_), schema_.canonical_method(name_), "a method",
        "{0}/basis or {0}/functional/basis");
    add(schema_.is_known_functional(name_), schema_.canonical_functional(name_), "a functional",
        "{0}/basis or method/{0}/basis");
    add(schema_.is_known_basis(name_), schema_.canonical_basis(name_), "a basis set",
        "method/{0} or functional/{0}");
  }

  std::string_view name_;
  const InputSchema& schema_;
  std::vector<std::string> sections_;
};

ExitStatus explain(const std::string& name, Session& session) {
  const InputSchema& schema = session.schema();
  if (const auto text = explanation(name, schema)) {
    print(*text);
    return ExitStatus::Success;
  }
  complain(with_similar(fmt::format("nothing is called '{}'", name), name,
                        explainable_names(name, schema)));
  return ExitStatus::Findings;
}

void append(Names& names, const Names& more, std::string_view prefix = {}) {
  for (const std::string& name : more) {
    names.push_back(std::string(prefix) + name);
  }
}

}  // namespace

std::optional<std::string> explanation(std::string_view name, const InputSchema& schema) {
  std::string text = Explainer(core::text::trim_view(name), schema).run();
  return text.empty() ? std::nullopt : std::optional<std::string>(std::move(text));
}

Names explainable_names(std::string_view like, const InputSchema& schema) {
  const bool is_path = like.find('.') != std::string_view::npos;
  Names names;
  for (const FindingText& text : finding_texts()) {
    names.emplace_back(is_path ? text.code : text.code.substr(text.code.find('.') + 1));
  }
  append(names, schema.known_easy_keywords(), is_path ? header_prefix : "");
  for (const std::string& module : schema.known_modules()) {
    append(names, entry_names(schema, module), is_path ? module + "." : "");
  }
  if (!is_path) {
    append(names, module_names(schema));
    append(names, schema.known_methods());
    append(names, schema.known_functionals());
    append(names, schema.known_basis_sets());
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

void add_explain(CLI::App& app, Session& session) {
  const auto name = std::make_shared<std::string>();
  CLI::App* const command =
      app.add_subcommand("explain", "Tell what a finding's code or a keyword means");
  command
      ->add_option("name", *name, "scf.charge, easy.charge, compass, charge, bdf.unknown_entry ...")
      ->required()
      ->type_name("KEYWORD|CODE");
  add_common_options(*command, session.options);
  command->callback(
      [name, &session] { session.run = [name, &session] { return explain(*name, session); }; });
}

}  // namespace kelp::app
