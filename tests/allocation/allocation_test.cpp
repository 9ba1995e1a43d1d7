// Memory that runs out at any moment: the n-th allocation fails, for every n. Nothing ends the
// process, nothing leaks, an edit happens or leaves the document as it was, and doing it again
// succeeds.

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "allocation/failing_new.hpp"
#include "kelp/input/bdf.hpp"
#include "support/files.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using test::FailingNew;
using test::live_blocks;

const std::string text =
    "#! molecule\n"
    "hf/sto-3g charge=0 spinmulti=1  # a comment that is longer than any short string\n"
    "Geometry\n"
    "  O 0.0 0.0 0.0\n"
    "  H 0.0 0.0 1.0\n"
    "End Geometry\n"
    "$compass\n"
    "geometry\n"
    "  O 0.0 0.0 0.0\n"
    "end geometry\n"
    "$end\n"
    "$a_module_with_a_name_of_more_than_16_letters\n"
    "an_entry_with_a_name_of_more_than_16_letters\n"
    "$end\n"
    "%cp a_file_with_a_long_name another_file_with_a_long_name\n"
    "$scf\n"
    "charge\n"
    "  0\n"
    "spinmulti\n"
    "  3.5\n"
    "$end\n"
    "$scf\n"
    "maxiter\n"
    "  20\n"
    "$end\n";

BDFData document(InputMode mode) {
  BDFData data = BDFParser::parse_string(text, shipped_schema(), {}).data;
  data.mode = mode;
  return data;
}

void add_entries(std::string& state, const std::vector<ModuleEntry>& entries) {
  for (const ModuleEntry& entry : entries) {
    state += "  " + entry.name + '|' + entry.raw_line + '|' + (entry.known ? "known" : "");
    for (const std::string& value : entry.values) {
      state += '|' + value;
    }
    state += '\n';
    add_entries(state, entry.children);
  }
}

// Everything that an edit could leave half done.
std::string state_of(const BDFData& data) {
  std::string state = data.script_name + '\n';
  for (const EasyToken& token : data.easy_tokens) {
    state += token.text + '|' + token.canonical + '|' + token.key + '|' + token.value + '\n';
  }
  state += std::to_string(data.atoms.size()) + " atoms, " +
           std::to_string(data.geometry_lines.size()) + " lines\n";
  for (const Module& module : data.modules) {
    state += '$' + module.name + (module.known ? " known" : "") + '\n';
    add_entries(state, module.entries);
  }
  for (const Statement& statement : data.statements) {
    state += std::to_string(static_cast<int>(statement.kind)) + ' ' +
             std::to_string(statement.module_index);
    for (const std::string& line : statement.lines) {
      state += '|' + line;
    }
    state += '\n';
  }
  return state;
}

struct EditCase {
  const char* name;
  std::function<void(BDFEditor&)> edit;
  bool has_steps = false;  ///< a step that was done before the failure stays
};

const std::string long_name = "$A_MODULE_WITH_A_NAME_OF_MORE_THAN_16_LETTERS";
const std::string long_entry = "AN_ENTRY_WITH_A_NAME_OF_MORE_THAN_16_LETTERS";

const std::vector<EditCase>& edits() {
  static const std::vector<EditCase> all = {
      {"module", [](BDFEditor& editor) { EXPECT_NE(editor.module(long_name), nullptr); }},
      {"append_module", [](BDFEditor& editor) { editor.append_module(long_name); }},
      {"upsert_module", [](BDFEditor& editor) { editor.upsert_module(long_name); }},
      {"upsert_module, new", [](BDFEditor& editor) { editor.upsert_module("a" + long_name); }},
      {"remove_module", [](BDFEditor& editor) { editor.remove_module("scf"); }},
      {"remove_module, second", [](BDFEditor& editor) { editor.remove_module("scf", 1); }},
      {"append_module_entry",
       [](BDFEditor& editor) {
         editor.append_module_entry(long_name, long_entry, {long_name, long_entry});
       }},
      {"append_module_entry, new module",
       [](BDFEditor& editor) { editor.append_module_entry("tddft", "iroot", {"4"}, 1); }, true},
      {"set_module_entry",
       [](BDFEditor& editor) { editor.set_module_entry("scf", "charge", {long_name}); }},
      {"set_module_entry, raw",
       [](BDFEditor& editor) { editor.set_module_entry(long_name, long_entry, {long_name}); }},
      {"remove_module_entry",
       [](BDFEditor& editor) {
         EXPECT_TRUE(editor.remove_module_entry(long_name, 0, long_entry, std::nullopt));
       }},
      {"set_easy_tokens",
       [](BDFEditor& editor) {
         editor.set_easy_tokens({"hf/cc-pvdz", long_name, "soc"});
       }},
      {"add_easy_token", [](BDFEditor& editor) { editor.add_easy_token(long_name); }},
      {"set_easy_keyword", [](BDFEditor& editor) { editor.set_easy_keyword("charge", "12"); }},
      {"set_easy_keyword, new",
       [](BDFEditor& editor) { editor.set_easy_keyword(long_entry, long_name); }},
      {"remove_easy_keyword", [](BDFEditor& editor) { editor.remove_easy_keyword("CHARGE"); }},
      {"set_script_name", [](BDFEditor& editor) { editor.set_script_name(long_name); }},
      {"set_cartesian_geometry",
       [](BDFEditor& editor) {
         editor.set_cartesian_geometry({AtomRecord{}, AtomRecord{}});
       }},
      {"set_charge_and_multiplicity",
       [](BDFEditor& editor) { editor.set_charge_and_multiplicity(123, 456); }, true},
      {"append_shell_statement",
       [](BDFEditor& editor) { editor.append_shell_statement("%" + long_name); }},
      {"append_database_statement",
       [](BDFEditor& editor) {
         editor.append_database_statement({long_name, long_entry});
       }},
      {"set_data",
       [](BDFEditor& editor) {
         BDFData data = editor.data();
         data.statements.clear();
         editor.set_data(std::move(data));
       }},
  };
  return all;
}

/// Lets an edit fail at its n-th allocation and looks at what is left; false when it did not fail.
bool fails_cleanly(const EditCase& edit_case, const BDFEditor& before, const std::string& after,
                   std::size_t number) {
  BDFEditor editor = before;
  const std::string state = state_of(editor.data());
  bool thrown = false;
  {
    const FailingNew failing(number);
    try {
      edit_case.edit(editor);
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    EXPECT_EQ(thrown, failing.has_failed()) << edit_case.name << ", allocation " << number;
  }
  if (thrown) {
    if (!edit_case.has_steps) {
      EXPECT_EQ(state_of(editor.data()), state) << edit_case.name << ", allocation " << number;
    }
    edit_case.edit(editor);
  }
  EXPECT_EQ(state_of(editor.data()), after) << edit_case.name << ", allocation " << number;
  return thrown;
}

TEST(FailedAllocation, LeavesAnEditedDocumentAsItWas) {
  for (const InputMode mode : {InputMode::Mixed, InputMode::Module}) {
    const BDFEditor before(document(mode), shipped_schema());
    for (const EditCase& edit_case : edits()) {
      BDFEditor edited = before;
      edit_case.edit(edited);
      const std::string after = state_of(edited.data());
      std::size_t number = 0;
      while (fails_cleanly(edit_case, before, after, number)) {
        ++number;
      }
    }
  }
}

// Runs a task that makes something and forgets it, with each of its allocations failing in turn.
// The standard library does without some of them.
void expect_clean_failures(const char* name, const std::function<void()>& task) {
  task();
  std::size_t failures = 0;
  bool failed = true;
  for (std::size_t number = 0; failed; ++number) {
    const long long before = live_blocks();
    const FailingNew failing(number);
    try {
      task();
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    failed = failing.has_failed();
    ASSERT_EQ(live_blocks(), before) << name << ", allocation " << number;
  }
  EXPECT_GT(failures, 0U) << name;
}

TEST(FailedAllocation, OfReadingPassesThrough) {
  expect_clean_failures("parse", [] { BDFParser::parse_string(text, shipped_schema(), {}); });
  expect_clean_failures("ParsedInput", [] { const ParsedInput input(text, shipped_schema()); });
}

TEST(FailedAllocation, OfReadingAFileIsAnErrorOfItsResult) {
  const test::TemporaryFolder folder;
  const std::string path = test::utf8(folder / "an_input_with_a_name_of_more_than_16_letters.inp");
  test::write_file(path, text);
  const InputSchema& schema = shipped_schema();
  const std::string usual = BDFParser::parse_file(path, schema, {}).error;
  std::size_t named = 0;
  bool failed = true;
  for (std::size_t number = 0; failed; ++number) {
    ParseResult result;
    {
      const FailingNew failing(number);
      ASSERT_NO_THROW(result = BDFParser::parse_file(path, schema, {})) << "allocation " << number;
      failed = failing.has_failed();
    }
    EXPECT_TRUE(failed || result.error == usual) << "allocation " << number;
    named += result.error.find(path) != std::string::npos ? 1 : 0;
  }
  EXPECT_GT(named, 0U);
}

// With one failure the message still finds memory; here there is none from the first one on.
TEST(FailedAllocation, WithoutAnyMemoryReadingAFileStillReturns) {
  const std::string path = "an_input_with_a_name_of_more_than_16_letters.inp";
  const InputSchema& schema = shipped_schema();
  std::string error;
  {
    const FailingNew failing(0, FailingNew::Lasting{});
    const ParseResult result = BDFParser::parse_file(path, schema, {});
    error.assign(result.error, 0, 15);
  }
  EXPECT_EQ(error, "out of memory");
}

TEST(FailedAllocation, OfChecksPassesThrough) {
  const BDFData data = document(InputMode::Mixed);
  expect_clean_failures("validate", [&] { shipped_schema().validate(data, {}); });
  const ParsedInput input(text, shipped_schema());
  expect_clean_failures("outline", [&] { outline_of(input); });
  expect_clean_failures("molecule", [&] { molecule_of(input); });
}

TEST(FailedAllocation, OfDiagnosesPassesThrough) {
  const ParsedInput input("$scf\nchrge\n 1\nspinmulti\n 3.5\n$end\n", shipped_schema());
  expect_clean_failures("diagnose", [&] { diagnose(input, {}); });
}

TEST(FailedAllocation, OfWritingPassesThrough) {
  const BDFEditor editor(document(InputMode::Mixed), shipped_schema());
  expect_clean_failures("render", [&] { editor.render(); });
}

TEST(FailedAllocation, OfRewritingPassesThrough) {
  const ParsedInput input("$scf # text\ncharge\n 1\nspinmulti\n 3\n$end\n", shipped_schema());
  expect_clean_failures("format", [&] { format_input(input); });
  Edit edit;
  edit.charge = 2;
  expect_clean_failures("edit", [&] { edit_input(input, edit); });
}

TEST(FailedAllocation, OfLoadingASchemaPassesThrough) {
  expect_clean_failures("from_yaml", [] {
    InputSchema::from_yaml("schema_version: 1\nmodules: {scf: {entries: {charge: {min: 1}}}}\n");
  });
}

}  // namespace
}  // namespace kelp::input::bdf
