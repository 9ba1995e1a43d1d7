#pragma once

#include <string>

namespace kelp::test {

/// A vocabulary for tests of findings, so that what they expect does not change with the one
/// shipped.
inline const std::string test_schema = R"(
schema_version: 1
easy_input:
  methods: {hf: {}}
  functionals: {b3lyp: {}}
  basis: {sto-3g: {}}
  control_keywords:
    charge: {kind: scalar, value_type: integer, arity: 1}
    spinmulti: {kind: scalar, value_type: integer, arity: 1}
modules:
  compass:
    repeatable: true
    entries:
      basis-block: {kind: terminated_block, terminator: end basis}
      atommass: {kind: counted_rows, count_line: true, row: {arity: 2, types: [integer, float]}}
  xuanyuan:
    repeatable: true
    entries:
      direct: {kind: flag}
  scf:
    repeatable: true
    entries:
      rhf: {kind: flag, conflicts: [uhf]}
      uhf: {kind: flag, conflicts: [rhf]}
      rks: {kind: flag}
      rhs: {kind: flag}
      charge: {kind: scalar, value_type: integer, arity: 1}
      spinmulti: {kind: scalar, value_type: integer, arity: 1}
      occupy: {kind: tuple, value_type: integer, min_arity: 1, aliases: [occupied]}
      alpha: {kind: tuple, value_type: integer, min_arity: 1, requires: [beta]}
      beta: {kind: tuple, value_type: integer, min_arity: 1, requires: [alpha]}
      guess: {kind: scalar, allowed: [atom, hcore, huckel, readmo, read]}
  autofrag:
    entries:
      charge: {kind: scalar, value_type: integer, arity: 1}
  bdfopt:
    repeatable: false
    entries:
      solver: {kind: scalar, value_type: integer, arity: 1}
      scan: {kind: multiline, requires: [{entry: solver, equals: 1}]}
      neb-block:
        kind: nested_block
        terminator: end neb
        entries:
          nimage: {kind: scalar, value_type: integer, arity: 1, min: 1}
          crude: {kind: flag}
)";

}  // namespace kelp::test
