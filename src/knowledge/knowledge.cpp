// Queries. Point groups whose axis can have any order are made from a row for odd and one for even
// orders; groups that the document lists by name come first.

#include "knowledge/knowledge.hpp"

#include <algorithm>
#include <exception>
#include <utility>

#include "kelp/core/fs.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "knowledge/knowledge_table.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view file_name = "bdf-knowledge.yaml";

// The order n of a group such as `C(4v)`, and the name of its family, `c(nv)`.
std::optional<std::pair<int, std::string>> family_of(std::string_view group) {
  const std::size_t open = group.find('(');
  if (open == std::string_view::npos) {
    return std::nullopt;
  }
  std::size_t end = open + 1;
  while (end < group.size() && group[end] >= '0' && group[end] <= '9') {
    ++end;
  }
  constexpr std::size_t most_digits = 3;
  const auto order = core::number::parse_integer(group.substr(open + 1, end - open - 1));
  if (end - open > most_digits || !order || *order < 1) {
    return std::nullopt;
  }
  std::string name(group.substr(0, open + 1));
  name += 'n';
  name += group.substr(end);
  return std::pair(static_cast<int>(*order), std::move(name));
}

// Writes "E*" out as E1 ... Ek.
std::vector<std::string> written_out(const std::vector<std::string>& row, int pairs) {
  std::vector<std::string> irreps;
  for (const std::string& name : row) {
    const std::size_t star = name.find('*');
    if (star == std::string::npos) {
      irreps.push_back(name);
      continue;
    }
    for (int i = 1; i <= pairs; ++i) {
      irreps.push_back(name.substr(0, star) + std::to_string(i) + name.substr(star + 1));
    }
  }
  return irreps;
}

// Groups of linear molecules run as groups with an axis of order 20.
std::string finite_group(std::string_view group) {
  const std::string name = normalize_key(group);
  if (name == "c(lin)") {
    return "c(20v)";
  }
  return name == "d(lin)" ? "d(20h)" : name;
}

std::string knowledge_path() {
  constexpr int parents = 6;
  const std::string schema = resolve_schema_path({});
  const std::size_t name = schema.find_last_of("/\\");
  if (name != std::string::npos) {
    std::string beside = schema.substr(0, name + 1) + std::string(file_name);
    if (core::resource::is_regular_file_path(beside)) {
      return beside;
    }
  }
  return core::resource::locate_file("schemas/input/" + std::string(file_name), {}, {}, parents);
}

// As a schema: the document that the library was built with is there as a table.
Knowledge read_file(const std::string& path) {
  const BuiltInDocument built_in = built_in_knowledge();
  if (!built_in.stands_for(path)) {
    return Knowledge::from_yaml(core::fs::read_text_file(path));
  }
  auto impl = std::make_shared<Knowledge::Impl>();
  TableReader{built_in.table}(*impl);
  return Knowledge(std::move(impl));
}

Knowledge load_default() {
  const std::string path = knowledge_path();
  try {
    return path.empty() ? Knowledge() : read_file(path);
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace

Knowledge::Knowledge() : impl_(std::make_shared<const Impl>()) {}
Knowledge::Knowledge(std::shared_ptr<const Impl> impl) : impl_(std::move(impl)) {}

Knowledge Knowledge::from_yaml(std::string_view text) {
  return Knowledge(read_knowledge(text));
}

const BasisSet* Knowledge::basis_set(std::string_view name) const {
  const auto* const found = find_in(impl_->basis_sets, normalize_key(name));
  return found == nullptr ? nullptr : found->get();
}

bool Knowledge::knows_basis_sets() const {
  return !impl_->basis_sets.empty();
}

std::vector<std::string> Knowledge::basis_set_names() const {
  return impl_->basis_order;
}

const std::vector<std::string>& Knowledge::methods_elsewhere() const {
  return impl_->methods_elsewhere;
}

const std::vector<std::string>& Knowledge::functionals_elsewhere() const {
  return impl_->functionals_elsewhere;
}

const std::vector<std::string>& Knowledge::basis_sets_elsewhere() const {
  return impl_->basis_sets_elsewhere;
}

std::vector<std::string> Knowledge::irreps_of(std::string_view group) const {
  const std::string name = finite_group(group);
  if (const auto* const listed = find_in(impl_->point_groups, name)) {
    return *listed;
  }
  const auto family = family_of(name);
  if (!family) {
    return {};
  }
  const auto& [order, family_name] = *family;
  const Impl::Axial* const axial = find_in(impl_->axial_groups, family_name);
  if (axial == nullptr || order < 3) {
    return {};
  }
  const bool is_odd = order % 2 == 1;
  return written_out(is_odd ? axial->odd : axial->even, (order - (is_odd ? 1 : 2)) / 2);
}

std::optional<bool> Knowledge::is_abelian(std::string_view group) const {
  const std::vector<std::string> irreps = irreps_of(group);
  if (irreps.empty()) {
    return std::nullopt;
  }
  // Representations of more dimensions are called E, T, F, G, H.
  return std::all_of(irreps.begin(), irreps.end(), [](const std::string& irrep) {
    return irrep.starts_with('A') || irrep.starts_with('B');
  });
}

std::string_view Knowledge::functional_class(std::string_view functional) const {
  const std::string* const found = find_in(impl_->functional_classes, normalize_key(functional));
  return found == nullptr ? std::string_view() : *found;
}

std::optional<bool> Knowledge::can(std::string_view functional, std::string_view use) const {
  const Impl::Uses* const uses = find_in(impl_->uses, normalize_key(use));
  if (uses == nullptr) {
    return std::nullopt;
  }
  const bool* found = find_in(uses->functionals, normalize_key(functional));
  if (found == nullptr) {
    found = find_in(uses->functionals, functional_class(functional));
  }
  return found == nullptr ? std::nullopt : std::optional<bool>(*found);
}

std::vector<std::string> Knowledge::functionals_for(std::string_view use) const {
  std::vector<std::string> names;
  if (const Impl::Uses* const uses = find_in(impl_->uses, normalize_key(use))) {
    for (const auto& [functional, can_be_used] : uses->functionals) {
      if (can_be_used) {
        names.push_back(functional);
      }
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

const std::vector<std::string>& Knowledge::solvents() const {
  return impl_->solvents;
}

const ModuleFacts* Knowledge::module(std::string_view name) const {
  return find_in(impl_->modules, normalize_key(name));
}

std::optional<double> Knowledge::covalent_radius(std::string_view symbol) const {
  const double* found = find_in(impl_->radii, normalize_key(symbol));
  if (found == nullptr) {
    found = find_in(impl_->radii, "other");
  }
  return found == nullptr ? std::nullopt : std::optional<double>(*found);
}

const Knowledge& default_knowledge() {
  static const Knowledge knowledge = load_default();
  return knowledge;
}

}  // namespace kelp::input::bdf
