// Reads the knowledge document, as leniently as a schema is read: what has an unknown key or the
// wrong type is passed over, so that an older library can read a newer document.

#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "knowledge/knowledge.hpp"
#include "knowledge/knowledge_keys.hpp"
#include "schema/normalize_key.hpp"
#include "schema/yaml_values.hpp"

namespace kelp::input::bdf {
namespace {

// Words for an enumeration whose first enumerator stands for none of them.
template <typename Enum, std::size_t N>
Enum enumerator_of(const std::array<std::string_view, N>& words, const std::string& word) {
  const auto found = std::find(words.begin(), words.end(), core::text::to_lower(word));
  return found == words.end() ? Enum{} : static_cast<Enum>(1 + std::distance(words.begin(), found));
}

class KnowledgeReader {
 public:
  explicit KnowledgeReader(std::size_t document_size) : budget_(document_size) {}

  std::shared_ptr<const Knowledge::Impl> read(const YAML::Node& root) {
    if (root.IsMap()) {
      const Fields fields(root, knowledge_keys, budget_);
      read_radii(fields["covalent_radii"]);
      read_basis_sets(fields["basis_sets"]);
      read_elsewhere(fields["elsewhere"]);
      for_each_name(fields["point_groups"], budget_,
                    [&](const std::string& name, const YAML::Node& node) {
                      impl_->point_groups.insert_or_assign(name, text_list(node, budget_));
                    });
      read_axial_groups(fields["axial_groups"]);
      read_functional_classes(fields["functional_classes"]);
      read_functional_uses(fields["functional_uses"]);
      impl_->solvents = text_list(fields["solvents"], budget_);
      read_modules(fields["modules"]);
    }
    return std::move(impl_);
  }

 private:
  void read_radii(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      if (const auto radius = core::number::parse_float(scalar_text(value))) {
        impl_->radii.insert_or_assign(name, *radius);
      }
    });
  }

  void read_basis_sets(const YAML::Node& node) {
    if (!node.IsSequence()) {
      return;
    }
    for (const auto& item : node) {
      budget_.pay_for(item);
      if (item.IsMap()) {
        read_basis_set(item);
      }
    }
  }

  void read_elsewhere(const YAML::Node& node) {
    if (node.IsMap()) {
      const Fields fields(node, elsewhere_keys, budget_);
      impl_->methods_elsewhere = text_list(fields["methods"], budget_);
      impl_->functionals_elsewhere = text_list(fields["functionals"], budget_);
      impl_->basis_sets_elsewhere = text_list(fields["basis_sets"], budget_);
    }
  }

  void read_basis_set(const YAML::Node& node) {
    const Fields fields(node, basis_set_keys, budget_);
    const auto elements = read_elements(scalar_text(fields["elements"]));
    if (!elements) {
      return;
    }
    BasisSet set;
    set.elements = *elements;
    const std::string kind = core::text::to_lower(scalar_text(fields["kind"]));
    set.is_ecp = kind == "ecp";
    set.is_auxiliary = kind == "auxiliary";
    set.all_electron =
        set.is_ecp ? read_elements(scalar_text(fields["all_electron"])).value_or(ElementSet())
                   : set.elements;
    set.core = enumerator_of<CoreSize>(core_names, scalar_text(fields["core"]));
    set.relativity = enumerator_of<Relativity>(relativity_names, scalar_text(fields["relativity"]));
    set.has_spin_orbit = scalar_text(fields["spin_orbit"]) == "true";
    set.has_finite_nucleus = scalar_text(fields["finite_nucleus"]) == "true";
    for (const std::string& name : text_list(fields["names"], budget_)) {
      set.name = name;
      impl_->basis_order.push_back(name);
      impl_->basis_sets.insert_or_assign(normalize_key(name), std::make_shared<BasisSet>(set));
    }
  }

  void read_axial_groups(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      if (value.IsMap()) {
        const Fields fields(value, axial_group_keys, budget_);
        impl_->axial_groups.insert_or_assign(
            name, Knowledge::Impl::Axial{text_list(fields["odd"], budget_),
                                         text_list(fields["even"], budget_)});
      }
    });
  }

  void read_functional_classes(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      for (const std::string& functional : text_list(value, budget_)) {
        budget_.pay_for_copy(name);
        impl_->functional_classes.insert_or_assign(normalize_key(functional), name);
      }
    });
  }

  void read_functional_uses(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      if (!value.IsMap()) {
        return;
      }
      const Fields fields(value, functional_use_keys, budget_);
      Knowledge::Impl::Uses uses;
      for (const bool can : {true, false}) {
        for (const std::string& functional : text_list(fields[can ? "can" : "cannot"], budget_)) {
          uses.functionals.insert_or_assign(normalize_key(functional), can);
        }
      }
      impl_->uses.insert_or_assign(name, std::move(uses));
    });
  }

  void read_modules(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      if (value.IsMap()) {
        const Fields fields(value, module_facts_keys, budget_);
        impl_->modules.insert_or_assign(name, ModuleFacts{text_list(fields["needs"], budget_),
                                                          text_list(fields["reads"], budget_),
                                                          text_list(fields["leaves"], budget_)});
      }
    });
  }

  ExpansionBudget budget_;
  std::shared_ptr<Knowledge::Impl> impl_ = std::make_shared<Knowledge::Impl>();
};

}  // namespace

std::optional<ElementSet> read_elements(std::string_view text) {
  ElementSet elements;
  while (!core::text::trim_view(text).empty()) {
    const std::string_view word = core::text::take_word(text);
    const std::size_t dash = word.find('-');
    const auto first = core::number::parse_integer(word.substr(0, dash));
    const auto last =
        dash == std::string_view::npos ? first : core::number::parse_integer(word.substr(dash + 1));
    if (!first || !last || *first < 1 || *last < *first ||
        *last >= static_cast<std::int64_t>(elements.size())) {
      return std::nullopt;
    }
    for (std::int64_t number = *first; number <= *last; ++number) {
      elements.set(static_cast<std::size_t>(number));
    }
  }
  return elements.any() ? std::optional<ElementSet>(elements) : std::nullopt;
}

std::shared_ptr<const Knowledge::Impl> read_knowledge(std::string_view text) {
  return KnowledgeReader(text.size()).read(YAML::Load(std::string(text)));
}

}  // namespace kelp::input::bdf
