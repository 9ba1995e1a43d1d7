// Findings as data: the records that they are about, and which part of a value is at fault.

#include "validate/fault.hpp"

#include <string>
#include <string_view>
#include <vector>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: [hf]
  control_keywords:
    charge: {value_type: integer, aliases: [q]}
    occupy: {kind: tuple, value_type: integer, min_arity: 1}
modules:
  m:
    entries:
      number: {value_type: integer, aliases: [n]}
      pair: {kind: tuple, value_type: float, arity: 2, min: 0, min_exclusive: true, max: 9}
      some: {kind: multiline, value_type: integer, allowed_arities: [2, 4]}
      few: {kind: tuple, min_arity: 2, max_arity: 3}
      word: {allowed: [yes, no]}
      digit: {value_type: integer, allowed: [1, 2]}
      listed: {kind: counted_rows, count_line: true, row: {arity: 2, types: [string, float]}}
      rows: {kind: counted_rows, row: {min_arity: 1, types: [integer]}, max: 5}
      block: {kind: block, terminator: endblock}
      flag: {kind: flag, conflicts: n, requires: word}
      nest:
        kind: nested_block
        terminator: endnest
        entries:
          cnumber: {value_type: integer, aliases: [cn]}
          cflag: {kind: flag, conflicts: cnumber}
)");
  return schema;
}

BDFData parse(std::string_view text) {
  return BDFParser::parse_string(text, schema(), {true, false, 0, false}).data;
}

std::string to_text(const RecordId& record) {
  const std::string index = std::to_string(record.index);
  switch (record.kind) {
    case RecordKind::None:
      return "-";
    case RecordKind::EasyToken:
      return "token " + index;
    case RecordKind::Geometry:
      return "geometry";
    case RecordKind::Module:
      return index;
    case RecordKind::Entry:
      return index + "." + std::to_string(record.entry);
    case RecordKind::Child:
      return index + "." + std::to_string(record.entry) + "." + std::to_string(record.child);
    default:
      return "?";
  }
}

/// Writes faults down as `code record related arguments`.
std::vector<std::string> records_of(const BDFData& data) {
  std::vector<std::string> texts;
  find_faults(data, schema(), unknown_names_as_warnings(), [&](const Fault& fault) {
    std::string text = std::string(code_of(fault.id).substr(4)) + " " + to_text(fault.record) +
                       " " + to_text(fault.related);
    for (const std::string_view argument : fault.arguments) {
      text += " [" + std::string(argument) + "]";
    }
    texts.push_back(text);
  });
  return texts;
}

TEST(Faults, NameTheRecordsOfTheHeader) {
  EXPECT_THAT(records_of(parse("opt charge=1 q = x\ngeometry\nend geometry\n")),
              ElementsAre("invalid_easy_value token 2 - [charge] [x]", "missing_method - -",
                          "missing_geometry geometry -"));
  EXPECT_THAT(records_of(parse("hf/svp\n")), ElementsAre("missing_geometry - -"));
  EXPECT_THAT(records_of(parse("hf/svp\ngeometry\nH 0 0 0\n")),
              ElementsAre("unterminated_geometry geometry -"));
}

TEST(Faults, NameModulesEntriesAndChildren) {
  EXPECT_THAT(records_of(parse("$m\n$end\n$odd\nodd\n$m\nblock\n")),
              ElementsAre("unknown_module 1 - [odd]", "unterminated_module 1 - [odd]",
                          "unknown_entry 1.0 - [odd] [odd]", "unterminated_module 2 - [m]",
                          "missing_entry_value 2.0 - [m.block]", "duplicate_module 2 0 [m]"));
  EXPECT_THAT(records_of(parse("$m\nword\nyes\nnest\ncn\nx\nodd\nendnest\nblock\nx\n$end\n")),
              ElementsAre("invalid_module_value 0.1.0 - [m.nest.cnumber] [x]",
                          "unknown_nested_entry 0.1.1 - [m.nest] [odd]",
                          "unterminated_entry_block 0.2 - [m.block] [endblock]"));
}

TEST(Faults, NameBothRecordsOfARelation) {
  EXPECT_THAT(records_of(parse("$m\nblock\nendblock\nnumber\n1\nn\n2\nflag\nnumber\n3\n$end\n")),
              ElementsAre("missing_entry_value 0.0 - [m.block]",
                          "missing_required_entry 0.3 - [m] [flag] [word] []",
                          "conflicting_entries 0.3 0.1 [m] [flag] [n]",
                          "duplicate_entry 0.2 0.1 [m] [number]"));
  EXPECT_THAT(records_of(parse("$m\nnest\ncflag\ncn\n1\ncnumber\n2\nendnest\n$end\n")),
              ElementsAre("conflicting_entries 0.0.0 0.0.1 [m.nest] [cflag] [cnumber]",
                          "duplicate_entry 0.0.2 0.0.1 [m.nest] [cnumber]"));
}

TEST(Faults, OfRecordsDeeperThanATextCanHaveNameTheChild) {
  const InputSchema deep = schema_from(
      "modules: {m: {entries: {a: {kind: nested_block, entries: {b: {kind: nested_block, entries: "
      "{c: {value_type: integer}}}}}}}}");
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.emplace_back();
  data.modules.back().name = "m";
  data.modules.back().known = true;
  ModuleEntry grandchild;
  grandchild.name = "c";
  grandchild.values = {"x"};
  ModuleEntry child;
  child.name = "b";
  child.children = {grandchild};
  ModuleEntry entry;
  entry.name = "a";
  entry.children = {child};
  data.modules.back().entries = {entry};
  std::vector<std::string> records;
  find_faults(data, deep, {},
              [&](const Fault& fault) { records.push_back(to_text(fault.record)); });
  EXPECT_THAT(records, ElementsAre("0.0.0"));
}

TEST(Faults, PassOnWhatTheSinkThrows) {
  const BDFData data = parse("$m\nblock\nnumber\n$end\n");
  int count = 0;
  EXPECT_THROW(find_faults(data, schema(), {},
                           [&](const Fault&) {
                             ++count;
                             throw 1;
                           }),
               int);
  EXPECT_EQ(count, 1);
}

struct InvalidValue {
  const char* what;
  std::string lines;  ///< of module m
  ValueReason reason;
  ValuePart part;
  std::string words;  ///< the words at fault, behind the index of their value line
};

void PrintTo(const InvalidValue& row, std::ostream* stream) {
  *stream << row.what;
}

class ValueFaults : public ::testing::TestWithParam<InvalidValue> {};

TEST_P(ValueFaults, TellReasonAndPart) {
  const InvalidValue& row = GetParam();
  const BDFData data = parse("$m\n" + row.lines + "\n$end\n");
  int count = 0;
  find_faults(data, schema(), {}, [&](const Fault& fault) {
    ASSERT_NE(fault.value, nullptr);
    ++count;
    EXPECT_EQ(fault.value->reason, row.reason);
    EXPECT_EQ(fault.value->part, row.part);
    std::string words = "-";
    if (fault.value->line) {
      const std::string& value = data.modules[0].entries[0].values.at(*fault.value->line);
      const std::string line = value.substr(value.find_first_not_of(' '));
      words = std::to_string(*fault.value->line) + " " +
              line.substr(fault.value->begin, fault.value->end - fault.value->begin);
    }
    EXPECT_EQ(words, row.words);
  });
  EXPECT_EQ(count, 1);
}

using enum ValueReason;
using enum ValuePart;

const InvalidValue field_rows[] = {
    {"a word for a number", "number\n  1.5 # no", WrongType, Field, "0 1.5"},
    {"the lower bound, which is excluded", "pair\n 1, 0", BelowMinimum, Field, "0 0"},
    {"above the upper bound", "pair\n 10 x", AboveMaximum, Field, "0 10"},
    {"a wrong field before a wrong number of fields", "pair\n 1 2 x", WrongType, Field, "0 x"},
    {"too few fields", "pair\n  1 # 2", TooFewFields, All, "0 1"},
    {"too many fields", "pair\n 1,2 , 3", TooManyFields, All, "0 1,2 , 3"},
    {"less than the least number", "few\na", TooFewFields, All, "0 a"},
    {"more than the greatest number", "few\na b c d", TooManyFields, All, "0 a b c d"},
    {"a number that is not allowed", "some\n# c\n1 2\n3", WrongFieldCount, All, "1 1 2"},
    {"a wrong field on a later line", "some\n1 2\n 3 4x", WrongType, Field, "1 4x"},
    {"another word than those allowed", "word\n perhaps", NotAllowed, All, "0 perhaps"},
    {"allowed words and another type", "digit\nx", WrongType, All, "0 x"},
    {"allowed words, one too many", "digit\n1 2", NotAllowed, All, "0 1 2"},
    {"nothing but a comment", "pair\n# c", TooFewFields, All, "-"},
};

const InvalidValue row_rows[] = {
    {"a wrong row", "listed\n2\na 1\n b x # c", WrongType, Row, "2 b x"},
    {"a row with too many fields", "listed\n1\na 1 2", TooManyFields, Row, "1 a 1 2"},
    {"a wrong row before a wrong count", "listed\n3\n a", TooFewFields, Row, "1 a"},
    {"a count that is not met", "listed\n 3\na 1", WrongRowCount, CountLine, "0 3"},
    {"a count that is no number", "listed\n# c\nmany\na 1", WrongCount, CountLine, "1 many"},
    {"a negative count", "listed\n-1", WrongCount, CountLine, "0 -1"},
    {"a wrong row of those without a count", "rows\n1\n2 6", AboveMaximum, Row, "1 2 6"},
    {"nothing but a comment", "listed\n# c", WrongRowCount, All, "-"},
};

INSTANTIATE_TEST_SUITE_P(OfFields, ValueFaults, ::testing::ValuesIn(field_rows));
INSTANTIATE_TEST_SUITE_P(OfRows, ValueFaults, ::testing::ValuesIn(row_rows));

TEST(ValueFault, OfTheHeaderStandsInItsValue) {
  int count = 0;
  find_faults(parse("hf/svp occupy=1,x\ngeometry\nH 0 0 0\nend geometry\n"), schema(), {},
              [&](const Fault& fault) {
                ++count;
                ASSERT_NE(fault.value, nullptr);
                EXPECT_EQ(fault.value->reason, WrongType);
                EXPECT_EQ(fault.value->begin, 2U);
                EXPECT_EQ(fault.value->end, 3U);
              });
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace kelp::input::bdf
