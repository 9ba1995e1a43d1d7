// Knowledge is said of names that the vocabulary has; said of any other name it is never found. The
// names are those of the vocabulary of this process, and are not checked when there is none.

#include "schema_lint/knowledge_lint.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <span>
#include <string>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "knowledge/knowledge.hpp"
#include "knowledge/knowledge_keys.hpp"
#include "schema/yaml_values.hpp"
#include "schema_lint/forms.hpp"

namespace kelp::input::bdf::lint {
namespace {

constexpr std::array<KeyRule, 13> knowledge_rules = {{
    {"schema_version", Form::Integer},
    {"program", Form::Text},
    {"schema_kind", Form::Text},
    {"metadata", Form::Map},
    {"covalent_radii", Form::Map},
    {"basis_sets", Form::NameList},
    {"elsewhere", Form::Map},
    {"point_groups", Form::Map},
    {"axial_groups", Form::Map},
    {"functional_classes", Form::Map},
    {"functional_uses", Form::Map},
    {"solvents", Form::TextList},
    {"modules", Form::Map},
}};
constexpr std::array<KeyRule, 8> basis_set_rules = {{
    {"names", Form::TextList},
    {"elements", Form::Text},
    {"kind", Form::Text},
    {"all_electron", Form::Text},
    {"core", Form::Text},
    {"spin_orbit", Form::Bool},
    {"relativity", Form::Text},
    {"finite_nucleus", Form::Bool},
}};
constexpr std::array<KeyRule, 3> elsewhere_rules = {{
    {"methods", Form::TextList},
    {"functionals", Form::TextList},
    {"basis_sets", Form::TextList},
}};
constexpr std::array<KeyRule, 2> axial_group_rules = {{
    {"odd", Form::TextList},
    {"even", Form::TextList},
}};
constexpr std::array<KeyRule, 2> functional_use_rules = {{
    {"can", Form::TextList},
    {"cannot", Form::TextList},
}};
constexpr std::array<KeyRule, 3> module_facts_rules = {{
    {"needs", Form::TextList},
    {"reads", Form::TextList},
    {"leaves", Form::TextList},
}};

static_assert(knowledge_rules.size() == knowledge_keys.size() + 1 &&
                  basis_set_rules.size() == basis_set_keys.size() &&
                  elsewhere_rules.size() == elsewhere_keys.size() &&
                  axial_group_rules.size() == axial_group_keys.size() &&
                  functional_use_rules.size() == functional_use_keys.size() &&
                  module_facts_rules.size() == module_facts_keys.size(),
              "the linter must know the keys that the reader reads");

// The vocabulary that names are held against; an empty one when it cannot be read.
const InputSchema& vocabulary() {
  static const InputSchema none;
  try {
    return default_schema();
  } catch (const std::exception&) {
    return none;
  }
}

class KnowledgeLinter {
 public:
  KnowledgeLinter(Problems& problems, std::size_t document_size)
      : problems_(problems), budget_(document_size, visits_of_a_linter), form_(problems, budget_) {}

  void check(const YAML::Node& root) {
    form_.check_map(root, knowledge_rules, "a knowledge document");
    if (!root["schema_version"]) {
      problems_.error("schema.missing_version", root, "Knowledge needs a 'schema_version'.");
    }
    for_each(root["covalent_radii"], [&](const YAML::Node&, const YAML::Node& value) {
      form_.check(value, Form::Number, "a radius");
    });
    check_basis_sets(root["basis_sets"]);
    if (root["elsewhere"]) {
      form_.check_map(root["elsewhere"], elsewhere_rules, "names known elsewhere");
    }
    for_each(root["point_groups"], [&](const YAML::Node&, const YAML::Node& value) {
      form_.check(value, Form::TextList, "a point group");
    });
    for_each(root["axial_groups"], [&](const YAML::Node&, const YAML::Node& value) {
      form_.check_map(value, axial_group_rules, "an axial group");
    });
    check_functionals(root);
    check_modules(root["modules"]);
  }

 private:
  template <typename Use>
  void for_each(const YAML::Node& map, Use use) {
    if (!map || !map.IsMap()) {
      return;
    }
    for (const auto& item : map) {
      budget_.pay_for_record(item.first);
      budget_.pay_for(item.second);
      if (item.first.IsScalar()) {
        use(item.first, item.second);
      }
    }
  }

  template <typename Use>
  void for_each_text(const YAML::Node& list, Use use) {
    if (!list || !list.IsSequence()) {
      return;
    }
    for (const auto& item : list) {
      budget_.pay_for(item);
      if (item.IsScalar()) {
        use(item);
      }
    }
  }

  void check_basis_sets(const YAML::Node& node) {
    if (!node || !node.IsSequence()) {
      return;
    }
    for (const auto& item : node) {
      budget_.pay_for(item);
      if (form_.check_map(item, basis_set_rules, "a group of basis sets")) {
        check_basis_set(item);
      }
    }
  }

  void check_basis_set(const YAML::Node& node) {
    for (const char* const key : {"names", "elements"}) {
      if (!node[key]) {
        problems_.error("schema.unreadable", node,
                        "A group of basis sets needs '" + std::string(key) + "'.");
      }
    }
    for (const char* const key : {"elements", "all_electron"}) {
      if (node[key] && !read_elements(node[key].Scalar())) {
        problems_.error("schema.invalid_scalar", node[key],
                        quoted(key) + " must be atomic numbers and ranges of them, not " +
                            quoted(node[key].Scalar()) + ".");
      }
    }
    check_word(node["kind"], "kind", basis_kind_names);
    check_word(node["core"], "core", core_names);
    check_word(node["relativity"], "relativity", relativity_names);
    for_each_text(node["names"], [&](const YAML::Node& name) {
      check_name(name, "basis set", &InputSchema::is_known_basis, &InputSchema::canonical_basis);
    });
  }

  void check_word(const YAML::Node& node, std::string_view key,
                  std::span<const std::string_view> words) {
    if (node &&
        std::find(words.begin(), words.end(), core::text::to_lower(node.Scalar())) == words.end()) {
      problems_.unknown("schema.unknown_kind", node,
                        quoted(node.Scalar()) + " is no " + std::string(key) + ".",
                        {words.begin(), words.end()});
    }
  }

  // Of an alias nothing would ever be found: names are made canonical first.
  void check_name(const YAML::Node& node, std::string_view thing,
                  bool (InputSchema::*is_known)(std::string_view) const,
                  std::string (InputSchema::*canonical)(std::string_view) const) {
    const InputSchema& schema = vocabulary();
    if (schema.empty()) {
      return;
    }
    const std::string name = core::text::to_lower(core::text::trim_view(node.Scalar()));
    if (!(schema.*is_known)(name)) {
      problems_.unknown("schema.unknown_name", node,
                        "The vocabulary has no " + std::string(thing) + " " + quoted(name) + ".",
                        {});
    } else if ((schema.*canonical)(name) != name) {
      problems_.unknown("schema.unknown_name", node,
                        quoted(name) + " is another name of " + quoted((schema.*canonical)(name)) +
                            ", which is the one to give.",
                        {(schema.*canonical)(name)});
    }
  }

  void check_functionals(const YAML::Node& root) {
    const auto check_functional = [&](const YAML::Node& name) {
      check_name(name, "functional", &InputSchema::is_known_functional,
                 &InputSchema::canonical_functional);
    };
    Names classes;
    for_each(root["functional_classes"], [&](const YAML::Node& key, const YAML::Node& value) {
      classes.push_back(key.Scalar());
      form_.check(value, Form::TextList, "a class of functionals");
      for_each_text(value, check_functional);
    });
    for_each(root["functional_uses"], [&](const YAML::Node&, const YAML::Node& value) {
      if (!form_.check_map(value, functional_use_rules, "a use of functionals")) {
        return;
      }
      for (const char* const key : {"can", "cannot"}) {
        for_each_text(value[key], [&](const YAML::Node& name) {
          if (std::find(classes.begin(), classes.end(), name.Scalar()) == classes.end()) {
            check_functional(name);
          }
        });
      }
    });
  }

  void check_modules(const YAML::Node& node) {
    const auto check_module = [&](const YAML::Node& name) {
      check_name(name, "module", &InputSchema::is_known_module, &InputSchema::canonical_module);
    };
    for_each(node, [&](const YAML::Node& key, const YAML::Node& value) {
      check_module(key);
      if (form_.check_map(value, module_facts_rules, "a module")) {
        for_each_text(value["needs"], check_module);
      }
    });
  }

  Problems& problems_;
  ExpansionBudget budget_;
  FormCheck form_;
};

}  // namespace

bool is_knowledge(const YAML::Node& root) {
  return root.IsMap() && root["schema_kind"] && root["schema_kind"].IsScalar() &&
         root["schema_kind"].Scalar() == "knowledge";
}

void check_knowledge(const YAML::Node& root, std::size_t document_size, Problems& problems) {
  KnowledgeLinter(problems, document_size).check(root);
}

}  // namespace kelp::input::bdf::lint
