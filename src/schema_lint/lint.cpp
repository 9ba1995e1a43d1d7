// The linter walks the YAML itself, not what was read from it: what the reader passes over is what
// an author wants to hear of. Each node is looked at once, however many aliases lead to it, and
// what a node costs is paid for as when reading, so that a document that would expand beyond all
// measure is a problem of its own.

#include "kelp/input/bdf/schema_lint.hpp"

#include <yaml-cpp/yaml.h>

#include <array>
#include <exception>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "schema/document_keys.hpp"
#include "schema/normalize_key.hpp"
#include "schema/yaml_reader.hpp"
#include "schema/yaml_values.hpp"
#include "schema_lint/description.hpp"
#include "schema_lint/forms.hpp"
#include "schema_lint/knowledge_lint.hpp"
#include "schema_lint/meanings.hpp"
#include "schema_lint/names.hpp"
#include "schema_lint/problems.hpp"

namespace kelp::input::bdf {
namespace lint {
namespace {

constexpr std::array<KeyRule, 8> document_rules = {{
    {"schema_version", Form::Integer},
    {"program", Form::Text},
    {"schema_kind", Form::Text},
    {"metadata", Form::Map},
    {"easy_input", Form::Map},
    {"methods", Form::NameList},
    {"easy_keywords", Form::Map},
    {"modules", Form::Map},
}};
constexpr std::array<KeyRule, 5> metadata_rules = {{
    {"bdf_version", Form::Text},
    {"manual_source", Form::Text},
    {"manual_revision", Form::Text},
    {"generated_at", Form::Text},
    {"summaries", Form::Text},
}};
constexpr std::array<KeyRule, 5> easy_input_rules = {{
    {"methods", Form::NameList},
    {"methods_without_functional", Form::TextList},
    {"functionals", Form::NameList},
    {"basis", Form::NameList},
    {"control_keywords", Form::Map},
}};
constexpr std::array<KeyRule, 3> basis_rules = {{
    {"known", Form::NameList},
    {"extensible", Form::Bool},
    {"families", Form::Map},
}};
constexpr std::array<KeyRule, 5> module_rules = {{
    {"repeatable", Form::Bool},
    {"aliases", Form::TextList},
    {"entries", Form::Map},
    {"summary", Form::Text},
    {"summary_zh", Form::Text},
}};
constexpr std::array<KeyRule, 3> name_rules = {{
    {"aliases", Form::TextList},
    {"summary", Form::Text},
    {"summary_zh", Form::Text},
}};

static_assert(document_rules.size() == document_keys.size() + 1 &&
                  metadata_rules.size() == metadata_keys.size() &&
                  easy_input_rules.size() == easy_input_keys.size() &&
                  basis_rules.size() == basis_keys.size() &&
                  module_rules.size() == module_keys.size() &&
                  name_rules.size() == listed_name_keys.size(),
              "the linter must know the keys that the reader reads");

constexpr std::string_view basis_set = "a basis set";

/// Walks one document.
class Linter {
 public:
  Linter(Problems& problems, std::size_t document_size)
      : problems_(problems),
        budget_(document_size, visits_of_a_linter),
        form_(problems, budget_),
        meanings_(problems, budget_) {}

  void check_document(const YAML::Node& root) {
    if (!root.IsMap()) {
      problems_.error("schema.wrong_type", root,
                      "A schema must be a map, not " + std::string(node_text(root)) + ".");
      return;
    }
    form_.check_map(root, document_rules, "a schema");
    if (!root["schema_version"]) {
      problems_.error("schema.missing_version", root, "A schema needs a 'schema_version'.");
    }
    if (is_map(root["metadata"])) {
      form_.check_map(root["metadata"], metadata_rules, "'metadata'");
      meanings_.check_metadata(root["metadata"]);
    }
    if (is_map(root["easy_input"])) {
      check_easy_input(root);
    } else {
      check_names(root["methods"], "a method");
      check_keywords(root["easy_keywords"]);
    }
    check_modules(root["modules"]);
  }

 private:
  static bool is_map(const YAML::Node& node) { return node && node.IsMap(); }

  // Two nodes of one kind never begin at the same byte.
  bool is_first_visit(const YAML::Node& node) {
    return visited_.insert({node.Mark().pos, node.Type()}).second;
  }

  bool is_empty_or_first_visit(const YAML::Node& node) {
    return node.IsNull() || is_first_visit(node);
  }

  void check_easy_input(const YAML::Node& root) {
    for (const char* const key : {"methods", "easy_keywords"}) {
      if (root[key]) {
        problems_.warning("schema.no_effect", root[key],
                          "'" + std::string(key) + "' is not read beside 'easy_input'.");
      }
    }
    const YAML::Node easy = root["easy_input"];
    form_.check_map(easy, easy_input_rules, "'easy_input'");
    check_names(easy["methods"], "a method", easy["methods_without_functional"]);
    check_names(easy["functionals"], "a functional");
    check_basis(easy["basis"]);
    check_keywords(easy["control_keywords"]);
  }

  void check_basis(const YAML::Node& node) {
    if (is_map(node)) {
      form_.check_map(node, basis_rules, "'basis'");
      meanings_.check_families(node["families"]);
      check_names(node["known"], basis_set);
    } else {
      check_names(node, basis_set);
    }
  }

  // `some` lists a part of the names once more.
  void check_names(const YAML::Node& node, std::string_view thing, const YAML::Node& some = {}) {
    if (!node || (!node.IsMap() && !node.IsSequence()) || !is_first_visit(node)) {
      return;
    }
    const NameTable table(node, thing, problems_, budget_);
    for (const NamedItem& item : table.items()) {
      if (!is_empty_or_first_visit(item.value)) {
        continue;
      }
      if (!item.value.IsNull()) {
        form_.check_map(item.value, name_rules, thing);
      }
      if (thing == basis_set) {
        meanings_.check_basis_set(item);
      } else {
        meanings_.check_summary(item);
      }
    }
    for (const YAML::Node& name : some) {
      if (name.IsScalar() && table.find(normalize_key(name.Scalar())) == nullptr) {
        problems_.unknown("schema.unknown_reference", name,
                          "'" + name.Scalar() + "' is not " + std::string(thing) + ".",
                          table.names());
      }
    }
  }

  void check_keywords(const YAML::Node& node) {
    if (is_map(node) && is_first_visit(node)) {
      check_entries(node, Described::Keyword, "an easy keyword", 0);
    }
  }

  void check_modules(const YAML::Node& node) {
    if (!is_map(node)) {
      return;
    }
    const NameTable table(node, "a module", problems_, budget_);
    for (const NamedItem& item : table.items()) {
      if (!is_empty_or_first_visit(item.value)) {
        continue;
      }
      meanings_.check_summary(item);
      if (item.value.IsNull()) {
        continue;
      }
      form_.check_map(item.value, module_rules, "a module");
      const YAML::Node entries = item.value.IsMap() ? item.value["entries"] : YAML::Node();
      if (is_map(entries) && is_first_visit(entries)) {
        check_entries(entries, Described::Entry, "an entry", 0);
      }
    }
  }

  void check_entries(const YAML::Node& node, Described described, std::string_view thing,
                     int depth) {
    // What has no entry of its own to end the walk is a document of aliases; reading stops, too.
    constexpr int max_depth = 256;
    if (depth > max_depth) {
      return;
    }
    const NameTable table(node, thing, problems_, budget_);
    for (const NamedItem& item : table.items()) {
      if (!is_empty_or_first_visit(item.value)) {
        continue;
      }
      meanings_.check_summary(item);
      if (!item.value.IsNull()) {
        check_entry(item, described, table, depth);
      }
    }
  }

  void check_entry(const NamedItem& item, Described described, const NameTable& siblings,
                   int depth) {
    if (check_description_form(item.value, problems_, budget_)) {
      check_description(item.value, described, problems_, budget_);
      meanings_.check_values(item.value);
    }
    check_words(item.value, described, problems_, budget_);
    if (!item.value.IsMap()) {
      return;
    }
    check_relations(item, described, siblings, problems_, budget_);
    const YAML::Node entries = item.value["entries"];
    if (described != Described::Keyword && is_map(entries) && is_first_visit(entries)) {
      check_entries(entries, Described::NestedEntry, "a nested entry", depth + 1);
    }
  }

  Problems& problems_;
  ExpansionBudget budget_;
  FormCheck form_;
  MeaningCheck meanings_;
  std::set<std::pair<int, YAML::NodeType::value>> visited_;
};

void check_documents(const std::vector<YAML::Node>& documents, std::size_t size,
                     Problems& problems) {
  const YAML::Node root = documents.empty() ? YAML::Node() : documents.front();
  if (is_knowledge(root)) {
    check_knowledge(root, size, problems);
  } else {
    Linter(problems, size).check_document(root);
  }
  if (documents.size() > 1) {
    problems.error("schema.second_document", documents[1],
                   "Only the first document of a file is read.");
  }
}

// Whatever was overlooked: without an error, the document must be one that can be read.
void try_to_read(const std::string& yaml, Problems& problems) {
  if (problems.has_errors()) {
    return;
  }
  try {
    read_schema(yaml);
  } catch (const std::exception& error) {
    problems.error_at("schema.unreadable", YAML::Mark::null_mark(),
                      std::string("The schema cannot be read: ") + error.what() + ".");
  }
}

}  // namespace
}  // namespace lint

std::vector<SchemaProblem> lint_schema(std::string_view yaml) {
  const std::string text(yaml);
  lint::Problems problems(text);
  try {
    lint::check_documents(YAML::LoadAll(text), text.size(), problems);
    lint::try_to_read(text, problems);
  } catch (const YAML::ParserException& error) {
    problems.error_at("schema.malformed_yaml", error.mark, "This is no YAML: " + error.msg + ".");
  } catch (const std::runtime_error& error) {
    problems.error_at("schema.unreadable", YAML::Mark::null_mark(),
                      std::string("The schema cannot be read: ") + error.what() + ".");
  }
  return problems.take();
}

}  // namespace kelp::input::bdf
