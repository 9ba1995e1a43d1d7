#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {

/// A vocabulary for the tests, so that what they expect does not change with the one shipped.
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

/// Runs `kelp-bdf check` on texts, each in a folder of its own.
class Check : public ::testing::Test {
 protected:
  Check() {
    program.write("../schema.yaml", test_schema);
    program.set_variable("KELP_BDF_INP_SCHEMA_YAML", "../schema.yaml");
  }

  /// Checks one text under the name a.inp.
  Outcome check(std::string_view text, std::vector<std::string> options = {}) {
    program.write("a.inp", text);
    return check_named(std::move(options), {"a.inp"});
  }

  /// Checks files that are there.
  Outcome check_named(std::vector<std::string> options, const std::vector<std::string>& names) {
    options.insert(options.begin(), "check");
    options.insert(options.end(), names.begin(), names.end());
    return program.run(std::move(options));
  }

  Program program;
};

/// An input without any mistake.
inline const std::string good_input =
    "$scf\n"
    "rhf\n"
    "charge\n"
    " 1\n"
    "$end\n";

/// An input with one warning: an unknown entry.
inline const std::string warning_input =
    "$scf\n"
    "ocupied\n"
    "$end\n";

/// An input with one error: a value that is no integer.
inline const std::string error_input =
    "$scf\n"
    "charge\n"
    " one\n"
    "$end\n";

}  // namespace kelp::test
