// The checks of the header and the geometry of an easy or mixed input.

#include <string>
#include <string_view>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: [hf]
  control_keywords:
    charge: {value_type: integer, min: -2, aliases: [q]}
    runtype: {allowed: [opt, freq]}
    pair: {arity: 2}
    solo: {kind: flag, value_type: integer, arity: 0}
    a: {value_type: integer, aliases: [b]}
    c: {value_type: float, aliases: [a]}
    spec: {category: method_spec}
modules: {m: {}}
)");
  return schema;
}

constexpr std::string_view geometry = "geometry\nH 0 0 0\nend geometry\n";
constexpr std::string_view missing_method =
    "nowhere error bdf.missing_method BDF easy/mixed input requires a method/functional/basis "
    "specification.";
constexpr std::string_view missing_geometry =
    " error bdf.missing_geometry BDF easy/mixed input requires a Geometry ... End Geometry block.";
constexpr std::string_view unterminated_geometry =
    " error bdf.unterminated_geometry BDF Geometry block is not terminated by End Geometry.";

std::string at(std::string_view place, std::string_view finding) {
  return std::string(place) + std::string(finding);
}

Findings of_header(const std::string& header) {
  return findings(schema(), header + "\n" + std::string(geometry));
}

TEST(EasyCheck, IsNotMadeForAModuleInput) {
  EXPECT_THAT(findings(schema(), "$m\n$end\n"), IsEmpty());
  EXPECT_THAT(findings(schema(), "%ls\n"), IsEmpty());
}

TEST(EasyCheck, IsMadeForAMixedInput) {
  EXPECT_THAT(findings(schema(), "#!\n$m\n$end\n"),
              ElementsAre(missing_method, at("nowhere", missing_geometry)));
}

TEST(EasyCheck, OneMethodSpecificationIsEnough) {
  EXPECT_THAT(of_header("hf/svp"), IsEmpty());
  EXPECT_THAT(of_header("charge=0\nodd/odd/odd/odd"), IsEmpty());
  EXPECT_THAT(of_header("hf/svp hf/svp"), IsEmpty());
}

TEST(EasyCheck, WithoutAMethodSpecificationThereIsOneFindingBeforeTheGeometrys) {
  EXPECT_THAT(of_header("charge=0 odd x=1/2"), ElementsAre(missing_method));
  EXPECT_THAT(findings(schema(), "charge=0\nodd"),
              ElementsAre(missing_method, at("nowhere", missing_geometry)));
  EXPECT_THAT(findings(schema(), std::string(geometry)), ElementsAre(missing_method));
}

TEST(EasyCheck, AKeywordOfTheCategoryMethodSpecCountsAsOne) {
  EXPECT_THAT(of_header("spec"), IsEmpty());
}

TEST(EasyCheck, ABlockOfOtherLinesIsAGeometry) {
  EXPECT_THAT(findings(schema(), "hf/svp\ngeometry\n# c\nend geometry"), IsEmpty());
  EXPECT_THAT(findings(schema(), "hf/svp\ngeometry\n\nend geometry"), IsEmpty());
}

TEST(EasyCheck, AnEmptyBlockIsNoGeometry) {
  EXPECT_THAT(findings(schema(), "hf/svp\ngeometry\nend geometry"),
              ElementsAre(at("2:1+8", missing_geometry)));
}

TEST(EasyCheck, AnEmptyOpenBlockIsFoundTwice) {
  EXPECT_THAT(findings(schema(), "hf/svp\nGeometry"),
              ElementsAre(at("2:1+8", missing_geometry), at("2:1+8", unterminated_geometry)));
}

TEST(EasyCheck, AnOpenBlockIsFoundOnce) {
  EXPECT_THAT(findings(schema(), "hf/svp\ngeometry\nH 0 0 0"),
              ElementsAre(at("2:1+8", unterminated_geometry)));
}

std::string invalid(std::string_view place, const std::string& keyword, const std::string& value) {
  return std::string(place) + " error bdf.invalid_easy_value BDF easy keyword '" + keyword +
         "' has an invalid value '" + value + "'.";
}

TEST(EasyValue, IsCheckedAgainstItsKeyword) {
  EXPECT_THAT(of_header("hf/svp charge=-2 runtype=OPT pair=1,2"), IsEmpty());
  EXPECT_THAT(of_header("hf/svp charge = -3 RunType=sp pair=1"),
              ElementsAre(invalid("1:1+9", "charge", "-3"), invalid("1:1+10", "runtype", "sp"),
                          invalid("1:1+6", "pair", "1")));
}

TEST(EasyValue, IsQuotedAsWrittenBehindTheCanonicalKeyword) {
  EXPECT_THAT(of_header("hf/svp Q=OnE"), ElementsAre(invalid("1:1+5", "charge", "OnE")));
}

TEST(EasyValue, ThatIsEmptyOrAbsentIsNotChecked) {
  EXPECT_THAT(of_header("hf/svp charge runtype pair="), IsEmpty());
}

TEST(EasyValue, OfAFlagIsCheckedLikeAnyOther) {
  EXPECT_THAT(of_header("hf/svp solo=1"), ElementsAre(invalid("1:1+6", "solo", "1")));
}

TEST(EasyValue, OfAnUnknownKeywordIsNotChecked) {
  EXPECT_THAT(of_header("hf/svp odd=x"), IsEmpty());
}

TEST(EasyValue, FindingsComeInTheOrderOfTheTokensBeforeTheMissingMethod) {
  EXPECT_THAT(
      of_header("pair=1\ncharge=x"),
      ElementsAre(invalid("1:1+6", "pair", "1"), invalid("2:1+8", "charge", "x"), missing_method));
}

TEST(EasyValue, IsLookedUpByTheCanonicalNameThroughTheAliasesAgain) {
  // "b" stands for "a", and "a" was taken over by "c", which accepts fractions.
  EXPECT_THAT(of_header("hf/svp b=1.5"), IsEmpty());
  EXPECT_THAT(of_header("hf/svp b=x"), ElementsAre(invalid("1:1+3", "a", "x")));
}

EasyToken token(std::string text, std::string canonical) {
  EasyToken made;
  made.text = std::move(text);
  made.canonical = std::move(canonical);
  return made;
}

TEST(EasyValue, OfATokenMadeByHandIsTakenFromItsCanonicalFormOrElseItsText) {
  BDFData data;
  data.easy_tokens = {token("charge=x", ""), token("charge=x", "charge=1"), token("hf/svp", "")};
  EXPECT_THAT(findings(schema(), data),
              ElementsAre(invalid("nowhere", "charge", "x"), at("nowhere", missing_geometry)));
}

}  // namespace
}  // namespace kelp::input::bdf
