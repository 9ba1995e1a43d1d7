// Reads the schema document. The reader is lenient by design: whatever has the wrong node type or
// an unknown key is passed over, so that an older library can read a newer vocabulary. All items
// are taken in document order and every insertion is an assignment: the later of two names wins.

#include "schema/yaml_reader.hpp"

#include <yaml-cpp/yaml.h>

#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "schema/document_keys.hpp"
#include "schema/entry_reader.hpp"
#include "schema/normalize_key.hpp"
#include "schema/yaml_values.hpp"

namespace kelp::input::bdf {
namespace {

class SchemaReader {
 public:
  explicit SchemaReader(std::size_t document_size) : budget_(document_size) {
    impl_->texts.expect(document_size);
  }

  std::shared_ptr<const InputSchema::Impl> read(const YAML::Node& root) {
    impl_->metadata.schema_version = required_int(root["schema_version"]);
    const Fields fields(root, document_keys, budget_);
    impl_->metadata.program = scalar_text(fields["program"]);
    impl_->metadata.schema_kind = scalar_text(fields["schema_kind"]);
    read_metadata(fields["metadata"]);
    if (fields["easy_input"].IsMap()) {
      read_easy_input(fields["easy_input"]);
    } else {
      read_name_list(fields["methods"], impl_->methods, impl_->method_meanings);
      read_keywords(fields["easy_keywords"]);
    }
    read_modules(fields["modules"]);
    impl_->index_names();
    return std::move(impl_);
  }

 private:
  void add_aliases(AliasMap& map, const std::vector<std::string>& aliases,
                   const std::string& name) {
    for (const std::string& alias : aliases) {
      budget_.pay_for_copy(name);
      map.insert_or_assign(normalize_key(alias), name);
    }
  }

  void read_metadata(const YAML::Node& node) {
    if (!node.IsMap()) {
      return;
    }
    const Fields fields(node, metadata_keys, budget_);
    impl_->metadata.bdf_version = scalar_text(fields["bdf_version"]);
    impl_->metadata.manual_source = scalar_text(fields["manual_source"]);
    impl_->metadata.manual_revision = scalar_text(fields["manual_revision"]);
    impl_->metadata.generated_at = scalar_text(fields["generated_at"]);
  }

  void read_easy_input(const YAML::Node& node) {
    const Fields fields(node, easy_input_keys, budget_);
    read_name_list(fields["methods"], impl_->methods, impl_->method_meanings);
    read_name_list(fields["functionals"], impl_->functionals, impl_->functional_meanings);
    read_names(fields["methods_without_functional"], impl_->methods_without_functional);
    read_basis(fields["basis"]);
    read_keywords(fields["control_keywords"]);
  }

  void read_basis(const YAML::Node& node) {
    if (!node.IsMap()) {
      read_name_list(node, impl_->basis_sets, impl_->basis_meanings);
      return;
    }
    const Fields fields(node, basis_keys, budget_);
    read_name_list(fields["known"], impl_->basis_sets, impl_->basis_meanings);
    read_bool(fields["extensible"], impl_->basis_extensible);
    read_families(fields["families"]);
  }

  // The name of a family is for people to read; it stays as it is written.
  void read_families(const YAML::Node& node) {
    if (!node.IsMap()) {
      return;
    }
    for (const auto& item : node) {
      budget_.pay_for_record(item.first);
      budget_.pay_for(item.second);
      if (!item.first.IsScalar() || !item.second.IsMap()) {
        continue;
      }
      const Fields fields(item.second, family_keys, budget_);
      BasisFamilySpec family;
      family.name = item.first.Scalar();
      family.meaning = read_summary(fields, impl_->texts);
      for (const std::string& prefix : text_list(fields["prefixes"], budget_)) {
        family.prefixes.push_back(core::text::to_lower(prefix));
      }
      impl_->basis_families.push_back(std::move(family));
    }
  }

  void read_names(const YAML::Node& list, AliasMap& names) {
    for (const std::string& text : text_list(list, budget_)) {
      const std::string name = normalize_key(text);
      names.insert_or_assign(name, name);
    }
  }

  void read_name_list(const YAML::Node& node, AliasMap& names, NameMap<Meaning>& meanings) {
    if (node.IsSequence()) {
      read_names(node, names);
      return;
    }
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      names.insert_or_assign(name, name);
      if (value.IsMap()) {
        const Fields fields(value, listed_name_keys, budget_);
        add_aliases(names, text_list(fields["aliases"], budget_), name);
        const Meaning meaning = read_summary(fields, impl_->texts);
        if (meaning.has_summary()) {
          meanings.insert_or_assign(name, meaning);
        }
      }
    });
  }

  void read_keywords(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      ValueSpec spec;
      spec.name = name;
      EntryExtras extras =
          value.IsMap() ? read_description(value, spec, budget_, &impl_->texts) : EntryExtras();
      spec.meaning = std::move(extras.meaning);
      if (!extras.category.empty()) {
        spec.category = extras.category;
      }
      impl_->control_keywords.insert_or_assign(name, std::move(spec));
      impl_->control_keyword_aliases.insert_or_assign(name, name);
      add_aliases(impl_->control_keyword_aliases, extras.aliases, name);
    });
  }

  void read_modules(const YAML::Node& node) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      impl_->module_aliases.insert_or_assign(name, name);
      ModuleSpec module;
      module.name = name;
      if (value.IsMap()) {
        const Fields fields(value, module_keys, budget_);
        read_bool(fields["repeatable"], module.repeatable);
        module.meaning = read_summary(fields, impl_->texts);
        add_aliases(impl_->module_aliases, text_list(fields["aliases"], budget_), name);
        read_entries(fields["entries"], module);
      }
      module.index_names();
      impl_->modules.insert_or_assign(name, std::move(module));
    });
  }

  void read_entries(const YAML::Node& node, ModuleSpec& module) {
    for_each_name(node, budget_, [&](const std::string& name, const YAML::Node& value) {
      NamedEntry entry = read_entry(name, value, budget_, impl_->texts);
      module.entries.insert_or_assign(name, std::move(entry.spec));
      module.entry_aliases.insert_or_assign(name, name);
      add_aliases(module.entry_aliases, entry.aliases, name);
    });
  }

  ExpansionBudget budget_;
  std::shared_ptr<InputSchema::Impl> impl_ = std::make_shared<InputSchema::Impl>();
};

}  // namespace

std::shared_ptr<const InputSchema::Impl> read_schema(std::string yaml) {
  const std::size_t size = yaml.size();
  // The text goes first: to free so large a block makes malloc gather all small ones freed before,
  // which after the tree of nodes takes as long as reading them.
  const YAML::Node root = YAML::Load(std::exchange(yaml, {}));
  return SchemaReader(size).read(root);
}

}  // namespace kelp::input::bdf
