#include <string>

#include "schema/entry_reader.hpp"
#include "schema/normalize_key.hpp"
#include "schema_lint/acceptance.hpp"
#include "schema_lint/description.hpp"

namespace kelp::input::bdf::lint {
namespace {

/// Checks what one entry needs and excludes.
class RelationCheck {
 public:
  RelationCheck(const NamedItem& item, const NameTable& siblings, Problems& problems,
                ExpansionBudget& budget)
      : item_(item), siblings_(siblings), problems_(problems), budget_(budget) {}

  void run() {
    for_each(item_.value["requires"], [this](const YAML::Node& node) { check_requirement(node); });
    for_each(item_.value["conflicts"], [this](const YAML::Node& node) {
      if (node.IsScalar()) {
        find(node, "conflict with");
      }
    });
  }

 private:
  template <typename Use>
  void for_each(const YAML::Node& node, Use use) {
    if (node && node.IsScalar()) {
      use(node);
    } else if (node && node.IsSequence()) {
      for (const auto& item : node) {
        budget_.pay_for(item);
        use(item);
      }
    }
  }

  void check_requirement(const YAML::Node& node) {
    if (node.IsScalar()) {
      find(node, "require");
      return;
    }
    if (!node.IsMap() || !node["entry"] || !node["entry"].IsScalar()) {
      return;
    }
    const NamedItem* const other = find(node["entry"], "require");
    if (other != nullptr && node["equals"] && node["equals"].IsScalar()) {
      check_value(*other, node["equals"]);
    }
  }

  const NamedItem* find(const YAML::Node& node, std::string_view verb) {
    const std::string name = normalize_key(node.Scalar());
    const NamedItem* const other = siblings_.find(name);
    if (other == nullptr) {
      problems_.unknown("schema.unknown_reference", node,
                        quoted(item_.name) + " cannot " + std::string(verb) + " " + quoted(name) +
                            ": there is no such entry beside it.",
                        siblings_.names());
    } else if (other->name == item_.name) {
      problems_.error("schema.self_reference", node,
                      quoted(item_.name) + " cannot " + std::string(verb) + " itself.");
      return nullptr;
    }
    return other;
  }

  void check_value(const NamedItem& other, const YAML::Node& equals) {
    if (!other.value.IsMap()) {
      return;
    }
    EntrySchemaInfo info;
    try {
      read_description(other.value, info, budget_);
    } catch (const YAML::Exception&) {
      return;  // reported where it stands
    }
    const std::string value = normalize_key(equals.Scalar());
    const bool has_value = info.kind == EntryValueKind::Scalar ||
                           info.kind == EntryValueKind::Tuple ||
                           info.kind == EntryValueKind::MultiLine;
    if (has_value && !accepts(info, value)) {
      problems_.error("schema.impossible_requirement", equals,
                      quoted(other.name) + " never has the value " + quoted(value) + ".");
    } else if (info.kind == EntryValueKind::Flag) {
      problems_.error("schema.impossible_requirement", equals,
                      quoted(other.name) + " is a flag and has no value.");
    }
  }

  const NamedItem& item_;
  const NameTable& siblings_;
  Problems& problems_;
  ExpansionBudget& budget_;
};

}  // namespace

void check_relations(const NamedItem& item, Described described, const NameTable& siblings,
                     Problems& problems, ExpansionBudget& budget) {
  if (described != Described::Keyword && item.value.IsMap()) {
    RelationCheck(item, siblings, problems, budget).run();
  }
}

}  // namespace kelp::input::bdf::lint
