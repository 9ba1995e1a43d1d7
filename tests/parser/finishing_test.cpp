// What parsing makes of the findings of the validation.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view text_with_unknown_names = "$m\nodd\n$end\n$what\n$end\n";

std::vector<std::string> messages(const BDFData& data) {
  std::vector<std::string> messages;
  for (const ParseWarning& warning : data.warnings) {
    messages.push_back(warning.message);
  }
  return messages;
}

enum class Unknown { Error, Warning, Silent };

struct Row {
  bool custom;
  std::int32_t policy;
  bool report;
  Unknown unknown;
};

TEST(Finishing, TheOptionsDecideWhatUnknownNamesAre) {
  const Row rows[] = {
      {false, 0, false, Unknown::Error},  {false, 1, false, Unknown::Error},
      {false, 2, false, Unknown::Error},  {false, 0, true, Unknown::Error},
      {false, 1, true, Unknown::Error},   {false, 7, true, Unknown::Error},
      {true, 2, false, Unknown::Error},   {true, 2, true, Unknown::Error},
      {true, 1, false, Unknown::Warning}, {true, 1, true, Unknown::Warning},
      {true, 0, true, Unknown::Warning},  {true, 3, true, Unknown::Warning},
      {true, -1, true, Unknown::Warning}, {true, 0, false, Unknown::Silent},
      {true, 3, false, Unknown::Silent},  {true, -1, false, Unknown::Silent},
  };
  for (const Row& row : rows) {
    const ParseOptions given = {row.custom, true, row.policy, row.report};
    const ParseResult result = parse(text_with_unknown_names, given);
    const std::string shown = "custom " + std::to_string(row.custom) + " policy " +
                              std::to_string(row.policy) + " report " + std::to_string(row.report);
    EXPECT_EQ(result.ok, row.unknown != Unknown::Error) << shown;
    EXPECT_EQ(result.error,
              row.unknown == Unknown::Error ? "Unknown BDF module entry 'm.odd'." : "")
        << shown;
    if (row.unknown == Unknown::Warning) {
      EXPECT_THAT(messages(result.data),
                  ElementsAre("Unknown BDF module entry 'm.odd' was preserved raw.",
                              "Unknown BDF module '$what' was preserved raw."))
          << shown;
    } else {
      EXPECT_THAT(result.data.warnings, IsEmpty()) << shown;
    }
  }
}

TEST(Finishing, WithoutValidationEverythingIsFine) {
  for (const bool custom : {false, true}) {
    const ParseOptions given = {custom, false, 2, true};
    const ParseResult result = parse("$m\nscalar\nblock\n$what\n", given);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.data.warnings, IsEmpty());
  }
}

TEST(Finishing, TheDefaultsValidateAndTakeUnknownNamesForErrors) {
  const ParseOptions defaults;
  EXPECT_FALSE(defaults.custom_unknown_policy);
  EXPECT_TRUE(defaults.validate);
  EXPECT_EQ(defaults.unknown_policy, 0);
  EXPECT_FALSE(defaults.report_unknown);
}

TEST(Finishing, WarningsKeepTheirOrderCodeMessageAndPlace) {
  const ParseResult result =
      parse("$m\nscalar\nflag\nflag\n$end\n$m\n$end\n", options(false, true));
  EXPECT_TRUE(result.ok);
  ASSERT_EQ(result.data.warnings.size(), 3U);
  EXPECT_EQ(result.data.warnings[0].code, "bdf.missing_entry_value");
  EXPECT_EQ(result.data.warnings[0].message,
            "BDF module entry 'm.scalar' normally requires a value.");
  EXPECT_EQ(place(result.data.warnings[0].location), "2:1+6");
  EXPECT_EQ(result.data.warnings[1].code, "bdf.duplicate_entry");
  EXPECT_EQ(place(result.data.warnings[1].location), "1:1+2");
  EXPECT_EQ(result.data.warnings[2].code, "bdf.duplicate_module");
  EXPECT_EQ(place(result.data.warnings[2].location), "nowhere");
}

TEST(Finishing, TheFirstErrorIsTheMessageAndErrorsAreNoWarnings) {
  const ParseResult result = parse("$m\nscalar\nblock\nx\n$other\n", options(false, true));
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "BDF module '$m' is not terminated by $end.");
  ASSERT_EQ(result.data.warnings.size(), 1U);
  EXPECT_EQ(result.data.warnings[0].code, "bdf.missing_entry_value");
}

TEST(Finishing, AFailedValidationLeavesTheDocumentWhole) {
  const BDFData failed = document("hf/svp\n$m\nodd\n x\n$end\n%ls\n", options(false, true));
  EXPECT_EQ(failed.mode, InputMode::Mixed);
  EXPECT_EQ(outline(failed.modules.at(0).entries), "odd Raw? < x>");
  EXPECT_EQ(outline(failed.statements), "Module 0; Shell <%ls>");
}

TEST(Finishing, OnAnEmptySchemaEveryNameIsUnknown) {
  const ParseResult result = parse("$m\nflag\n 1\n$end\n", options(false, true), InputSchema());
  EXPECT_EQ(result.error, "Unknown BDF module '$m'.");
  EXPECT_EQ(outline(result.data.modules.at(0).entries), "flag Raw? < 1>");
}

}  // namespace
}  // namespace kelp::input::bdf
