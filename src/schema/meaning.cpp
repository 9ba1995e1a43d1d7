// What names mean. The texts of both languages are kept as they are written; that a text which is
// missing in one of them is taken from the other is found out when somebody asks.

#include "kelp/input/bdf/meaning.hpp"

#include <cstddef>
#include <unordered_map>
#include <utility>

#include "schema/impl.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

using Impl = InputSchema::Impl;

constexpr std::size_t english = 0;

// A host may have made the number up.
std::size_t index_of(Language language) {
  return language == Language::Chinese ? 1 : english;
}

std::string summary_of(const Impl& impl, const Meaning* meaning, Language language) {
  if (meaning == nullptr) {
    return {};
  }
  const TextSlice slice = meaning->summary[index_of(language)];
  return std::string(impl.texts.view(slice.length > 0 ? slice : meaning->summary[english]));
}

template <typename Spec>
std::string summary_of_spec(const Impl& impl, const Spec* spec, Language language) {
  return summary_of(impl, spec == nullptr ? nullptr : &spec->meaning, language);
}

std::string summary_of_listed(const Impl& impl, const AliasMap& names,
                              const NameMap<Meaning>& meanings, std::string_view name,
                              Language language) {
  return summary_of(impl, find_in(meanings, canonical_name(names, name)), language);
}

/// Gathers the meanings of one entry's values, each value once.
class ValueMeanings {
 public:
  ValueMeanings(const Impl& impl, const Meaning& meaning, Language language) : impl_(impl) {
    for (const std::size_t i : {english, index_of(language)}) {
      for (const auto& [value, slice] : meaning.values[i]) {
        put(value, impl_.texts.view(slice));
      }
    }
  }

  // A closed list tells which values there are and in which order.
  std::vector<ValueMeaning> take(const std::vector<std::string>& allowed) {
    if (allowed.empty() || found_.empty()) {
      return std::move(found_);
    }
    std::vector<ValueMeaning> listed;
    for (const std::string& value : allowed) {
      const auto known = places_.find(value);
      listed.push_back({value, known == places_.end() ? "" : found_[known->second].meaning});
    }
    return listed;
  }

 private:
  void put(const std::string& value, std::string_view meaning) {
    if (meaning.empty()) {
      return;
    }
    const auto [known, is_new] = places_.emplace(value, found_.size());
    if (is_new) {
      found_.push_back({value, std::string(meaning)});
    } else {
      found_[known->second].meaning = meaning;
    }
  }

  const Impl& impl_;
  std::vector<ValueMeaning> found_;
  std::unordered_map<std::string, std::size_t> places_;
};

template <typename Spec>
std::vector<ValueMeaning> values_of_spec(const Impl& impl, const Spec* spec, Language language) {
  if (spec == nullptr) {
    return {};
  }
  return ValueMeanings(impl, spec->meaning, language).take(spec->allowed);
}

const EntrySpec* find_entry(const Impl& impl, std::string_view module, std::string_view entry) {
  return find_entry_spec(find_module_spec(impl, module), entry);
}

const BasisFamilySpec* find_family(const Impl& impl, std::string_view basis) {
  if (!impl.basis_sets.contains(basis)) {
    return nullptr;
  }
  const BasisFamilySpec* best = nullptr;
  std::size_t longest = 0;
  for (const BasisFamilySpec& family : impl.basis_families) {
    for (const std::string& prefix : family.prefixes) {
      if (basis.starts_with(prefix) && (best == nullptr || prefix.size() > longest)) {
        best = &family;
        longest = prefix.size();
      }
    }
  }
  return best;
}

}  // namespace

Language language_of_locale(std::string_view name) noexcept {
  const bool chinese =
      name.size() >= 2 && (name[0] == 'z' || name[0] == 'Z') && (name[1] == 'h' || name[1] == 'H');
  return chinese ? Language::Chinese : Language::English;
}

std::string module_summary(const InputSchema& schema, std::string_view module, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_spec(impl, find_module_spec(impl, module), language);
}

std::string entry_summary(const InputSchema& schema, std::string_view module,
                          std::string_view entry, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_spec(impl, find_entry(impl, module, entry), language);
}

std::string nested_entry_summary(const InputSchema& schema, std::string_view module,
                                 std::string_view entry, std::string_view child,
                                 Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_spec(impl, find_child_spec(find_entry(impl, module, entry), child), language);
}

std::string easy_keyword_summary(const InputSchema& schema, std::string_view keyword,
                                 Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_spec(impl, find_keyword_spec(impl, keyword), language);
}

std::string method_summary(const InputSchema& schema, std::string_view method, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_listed(impl, impl.methods, impl.method_meanings, method, language);
}

std::string functional_summary(const InputSchema& schema, std::string_view functional,
                               Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return summary_of_listed(impl, impl.functionals, impl.functional_meanings, functional, language);
}

std::string basis_summary(const InputSchema& schema, std::string_view basis, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  const std::string own =
      summary_of_listed(impl, impl.basis_sets, impl.basis_meanings, basis, language);
  return own.empty()
             ? summary_of_spec(impl, find_family(impl, canonical_name(impl.basis_sets, basis)),
                               language)
             : own;
}

std::optional<BasisFamily> basis_family(const InputSchema& schema, std::string_view basis,
                                        Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  const BasisFamilySpec* const family = find_family(impl, canonical_name(impl.basis_sets, basis));
  if (family == nullptr) {
    return std::nullopt;
  }
  return BasisFamily{family->name, summary_of(impl, &family->meaning, language), family->prefixes};
}

std::vector<ValueMeaning> entry_value_meanings(const InputSchema& schema, std::string_view module,
                                               std::string_view entry, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return values_of_spec(impl, find_entry(impl, module, entry), language);
}

std::vector<ValueMeaning> nested_entry_value_meanings(const InputSchema& schema,
                                                      std::string_view module,
                                                      std::string_view entry,
                                                      std::string_view child, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return values_of_spec(impl, find_child_spec(find_entry(impl, module, entry), child), language);
}

std::vector<ValueMeaning> easy_keyword_value_meanings(const InputSchema& schema,
                                                      std::string_view keyword, Language language) {
  const Impl& impl = SchemaAccess::impl(schema);
  return values_of_spec(impl, find_keyword_spec(impl, keyword), language);
}

}  // namespace kelp::input::bdf
