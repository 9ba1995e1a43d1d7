// Documents whose names and aliases multiply. What their text spells out costs what it costs; what
// they make of it beyond that may take 64 MiB and 16 times the text, or they are refused.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "allocation/failing_new.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "knowledge/knowledge.hpp"

namespace kelp::input::bdf {
namespace {

using test::peak_of;

struct Bomb {
  const char* name;
  std::string text;
};

std::string repeated(int count, const std::function<std::string(int)>& part) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += part(i);
  }
  return text;
}

// So many keys of so many letters, each with a value and a comma behind it.
std::string keys(int count, int length, const std::string& value) {
  return repeated(count, [&](int i) {
    const std::string number = std::to_string(i);
    return std::string(static_cast<std::size_t>(length) - number.size(), 'k') + number + ": " +
           value + ", ";
  });
}

std::string items(int count) {
  return repeated(count, [](int i) { return "i" + std::to_string(i) + ", "; });
}

const std::string head = "schema_version: 1\nshared: &s ";

// What is bad stands below the key that is replaced for comparison.
std::string document(const std::string& shared, const std::string& key, const std::string& rest) {
  return head + shared + "\n" + key + ": " + rest + "\n";
}

std::vector<Bomb> schema_bombs() {
  const std::string long_name(100'000, 'n');
  return {
      {"long entries", document("{" + keys(1000, 500, "~") + "}", "modules",
                                "{" + keys(2000, 6, "{entries: *s}") + "}")},
      {"many entries", document("{" + keys(5000, 5, "~") + "}", "modules",
                                "{" + keys(5000, 6, "{entries: *s}") + "}")},
      {"long children", document("{" + keys(1000, 500, "~") + "}", "modules",
                                 "{m: {entries: {" + keys(2000, 6, "{entries: *s}") + "}}}")},
      {"aliases of a long name",
       document("~", "modules", "{? " + long_name + " : {aliases: [" + items(5000) + "]}}")},
      {"aliases of a long entry",
       document("~", "modules",
                "{m: {entries: {? " + long_name + " : {aliases: [" + items(5000) + "]}}}}")},
      {"aliases of a long child", document("~", "modules",
                                           "{m: {entries: {e: {entries: {? " + long_name +
                                               " : {aliases: [" + items(5000) + "]}}}}}}")},
      {"lists of aliases", document("[" + items(5000) + "]", "modules",
                                    "{m: {entries: {" + keys(5000, 6, "{aliases: *s}") + "}}}")},
      {"long meanings of values",
       document("{" + keys(1000, 500, "v") + "}", "modules",
                "{m: {entries: {" + keys(2000, 6, "{values: *s}") + "}}}")},
      {"a long meaning", document(std::string(100'000, 't'), "modules",
                                  "{m: {entries: {" + keys(5000, 6, "{summary: *s}") + "}}}")},
      {"a long default", document(std::string(100'000, 't'), "modules",
                                  "{m: {entries: {" + keys(5000, 6, "{default: *s}") + "}}}")},
      {"requirements",
       document("[" + repeated(2000, [](int) { return "{entry: a, equals: b}, "; }) + "]",
                "modules", "{m: {entries: {" + keys(2000, 6, "{requires: *s}") + "}}}")},
      {"families", document("[" + items(5000) + "]", "easy_input",
                            "{basis: {families: {" + keys(5000, 6, "{prefixes: *s}") + "}}}")},
      {"aliases of a long method",
       document("~", "easy_input",
                "{methods: {? " + long_name + " : {aliases: [" + items(5000) + "]}}}")},
      {"lists of counts",
       document("[" + repeated(5000, [](int) { return "1, "; }) + "]", "modules",
                "{m: {entries: {" + keys(5000, 6, "{row: {allowed_arities: *s}}") + "}}}")},
  };
}

std::vector<Bomb> knowledge_bombs() {
  const std::string class_name(100'000, 'n');
  const std::string list = "[" + items(5000) + "]";
  return {
      {"long classes",
       document("~", "functional_classes", "{? " + class_name + " : " + list + "}")},
      {"point groups", document(list, "point_groups", "{" + keys(5000, 6, "*s") + "}")},
      {"axial groups", document(list, "axial_groups", "{" + keys(5000, 6, "{odd: *s}") + "}")},
      {"modules", document(list, "modules", "{" + keys(5000, 6, "{needs: *s}") + "}")},
      {"uses", document(list, "functional_uses", "{" + keys(5000, 6, "{can: *s}") + "}")},
      {"basis sets", document("{elements: 1-9, names: " + list + "}", "basis_sets",
                              "[" + repeated(5000, [](int) { return "*s, "; }) + "]")},
  };
}

// The same text, of which only the tree of nodes is made.
std::string without_use(std::string text) {
  const std::size_t key = text.find('\n', head.size()) + 1;
  return text.replace(key, 1, "x");
}

void load(const std::function<void(const std::string&)>& loader, const std::string& text) {
  try {
    loader(text);
  } catch (const std::runtime_error&) {  // it is refused
  }
}

void expect_bounded(const Bomb& bomb, const std::function<void(const std::string&)>& loader) {
  const std::string unused = without_use(bomb.text);
  const long long tree = peak_of([&] { load(loader, unused); });
  const long long whole = peak_of([&] { load(loader, bomb.text); });
  EXPECT_LE(whole - tree, 64LL * 1024 * 1024 + 16 * static_cast<long long>(bomb.text.size()))
      << bomb.name << ", " << bomb.text.size() << " bytes of text, " << tree << " for its tree";
}

TEST(Expansion, OfASchemaIsBounded) {
  for (const Bomb& bomb : schema_bombs()) {
    expect_bounded(bomb, [](const std::string& text) { InputSchema::from_yaml(text); });
  }
}

TEST(Expansion, OfKnowledgeIsBounded) {
  for (const Bomb& bomb : knowledge_bombs()) {
    expect_bounded(bomb, [](const std::string& text) { Knowledge::from_yaml(text); });
  }
}

TEST(Expansion, OfALintedSchemaIsBounded) {
  for (const Bomb& bomb : schema_bombs()) {
    expect_bounded(bomb, [](const std::string& text) { lint_schema(text); });
  }
}

}  // namespace
}  // namespace kelp::input::bdf
