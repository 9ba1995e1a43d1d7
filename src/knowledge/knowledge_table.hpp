#pragma once

// What a table holds of each record of the knowledge.

#include "knowledge/knowledge.hpp"
#include "schema/table.hpp"

namespace kelp::input::bdf {

/// The knowledge that the library was built with.
BuiltInDocument built_in_knowledge() noexcept;

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<BasisSet> set) {
  auto& [name, elements, all_electron, is_ecp, is_auxiliary, has_spin_orbit, has_finite_nucleus,
         core, relativity] = set;
  archive(name, elements, all_electron, is_ecp, is_auxiliary, has_spin_orbit, has_finite_nucleus,
          core, relativity);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<ModuleFacts> facts) {
  auto& [needs, reads, leaves] = facts;
  archive(needs, reads, leaves);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<Knowledge::Impl::Uses> uses) {
  auto& [functionals] = uses;
  archive(functionals);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<Knowledge::Impl::Axial> axial) {
  auto& [odd, even] = axial;
  archive(odd, even);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<Knowledge::Impl> impl) {
  auto& [basis_order, basis_sets, methods_elsewhere, functionals_elsewhere, basis_sets_elsewhere,
         point_groups, axial_groups, functional_classes, uses, solvents, modules, radii] = impl;
  archive(basis_order, basis_sets, methods_elsewhere, functionals_elsewhere, basis_sets_elsewhere,
          point_groups, axial_groups, functional_classes, uses, solvents, modules, radii);
}

}  // namespace kelp::input::bdf
