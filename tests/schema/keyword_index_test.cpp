// The index of a module's names tells what the maps tell that it stands for: a copy of a module has
// none and goes the plain way.

#include "schema/keyword_index.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "schema/lookup.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

constexpr int variations = 50;

std::vector<std::string> all_names(const AliasMap& aliases) {
  std::vector<std::string> names = {"",    "$", "$$",   " ", "\t$x",
                                    "end", "0", "0.25", "#", "\xC3\xA4"};
  for (const auto& [alias, canonical] : aliases) {
    names.push_back(alias);
    names.push_back(canonical);
  }
  return names;
}

// Changes a name the way that people and values differ from it: other case, a letter more, less or
// another, white space and signs around it.
std::string varied(std::string name, std::mt19937& random) {
  const auto at = [&] { return name.empty() ? 0 : random() % name.size(); };
  switch (random() % 7) {
    case 0:
      for (char& byte : name) {
        byte =
            random() % 2 == 0 && byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
      }
      return name;
    case 1:
      return name.insert(at(), 1, static_cast<char>(random() % 256));
    case 2:
      return name.empty() ? name : name.erase(at(), 1);
    case 3:
      return name.empty() ? name : name.replace(at(), 1, 1, static_cast<char>(random() % 256));
    case 4:
      return " \t$" + name + "\v ";
    case 5:
      return name + name;
    default:
      return name;
  }
}

template <typename Spec>
std::string name_of(const Spec* spec) {
  return spec == nullptr ? "-" : spec->name;
}

template <typename Spec>
std::string told(const KnownName<Spec>& known) {
  return (known.canonical == nullptr ? "-" : *known.canonical) + ' ' + name_of(known.entry) + ' ' +
         name_of(known.described);
}

// What the maps tell, step by step. `look_up` tells the name of the record of a canonical name.
template <typename LookUp>
std::string told_by_maps(const AliasMap& aliases, std::string_view name, LookUp look_up) {
  const std::string* const canonical = find_in(aliases, bare_key(name));
  if (canonical == nullptr) {
    return "- - -";
  }
  const std::string* const again = find_in(aliases, bare_key(*canonical));
  return *canonical + ' ' + look_up(*canonical) + ' ' + (again == nullptr ? "-" : look_up(*again));
}

std::string told_by_maps(const ModuleSpec& module, std::string_view name) {
  return told_by_maps(module.entry_aliases, name, [&](std::string_view canonical) {
    return name_of(find_in(module.entries, canonical));
  });
}

std::string told_by_maps(const EntrySpec& block, std::string_view name) {
  return told_by_maps(block.child_aliases, name, [&](std::string_view canonical) {
    const auto* const child = find_in(block.children, canonical);
    return name_of(child == nullptr ? static_cast<const EntrySpec*>(nullptr) : child->get());
  });
}

std::string told_by_maps(const InputSchema::Impl& impl, std::string_view name) {
  return told_by_maps(impl.module_aliases, name, [&](std::string_view canonical) {
    return name_of(find_in(impl.modules, canonical));
  });
}

KnownName<ModuleSpec> find(const InputSchema::Impl& impl, std::string_view name) {
  return find_known_module(impl, name);
}
KnownName<EntrySpec> find(const ModuleSpec& module, std::string_view name) {
  return find_known_entry(&module, name);
}
KnownName<EntrySpec> find(const EntrySpec& block, std::string_view name) {
  return find_known_child(&block, name);
}

// Compares with the index, and without it. Returns how many names were compared.
template <typename Spec>
std::size_t compare(const Spec& spec, const AliasMap& aliases) {
  const Spec plain = spec;
  EXPECT_TRUE(spec.index.is_built() || aliases.empty());
  EXPECT_FALSE(plain.index.is_built());
  std::mt19937 random(42);
  std::size_t count = 0;
  for (const std::string& name : all_names(aliases)) {
    for (int i = 0; i < variations; ++i, ++count) {
      const std::string word = i == 0 ? name : varied(name, random);
      const std::string expected = told_by_maps(spec, word);
      EXPECT_EQ(told(find(spec, word)), expected) << testing::PrintToString(word);
      EXPECT_EQ(told(find(plain, word)), expected) << testing::PrintToString(word);
    }
  }
  return count;
}

std::size_t compare_all(const InputSchema& schema) {
  const InputSchema::Impl& impl = SchemaAccess::impl(schema);
  std::size_t count = compare(impl, impl.module_aliases);
  for (const auto& [name, module] : impl.modules) {
    SCOPED_TRACE(name);
    count += compare(module, module.entry_aliases);
    for (const auto& [entry, spec] : module.entries) {
      count += compare(spec, spec.child_aliases);
    }
  }
  return count;
}

TEST(KeywordIndex, TellsWhatTheMapsTellOverTheShippedSchema) {
  EXPECT_GT(compare_all(shipped_schema()), 100000U);
}

TEST(KeywordIndex, TellsWhatTheMapsTellOfASchemaReadAsYaml) {
  EXPECT_GT(
      compare_all(InputSchema::from_yaml(core::fs::read_text_file(test::shipped_schema_file()))),
      100000U);
}

TEST(KeywordIndex, TellsWhatTheMapsTellWhereAliasesChainAndNamesAreEmptyOrLong) {
  EXPECT_GT(compare_all(schema_from(R"(
modules:
  n: {aliases: [m, o, "$$p"]}
  o: {}
  "$$p": {}
  m:
    entries:
      one: {kind: flag, aliases: [two, "$", "", averyveryverylongnameindeed]}
      two: {kind: terminated_block, terminator: end, aliases: [three, averyveryverylongnameinside]}
      three: {kind: scalar}
      "$$four": {kind: flag, aliases: ["$ five", "$$$six"]}
      four: {kind: flag}
      block:
        kind: nested_block
        terminator: end
        entries:
          a: {aliases: [b, "0"]}
          b: {aliases: [c]}
          c: {}
)")),
            1000U);
}

TEST(KeywordIndex, FindsEachOfManyNamesOfOneLengthAndOneLetter) {
  std::string yaml = "modules:\n  m:\n    entries:\n";
  for (int i = 1000; i < 3000; ++i) {
    yaml += "      x" + std::to_string(i) + ": {kind: flag}\n";
  }
  const InputSchema schema = schema_from(yaml);
  const ModuleSpec* const module = find_module_spec(SchemaAccess::impl(schema), "m");
  for (int i = 1000; i < 3000; ++i) {
    const std::string name = "X" + std::to_string(i);
    ASSERT_EQ(name_of(find_entry_spec(module, name)), "x" + std::to_string(i));
  }
  EXPECT_EQ(find_entry_spec(module, "x3000"), nullptr);
  EXPECT_EQ(find_entry_spec(module, "x0999"), nullptr);
}

TEST(KeywordIndex, StaysRightWhenItsModuleIsMoved) {
  const InputSchema schema = schema_from("modules: {m: {entries: {one: {aliases: [two]}}}}");
  ModuleSpec module = *find_module_spec(SchemaAccess::impl(schema), "m");
  module.index_names();
  const ModuleSpec moved = std::move(module);
  EXPECT_TRUE(moved.index.is_built());
  EXPECT_EQ(find_entry_spec(&moved, "TWO"), &moved.entries.at("one"));
}

}  // namespace
}  // namespace kelp::input::bdf
