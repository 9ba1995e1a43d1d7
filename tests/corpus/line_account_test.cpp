// The account is itself worth a test: it must see every way of losing or doubling a line.

#include "corpus/line_account.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

#include "kelp/input/bdf.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view sample =
    "# first\n"
    "\n"
    "#! job.sh\n"
    "hf/svp charge = 1\n"
    "opt\n"
    "* second\n"
    "Geometry\n"
    "H 0 0 0\n"
    "H 0 0 1\n"
    "# in the block\n"
    "H 0 0 2\n"
    "not an atom\n"
    "End Geometry\n"
    "\n"
    "%ls\n"
    "&database\n"
    "a\n"
    "&end\n"
    "$m\n"
    "lines\n"
    " 1\n"
    " 2\n"
    "block\n"
    "x\n"
    "endblock\n"
    "nest\n"
    "child\n"
    " 3\n"
    "odd child\n"
    "endnest\n"
    "odd\n"
    " 4\n"
    "$end\n"
    "$what\n"
    "%pwd\n";

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      lines: {kind: multiline}
      block: {kind: block, terminator: endblock}
      nest: {kind: nested_block, terminator: endnest, entries: {child: {}}}
)");
  return schema;
}

BDFData sample_document() {
  return BDFParser::parse_string(sample, schema(), ParseOptions()).data;
}

TEST(LineAccount, IsSettledForADocumentThatHoldsEverything) {
  EXPECT_THAT(lines_unaccounted_for(sample, sample_document()), IsEmpty());
  EXPECT_THAT(broken_invariants(sample_document()), IsEmpty());
}

using Damage = std::function<void(BDFData&)>;

TEST(LineAccount, SeesEveryLostLine) {
  const Damage losses[] = {
      [](BDFData& data) { data.script_name = "other"; },
      [](BDFData& data) { data.leading_lines.pop_back(); },
      [](BDFData& data) { data.leading_lines.erase(data.leading_lines.begin()); },
      [](BDFData& data) { data.easy_tokens.pop_back(); },
      [](BDFData& data) { data.easy_tokens.erase(data.easy_tokens.begin()); },
      [](BDFData& data) { data.has_geometry = false; },
      [](BDFData& data) { data.geometry_terminated = false; },
      [](BDFData& data) { data.atoms.erase(data.atoms.begin()); },
      [](BDFData& data) { data.geometry_lines.pop_back(); },
      [](BDFData& data) { data.statements.erase(data.statements.begin() + 1); },
      [](BDFData& data) { data.statements.at(2).lines.pop_back(); },
      [](BDFData& data) { data.modules.pop_back(); },
      [](BDFData& data) { data.modules[0].terminated = false; },
      [](BDFData& data) { data.modules[0].entries[0].values.pop_back(); },
      [](BDFData& data) { data.modules[0].entries[1].values.pop_back(); },
      [](BDFData& data) { data.modules[0].entries[1].terminated = false; },
      [](BDFData& data) { data.modules[0].entries[2].children.pop_back(); },
      [](BDFData& data) { data.modules[0].entries[2].children[0].values.pop_back(); },
      [](BDFData& data) { data.modules[0].entries[2].terminated = false; },
      [](BDFData& data) { data.modules[0].entries.pop_back(); },
  };
  for (const Damage& lose : losses) {
    BDFData data = sample_document();
    lose(data);
    EXPECT_THAT(lines_unaccounted_for(sample, data), Not(IsEmpty())) << &lose - losses;
  }
}

TEST(LineAccount, SeesEveryDoubledOrChangedLine) {
  const Damage changes[] = {
      [](BDFData& data) { data.leading_lines.push_back("* second"); },
      [](BDFData& data) { data.easy_tokens.push_back(data.easy_tokens.back()); },
      [](BDFData& data) { data.atoms.push_back(data.atoms.back()); },
      [](BDFData& data) { data.geometry_lines.push_back("H 0 0 2"); },
      [](BDFData& data) { data.statements.push_back(data.statements.at(1)); },
      [](BDFData& data) { data.statements.at(2).lines.push_back("$m"); },
      [](BDFData& data) { data.modules.push_back(data.modules.back()); },
      [](BDFData& data) { data.modules[0].entries.push_back(data.modules[0].entries[0]); },
      [](BDFData& data) { data.modules[0].entries[0].values.push_back("block"); },
      [](BDFData& data) { data.modules[0].entries[2].children[0].values.push_back("odd child"); },
      [](BDFData& data) { data.modules[0].entries[0].values[0] = "1"; },
      [](BDFData& data) { data.modules[0].entries[0].raw_line = "LINES"; },
      [](BDFData& data) { data.modules[0].entries[0].location->line += 1; },
      [](BDFData& data) { data.modules[0].entries[0].location->length += 1; },
      [](BDFData& data) { data.modules[0].entries[0].location.reset(); },
      [](BDFData& data) { data.modules[0].header_line = "$M"; },
      [](BDFData& data) { data.modules[0].end_line = "$END"; },
      [](BDFData& data) { std::swap(data.geometry_lines[0], data.geometry_lines[1]); },
  };
  for (const Damage& change : changes) {
    BDFData data = sample_document();
    change(data);
    EXPECT_THAT(lines_unaccounted_for(sample, data), Not(IsEmpty())) << &change - changes;
  }
}

TEST(Invariants, AreSeenToBreak) {
  const Damage breaks[] = {
      [](BDFData& data) { data.free_lines.pop_back(); },
      [](BDFData& data) { data.free_lines.push_back("x"); },
      [](BDFData& data) { std::swap(data.free_lines[0], data.free_lines[1]); },
      [](BDFData& data) { data.statements.pop_back(); },
      [](BDFData& data) { data.statements.back().module_index = 0; },
      [](BDFData& data) { data.statements[0].module_index = 0; },
      [](BDFData& data) { data.statements[0].location.reset(); },
      [](BDFData& data) { std::swap(data.statements[0], data.statements[1]); },
      [](BDFData& data) { data.modules.pop_back(); },
      [](BDFData& data) { data.modules.push_back(data.modules[0]); },
  };
  for (const Damage& damage : breaks) {
    BDFData data = sample_document();
    damage(data);
    EXPECT_THAT(broken_invariants(data), Not(IsEmpty())) << &damage - breaks;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
