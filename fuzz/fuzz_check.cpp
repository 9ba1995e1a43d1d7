// Checks any bytes as an input, with advice and all that hosts are told: findings and fixes lie in
// the text, safe fixes can be applied, and each path that the outline names leads to its record.

#include <algorithm>
#include <string>
#include <vector>

#include "checks.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace {

using namespace kelp::input::bdf;

void expect(bool condition, const char* otherwise) {
  if (!condition) {
    kelp::fuzz::expect_none({otherwise});
  }
}

void expect_inside(const std::string& text, const TextRange& range) {
  expect(range.begin <= range.end && range.end <= text.size(), "a range leaves the text");
}

void expect_applicable(const std::string& text, const Fix& fix) {
  std::size_t end = 0;
  for (const TextEdit& edit : fix.edits) {
    expect_inside(text, edit.range);
    expect(edit.range.begin >= end, "edits of a fix overlap");
    end = edit.range.end;
  }
  const ParsedInput mended(apply_edits(text, fix.edits), kelp::fuzz::schema(false));
  expect(mended.source().text().size() > 0 || text.empty() || !fix.is_safe, "a safe fix takes all");
}

void check(const ParsedInput& input) {
  const std::string text(input.source().text());
  // Each fix is tried by reading the text anew, which is enough for the first ones.
  std::size_t fixes = 8;
  for (const Diagnostic& found : diagnose(input, {})) {
    expect(find_finding_text(found.code) != nullptr, "a code is not described");
    expect(!found.message.empty(), "a finding says nothing");
    if (found.range) {
      expect_inside(text, *found.range);
    }
    concise_text(found, input.source(), "a.inp");
    for (std::size_t i = 0; i < found.fixes.size() && fixes > 0; ++i, --fixes) {
      expect_applicable(text, found.fixes[i]);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const ParsedInput input(text, kelp::fuzz::schema(false));
  check(input);
  outline_of(input);
  calculation_of(input);
  const Molecule molecule = molecule_of(input);
  hill_formula(molecule.atoms);
  write_xyz(molecule);
  return 0;
}
