#include "kelp/input/bdf/schema.hpp"

#include <memory>
#include <utility>

#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

std::shared_ptr<const InputSchema::Impl> empty_impl() {
  return std::make_shared<const InputSchema::Impl>();
}

std::optional<EntrySchemaInfo> description(const EntrySpec* spec) {
  if (spec == nullptr) {
    return std::nullopt;
  }
  return static_cast<const EntrySchemaInfo&>(*spec);
}

EntryValueKind kind_of(const EntrySpec* spec) {
  return spec == nullptr ? EntryValueKind::Raw : spec->kind;
}

}  // namespace

InputSchema::InputSchema() : impl_(empty_impl()) {}
InputSchema::InputSchema(std::shared_ptr<const Impl> impl)
    : impl_(impl == nullptr ? empty_impl() : std::move(impl)) {}
InputSchema::InputSchema(const InputSchema& other) = default;
// A moved-from schema stays usable: moving shares, as copying does.
// NOLINTNEXTLINE(cert-oop11-cpp,performance-move-constructor-init)
InputSchema::InputSchema(InputSchema&& other) noexcept : impl_(other.impl_) {}
InputSchema& InputSchema::operator=(const InputSchema& other) = default;
InputSchema& InputSchema::operator=(InputSchema&& other) noexcept {
  impl_ = other.impl_;
  return *this;
}
InputSchema::~InputSchema() = default;

std::string InputSchema::canonical_method(std::string_view name) const {
  return canonical_name(impl_->methods, name);
}

bool InputSchema::is_known_method(std::string_view name) const {
  return impl_->methods.contains(bare_key(require_text(name)));
}

std::string InputSchema::canonical_functional(std::string_view name) const {
  return canonical_name(impl_->functionals, name);
}

bool InputSchema::is_known_functional(std::string_view name) const {
  return impl_->functionals.contains(bare_key(require_text(name)));
}

std::string InputSchema::canonical_basis(std::string_view name) const {
  return canonical_name(impl_->basis_sets, name);
}

bool InputSchema::is_known_basis(std::string_view name) const {
  return impl_->basis_sets.contains(bare_key(require_text(name)));
}

std::string InputSchema::canonical_easy_key(std::string_view name) const {
  return canonical_name(impl_->control_keyword_aliases, name);
}

std::string InputSchema::canonical_module(std::string_view name) const {
  const std::string* const canonical = find_known_module(*impl_, name).canonical;
  return canonical == nullptr ? normalize_key(name) : *canonical;
}

bool InputSchema::is_known_module(std::string_view name) const {
  return find_known_module(*impl_, name).canonical != nullptr;
}

bool InputSchema::module_repeatable(std::string_view name) const {
  const ModuleSpec* const spec = find_module_spec(*impl_, name);
  return spec != nullptr && spec->repeatable;
}

std::string InputSchema::canonical_entry(std::string_view module, std::string_view entry) const {
  return canonical_entry_name(find_module_spec(*impl_, module), entry);
}

bool InputSchema::is_known_entry(std::string_view module, std::string_view entry) const {
  return find_entry_spec(find_module_spec(*impl_, module), entry) != nullptr;
}

EntryValueKind InputSchema::entry_value_kind(std::string_view module,
                                             std::string_view entry) const {
  return kind_of(find_entry_spec(find_module_spec(*impl_, module), entry));
}

std::string InputSchema::entry_terminator(std::string_view module, std::string_view entry) const {
  const EntrySpec* const spec = find_entry_spec(find_module_spec(*impl_, module), entry);
  return spec == nullptr ? std::string() : spec->terminator;
}

std::optional<EntrySchemaInfo> InputSchema::entry_info(std::string_view module,
                                                       std::string_view entry) const {
  return description(find_entry_spec(find_module_spec(*impl_, module), entry));
}

std::string InputSchema::canonical_nested_entry(std::string_view module, std::string_view entry,
                                                std::string_view child) const {
  return canonical_child_name(find_entry_spec(find_module_spec(*impl_, module), entry), child);
}

bool InputSchema::is_known_nested_entry(std::string_view module, std::string_view entry,
                                        std::string_view child) const {
  const EntrySpec* const parent = find_entry_spec(find_module_spec(*impl_, module), entry);
  return find_child_spec(parent, child) != nullptr;
}

EntryValueKind InputSchema::nested_entry_value_kind(std::string_view module, std::string_view entry,
                                                    std::string_view child) const {
  const EntrySpec* const parent = find_entry_spec(find_module_spec(*impl_, module), entry);
  return kind_of(find_child_spec(parent, child));
}

std::optional<EntrySchemaInfo> InputSchema::nested_entry_info(std::string_view module,
                                                              std::string_view entry,
                                                              std::string_view child) const {
  const EntrySpec* const parent = find_entry_spec(find_module_spec(*impl_, module), entry);
  return description(find_child_spec(parent, child));
}

bool InputSchema::empty() const {
  return impl_->methods.empty() && impl_->functionals.empty() && impl_->control_keywords.empty() &&
         impl_->modules.empty();
}

const SchemaMetadata& InputSchema::metadata() const {
  return impl_->metadata;
}

}  // namespace kelp::input::bdf
