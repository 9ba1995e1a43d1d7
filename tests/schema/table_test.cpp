// A schema that comes from the table that the library was built with, held against the same
// document read as YAML.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/meaning.hpp"
#include "schema/schema_table.hpp"
#include "schema/table_writer.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using test::TemporaryFolder;
using test::utf8;
using testing::HasSubstr;

constexpr Language languages[] = {Language::English, Language::Chinese};

const std::string& shipped_text() {
  static const std::string text = test::file_bytes(test::shipped_schema_file());
  return text;
}

template <typename... Values>
std::string table_of(const Values&... values) {
  TableWriter writer;
  writer(values...);
  return writer.table();
}

std::string table_of_schema(const InputSchema& schema) {
  return table_of(SchemaAccess::impl(schema));
}

InputSchema schema_of_table(std::string_view table) {
  auto impl = std::make_shared<InputSchema::Impl>();
  TableReader{table}(*impl);
  return InputSchema(impl);
}

/// Says all that a schema answers, a line for each answer.
class Answers {
 public:
  explicit Answers(const InputSchema& schema) : schema_(schema) {
    tell("metadata", table_of(schema.metadata()), schema.empty());
    tell_names();
    tell_keywords();
    for (const std::string& module : schema.known_modules()) {
      tell_module(module);
    }
  }

  std::string text() const { return out_.str(); }

 private:
  template <typename... Values>
  void tell(const Values&... values) {
    ((out_ << values << '|'), ...);
    out_ << '\n';
  }

  void tell_list(std::string_view of, const std::vector<std::string>& texts) {
    tell(of, testing::PrintToString(texts));
  }

  void tell_values(const std::vector<ValueMeaning>& values) {
    for (const ValueMeaning& value : values) {
      tell("value", value.value, value.meaning);
    }
  }

  void tell_info(const std::optional<EntrySchemaInfo>& info) {
    tell("info", info ? table_of(*info) : "none");
  }

  void tell_names() {
    for (const std::string& name : schema_.known_methods()) {
      tell("method", name, schema_.canonical_method(name), schema_.easy_token_category(name));
    }
    for (const std::string& name : schema_.known_functionals()) {
      tell("functional", name, schema_.is_known_functional(name));
    }
    for (const std::string& name : schema_.known_basis_sets()) {
      tell("basis", name, schema_.is_known_easy_token("hf/" + name));
      for (const Language language : languages) {
        const std::optional<BasisFamily> family = basis_family(schema_, name, language);
        tell(basis_summary(schema_, name, language), family ? family->name : "none",
             family ? family->summary : "");
        tell_list("prefixes", family ? family->prefixes : std::vector<std::string>());
      }
    }
    for (const Language language : languages) {
      for (const std::string& name : schema_.known_methods()) {
        tell(method_summary(schema_, name, language));
      }
      for (const std::string& name : schema_.known_functionals()) {
        tell(functional_summary(schema_, name, language));
      }
    }
  }

  void tell_keywords() {
    for (const std::string& keyword : schema_.known_easy_keywords()) {
      tell("keyword", keyword, schema_.easy_token_category(keyword));
      tell_list("aliases", schema_.easy_keyword_aliases(keyword));
      tell_info(schema_.easy_keyword_info(keyword));
      for (const Language language : languages) {
        tell(easy_keyword_summary(schema_, keyword, language));
        tell_values(easy_keyword_value_meanings(schema_, keyword, language));
      }
    }
  }

  void tell_module(const std::string& module) {
    tell("module", module, schema_.module_repeatable(module));
    tell_list("aliases", schema_.module_aliases(module));
    for (const Language language : languages) {
      tell(module_summary(schema_, module, language));
    }
    for (const std::string& entry : schema_.known_entries(module)) {
      tell("entry", module, entry, schema_.entry_terminator(module, entry));
      tell_list("aliases", schema_.entry_aliases(module, entry));
      tell_info(schema_.entry_info(module, entry));
      for (const Language language : languages) {
        tell(entry_summary(schema_, module, entry, language));
        tell_values(entry_value_meanings(schema_, module, entry, language));
      }
      for (const std::string& child : schema_.known_nested_entries(module, entry)) {
        tell_child(module, entry, child);
      }
    }
  }

  void tell_child(const std::string& module, const std::string& entry, const std::string& child) {
    tell("child", module, entry, child);
    tell_list("aliases", schema_.nested_entry_aliases(module, entry, child));
    tell_info(schema_.nested_entry_info(module, entry, child));
    for (const Language language : languages) {
      tell(nested_entry_summary(schema_, module, entry, child, language));
      tell_values(nested_entry_value_meanings(schema_, module, entry, child, language));
    }
  }

  const InputSchema& schema_;
  std::ostringstream out_;
};

TEST(SchemaTable, OfTheShippedDocumentAnswersAsTheDocument) {
  const InputSchema of_yaml = InputSchema::from_yaml(shipped_text());
  const std::string table = table_of_schema(of_yaml);
  const InputSchema of_table = schema_of_table(table);
  const std::string answers = Answers(of_yaml).text();
  EXPECT_GT(answers.size(), 100'000U);
  EXPECT_TRUE(Answers(of_table).text() == answers);
  EXPECT_TRUE(table_of_schema(of_table) == table);
}

TEST(SchemaTable, IsTheOneThatTheLibraryWasBuiltWith) {
  const BuiltInDocument built_in = built_in_schema();
  if (built_in.table.empty()) {
    GTEST_SKIP() << "the library was built without tables";
  }
  EXPECT_TRUE(built_in.text == shipped_text());
  EXPECT_TRUE(built_in.table == table_of_schema(InputSchema::from_yaml(shipped_text())));
  EXPECT_TRUE(built_in.stands_for(test::shipped_schema_file()));
}

TEST(SchemaTable, HoldsWhateverADocumentCanSay) {
  const InputSchema schema = schema_from(R"(
easy_input:
  methods: {hf: {aliases: [scf], summary: mean field, summary_zh: "\u5e73\u5747\u573a"}}
  basis: {extensible: false, known: [x], families: {X: {prefixes: [x], summary: family}}}
modules:
  m:
    repeatable: true
    entries:
      number: {min: -1.5e-300, max: 1.7976931348623157e308, max_exclusive: true, default: ""}
      counts: {arity: 18446744073709551615, allowed_arities: [0, 127, 128, 16384]}
      rows: {kind: counted_rows, row: {arity: 3, types: [string, float]}, count_line: true}
      outer: {entries: {inner: {kind: nested_block, entries: {innermost: {aliases: [i]}}}}}
      related: {requires: [{entry: number, equals: "1"}, rows], conflicts: [counts]}
)");
  const std::string table = table_of_schema(schema);
  const InputSchema again = schema_of_table(table);
  EXPECT_EQ(Answers(again).text(), Answers(schema).text());
  EXPECT_EQ(table_of_schema(again), table);
  EXPECT_EQ(again.entry_info("m", "number")->max, std::numeric_limits<double>::max());
  EXPECT_EQ(again.entry_info("m", "counts")->arity, std::numeric_limits<std::uint64_t>::max());
  EXPECT_FALSE(again.is_known_easy_token("hf/y"));
}

// What a table of one machine holds, every other one reads.
TEST(SchemaTable, HasTheSameBytesOnEveryMachine) {
  using namespace std::string_literals;
  EXPECT_EQ(table_of(std::uint64_t{127}, std::uint64_t{300}), "\x7F\xAC\x02"s);
  EXPECT_EQ(table_of(1.0), "\x80\x80\x80\x80\x80\x80\x80\xF8\x3F"s);
  EXPECT_EQ(table_of("a\0b"s, std::optional<bool>(true), std::optional<bool>()),
            "\x03"
            "a\0b"
            "\x01\x01"
            "\x00"s);
  NameMap<std::string> names = {{"b", "2"}, {"a", "1"}};
  EXPECT_EQ(table_of(names),
            "\x02\x01"
            "a"
            "\x01"
            "1"
            "\x01"
            "b"
            "\x01"
            "2"s);
}

/// A copy of the shipped document, changed.
class ChangedSchema {
 public:
  explicit ChangedSchema(std::string_view text) { test::write_file(path_, text); }
  std::string path() const { return utf8(path_); }

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_ / "bdf.yaml";
};

TEST(SchemaFile, ThatIsACopyOfTheShippedOneAnswersAsIt) {
  const ChangedSchema file(shipped_text());
  EXPECT_EQ(built_in_schema().stands_for(file.path()), !built_in_schema().table.empty());
  EXPECT_TRUE(Answers(InputSchema::from_file(file.path())).text() ==
              Answers(InputSchema::from_yaml(shipped_text())).text());
}

TEST(SchemaFile, WithOneMoreCommentIsReadAsYaml) {
  const ChangedSchema file(shipped_text() + "# a comment\n");
  EXPECT_FALSE(built_in_schema().stands_for(file.path()));
  EXPECT_TRUE(Answers(InputSchema::from_file(file.path())).text() ==
              Answers(InputSchema::from_yaml(shipped_text())).text());
}

TEST(SchemaFile, WithOneOtherByteSaysWhatThatByteSays) {
  std::string text = shipped_text();
  const std::size_t key = text.find("\n  bdf_version:");
  ASSERT_NE(key, std::string::npos);
  const std::size_t digit = text.find_first_of("0123456789", key);
  text[digit] = text[digit] == '7' ? '8' : '7';
  const ChangedSchema file(text);
  EXPECT_FALSE(built_in_schema().stands_for(file.path()));
  EXPECT_NE(InputSchema::from_file(file.path()).metadata().bdf_version,
            InputSchema::from_yaml(shipped_text()).metadata().bdf_version);
}

TEST(SchemaFile, ThatIsNoLongerYamlIsAnErrorAsEver) {
  const ChangedSchema file("[" + shipped_text().substr(1));
  try {
    static_cast<void>(InputSchema::from_file(file.path()));
    ADD_FAILURE() << "no error";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("failed to load BDF input schema '" + file.path() + "': "));
  }
}

TEST(SchemaFile, ThatIsEmptyIsNotTakenForATableThatIsNotThere) {
  const ChangedSchema file("");
  EXPECT_FALSE(BuiltInDocument().stands_for(file.path()));
  EXPECT_THROW(static_cast<void>(InputSchema::from_file(file.path())), std::runtime_error);
}

}  // namespace
}  // namespace kelp::input::bdf
