// The top level of the schema document and its vocabulary of easy inputs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

InputSchema::Impl read(std::string_view yaml) {
  return SchemaAccess::impl(schema_from(yaml));
}

InputSchema::Impl read_whole(std::string_view yaml) {
  return SchemaAccess::impl(InputSchema::from_yaml(yaml));
}

TEST(SchemaDocument, OfAVersionAloneIsEmptyWithAnOpenBasis) {
  const InputSchema schema = InputSchema::from_yaml("schema_version: 1");
  EXPECT_TRUE(schema.empty());
  EXPECT_EQ(schema.metadata().schema_version, 1);
  EXPECT_TRUE(SchemaAccess::impl(schema).basis_extensible);
}

TEST(SchemaDocument, HasASigned32BitVersion) {
  EXPECT_EQ(read_whole("schema_version: -7").metadata.schema_version, -7);
  EXPECT_EQ(read_whole("schema_version: 2147483647").metadata.schema_version, 2147483647);
  EXPECT_EQ(read_whole("schema_version: '3'").metadata.schema_version, 3);
  EXPECT_ANY_THROW(read_whole("schema_version: 2147483648"));
}

TEST(SchemaDocument, KeepsProgramAndSchemaKindAsWritten) {
  const auto metadata = read("program: $BDF x\nschema_kind: Input Schema").metadata;
  EXPECT_EQ(metadata.program, "$BDF x");
  EXPECT_EQ(metadata.schema_kind, "Input Schema");
}

TEST(SchemaDocument, KeepsTheTextsOfTheMetadataAsWritten) {
  const auto metadata = read(R"(
metadata:
  bdf_version: 2024A
  manual_source: HTTPS://example.org
  manual_revision: R7
  generated_at: 2024-01-02
)")
                            .metadata;
  EXPECT_EQ(metadata.bdf_version, "2024A");
  EXPECT_EQ(metadata.manual_source, "HTTPS://example.org");
  EXPECT_EQ(metadata.manual_revision, "R7");
  EXPECT_EQ(metadata.generated_at, "2024-01-02");
}

TEST(SchemaDocument, HasEmptyTextsForMetadataOfTheWrongType) {
  const auto wrong_fields = read(R"(
program: [bdf]
schema_kind: {a: b}
metadata: {bdf_version: [1], manual_source: {a: b}, manual_revision: ~}
)")
                                .metadata;
  EXPECT_EQ(wrong_fields.program + wrong_fields.schema_kind, "");
  EXPECT_EQ(wrong_fields.bdf_version + wrong_fields.manual_source + wrong_fields.manual_revision,
            "");
  EXPECT_EQ(read("metadata: [bdf_version]").metadata.bdf_version, "");
  EXPECT_EQ(read("metadata: text").metadata.bdf_version, "");
}

TEST(SchemaDocument, IgnoresKeysInAnotherCaseAndUnknownKeys) {
  const auto impl = read("Modules: {scf: {}}\nEASY_INPUT: {methods: [hf]}\nother: 1");
  EXPECT_THAT(impl.modules, IsEmpty());
  EXPECT_THAT(impl.methods, IsEmpty());
}

TEST(SchemaDocument, ReadsMethodsAndKeywordsFromTheTopOnlyWithoutAnEasyInput) {
  const std::string top = "methods: [HF]\neasy_keywords: {Charge: {aliases: [Chg]}}\n";
  for (const char* easy_input :
       {"", "easy_input: text\n", "easy_input: [methods]\n", "easy_input: ~\n"}) {
    const auto impl = read(top + easy_input);
    EXPECT_THAT(impl.methods, UnorderedElementsAre(Pair("hf", "hf"))) << easy_input;
    EXPECT_THAT(impl.control_keyword_aliases,
                UnorderedElementsAre(Pair("charge", "charge"), Pair("chg", "charge")));
  }
  const auto impl = read(top + "easy_input: {}\n");
  EXPECT_THAT(impl.methods, IsEmpty());
  EXPECT_THAT(impl.control_keywords, IsEmpty());
}

TEST(SchemaDocument, NeverReadsFunctionalsBasisOrControlKeywordsFromTheTop) {
  const auto impl = read("functionals: [b3lyp]\nbasis: [svp]\ncontrol_keywords: {charge: {}}\n");
  EXPECT_THAT(impl.functionals, IsEmpty());
  EXPECT_THAT(impl.basis_sets, IsEmpty());
  EXPECT_THAT(impl.control_keywords, IsEmpty());
}

TEST(EasyInput, FillsAllItsLists) {
  const auto impl = read(R"(
easy_input:
  methods: [HF]
  functionals: [B3LYP]
  basis: {known: [SVP]}
  control_keywords: {Charge: ~}
)");
  EXPECT_THAT(impl.methods, ElementsAre(Pair("hf", "hf")));
  EXPECT_THAT(impl.functionals, ElementsAre(Pair("b3lyp", "b3lyp")));
  EXPECT_THAT(impl.basis_sets, ElementsAre(Pair("svp", "svp")));
  EXPECT_THAT(impl.control_keyword_aliases, ElementsAre(Pair("charge", "charge")));
}

TEST(EasyInput, DoesNotReadEasyKeywords) {
  EXPECT_THAT(read("easy_input: {easy_keywords: {charge: {}}}").control_keywords, IsEmpty());
}

TEST(NameList, OfASequenceTakesItsScalars) {
  const auto impl = read("easy_input: {methods: [' $HF ', [x], {y: z}, ~, MP2]}");
  EXPECT_THAT(impl.methods, UnorderedElementsAre(Pair("hf", "hf"), Pair("mp2", "mp2")));
}

TEST(NameList, OfAMapTakesItsKeysAndTheirAliases) {
  const auto impl = read(R"(
easy_input:
  methods:
    $HF: {aliases: [Hartree, ' $RHF', [x]], other: 1}
    MP2: {aliases: Moller}
    CC: ~
    CI: [aliases]
    CAS: {aliases: {x: y}}
    [complex]: {aliases: [never]}
)");
  EXPECT_THAT(impl.methods,
              UnorderedElementsAre(Pair("hf", "hf"), Pair("hartree", "hf"), Pair("rhf", "hf"),
                                   Pair("mp2", "mp2"), Pair("moller", "mp2"), Pair("cc", "cc"),
                                   Pair("ci", "ci"), Pair("cas", "cas")));
}

TEST(NameList, OfALoneScalarAddsNothing) {
  EXPECT_THAT(read("easy_input: {methods: hf, functionals: b3lyp, basis: svp}").methods, IsEmpty());
  EXPECT_THAT(read("easy_input: {basis: svp}").basis_sets, IsEmpty());
}

TEST(NameList, LetsTheLaterOfTwoWritesWin) {
  const auto impl = read("easy_input: {methods: {a: {aliases: [b, x]}, b: {}, c: {aliases: x}}}");
  EXPECT_THAT(impl.methods,
              UnorderedElementsAre(Pair("a", "a"), Pair("b", "b"), Pair("x", "c"), Pair("c", "c")));
  const auto other = read("easy_input: {methods: {b: {}, a: {aliases: [b]}}}");
  EXPECT_THAT(other.methods, UnorderedElementsAre(Pair("a", "a"), Pair("b", "a")));
}

TEST(Basis, OfASequenceIsOpen) {
  const auto impl = read("easy_input: {basis: [cc-pVDZ]}");
  EXPECT_THAT(impl.basis_sets, ElementsAre(Pair("cc-pvdz", "cc-pvdz")));
  EXPECT_TRUE(impl.basis_extensible);
}

TEST(Basis, OfAMapHasAListThatCanBeClosed) {
  const auto closed = read("easy_input: {basis: {known: [a], extensible: false}}");
  EXPECT_THAT(closed.basis_sets, ElementsAre(Pair("a", "a")));
  EXPECT_FALSE(closed.basis_extensible);
  const auto open = read("easy_input: {basis: {known: {a: {aliases: b}}, extensible: [false]}}");
  EXPECT_THAT(open.basis_sets, UnorderedElementsAre(Pair("a", "a"), Pair("b", "a")));
  EXPECT_TRUE(open.basis_extensible);
}

TEST(Basis, OfAMapIsNeverANameList) {
  EXPECT_THAT(read("easy_input: {basis: {svp: {}, tzvp: {}}}").basis_sets, IsEmpty());
}

TEST(KeywordMap, GivesDefaultsToAKeywordWithoutADescription) {
  for (const char* value : {"~", "text", "[kind, flag]"}) {
    const auto impl = read("easy_input: {control_keywords: {$Charge: " + std::string(value) + "}}");
    const ValueSpec* const spec = find_keyword_spec(impl, "charge");
    ASSERT_NE(spec, nullptr) << value;
    EXPECT_EQ(spec->name, "charge");
    EXPECT_EQ(spec->kind, EntryValueKind::Scalar);
    EXPECT_EQ(spec->value_type, "string");
    EXPECT_EQ(spec->category, "control");
  }
}

TEST(KeywordMap, ReadsDescriptionCategoryAndAliases) {
  const auto impl = read(R"(
easy_input:
  control_keywords:
    MaxIter: {kind: flag, value_type: Integer, min: 1, category: ' $Accuracy ', aliases: [NIter]}
    other: {category: ''}
    third: {category: [x]}
)");
  const ValueSpec* const spec = find_keyword_spec(impl, "NITER");
  ASSERT_NE(spec, nullptr);
  EXPECT_EQ(spec->name, "maxiter");
  EXPECT_EQ(spec->kind, EntryValueKind::Flag);
  EXPECT_EQ(spec->value_type, "integer");
  EXPECT_EQ(spec->min, 1.0);
  EXPECT_EQ(spec->category, "accuracy");
  EXPECT_EQ(impl.control_keywords.at("other").category, "control");
  EXPECT_EQ(impl.control_keywords.at("third").category, "control");
}

TEST(KeywordMap, LetsALaterKeywordReplaceAnEarlierOne) {
  const auto impl = read(R"(
easy_input:
  control_keywords:
    a: {kind: flag, aliases: [one]}
    $A: {aliases: [two]}
    b: {aliases: [two]}
)");
  EXPECT_EQ(impl.control_keywords.at("a").kind, EntryValueKind::Scalar);
  EXPECT_THAT(
      impl.control_keyword_aliases,
      UnorderedElementsAre(Pair("a", "a"), Pair("b", "b"), Pair("one", "a"), Pair("two", "b")));
}

TEST(KeywordMap, SkipsKeysThatAreNoScalars) {
  EXPECT_THAT(read("easy_input: {control_keywords: {[a]: {}, ? {b: c} : {}}}").control_keywords,
              IsEmpty());
  EXPECT_THAT(read("easy_input: {control_keywords: [a, b]}").control_keywords, IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
