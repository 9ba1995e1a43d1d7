#pragma once

#include "support/schema.hpp"

namespace kelp::input::bdf {

/// A vocabulary with every kind of value. Its blocks have terminators, its nested blocks hold no
/// children that gather lines without a limit, and its aliases do not chain; what happens otherwise
/// is told by `rendering_exceptions_test.cpp`.
inline const InputSchema& vocabulary() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: {hf: {aliases: [hartree-fock]}, tddft: {}}
  functionals: {b3lyp: {aliases: [b3-lyp]}}
  basis: {known: {cc-pvdz: {aliases: [vdz]}}, extensible: true}
  control_keywords:
    charge: {aliases: [chg]}
    spinmulti: {}
    maxiter: {category: scf}
    direct: {kind: flag}
modules:
  compass:
    entries:
      title: {}
      basis: {aliases: [basisset]}
      geometry: {kind: terminated_block, terminator: End Geometry}
      skeleton: {kind: flag}
  scf:
    aliases: [hfscf]
    entries:
      charge: {aliases: [chg]}
      spinmulti: {}
      rhf: {kind: flag}
      occupied: {kind: tuple}
      guess: {kind: multiline}
      rows: {kind: counted_rows}
      kept: {kind: raw}
      text: {kind: terminated_block, terminator: EndText}
      grid:
        kind: nested_block
        terminator: endgrid
        entries:
          points: {aliases: [npoints]}
          fine: {kind: flag}
          atoms: {kind: terminated_block, terminator: endatoms}
  extra: {repeatable: true}
)");
  return schema;
}

}  // namespace kelp::input::bdf
