#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "support/program.hpp"
#include "support/test_schema.hpp"

namespace kelp::test {

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
