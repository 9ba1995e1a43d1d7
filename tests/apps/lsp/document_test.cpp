#include "lsp/document.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "cli/file_uri.hpp"
#include "lsp/client.hpp"
#include "support/schema.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::ColumnUnit;
using test::range_json;

constexpr const char* uri = "file:///a.inp";

TEST(Documents, MakeTheChangesOfOneNotificationInTheirOrder) {
  Document document(uri, 1, "abc\ndef\n");
  document.change(2,
                  {{{"range", range_json(0, 1, 1, 1)}, {"text", "X\n"}},
                   {{"range", range_json(1, 0, 1, 2)}, {"text", "Y"}}},
                  ColumnUnit::Utf16);
  EXPECT_EQ(document.text(), "aX\nY\n");
  EXPECT_EQ(document.version(), 2);
}

TEST(Documents, TakeAChangeWithoutRangeForTheWholeText) {
  Document document(uri, 1, "abc");
  document.change(2, {{{"text", "x"}}}, ColumnUnit::Utf16);
  EXPECT_EQ(document.text(), "x");
}

TEST(Documents, RefuseAChangeThatIsNone) {
  Document document(uri, 1, "abc");
  EXPECT_THROW(document.change(2, Json::object(), ColumnUnit::Utf16), RequestError);
  EXPECT_THROW(document.change(2, {{{"range", Json::object()}, {"text", ""}}}, ColumnUnit::Utf16),
               RequestError);
  EXPECT_THROW(document.change(2, {{{"range", range_json(0, 0, 0, 1)}}}, ColumnUnit::Utf16),
               RequestError);
  EXPECT_EQ(document.text(), "abc");
}

TEST(Documents, AreReadAgainAfterAChange) {
  Document document(uri, 1, "$scf\n$end\n");
  EXPECT_EQ(document.input(input::bdf::shipped_schema()).data().modules.size(), 1U);
  document.change(2, {{{"range", range_json(2, 0, 2, 0)}, {"text", "$mp2\n$end\n"}}},
                  ColumnUnit::Utf16);
  EXPECT_EQ(document.input(input::bdf::shipped_schema()).data().modules.size(), 2U);
}

TEST(Uris, NamePathsAndBack) {
  struct Row {
    const char* uri;
    const char* path;
  };
  for (const Row& row : {
           Row{"file:///a/b%20c/%E6%B0%B4.inp", "/a/b c/\xE6\xB0\xB4.inp"},
           Row{"file:///a%25b.inp", "/a%b.inp"},
           Row{"file:///C:/a/b.inp", "C:/a/b.inp"},
       }) {
    EXPECT_EQ(path_of_uri(row.uri).value_or("none"), row.path);
    EXPECT_EQ(uri_of_path(row.path), row.uri);
  }
  EXPECT_EQ(path_of_uri("file:///c%3A/x").value_or("none"), "c:/x");
  EXPECT_EQ(path_of_uri("file://host/x").value_or("none"), "//host/x");
  EXPECT_EQ(path_of_uri("file:///a%2"), "/a%2");
  EXPECT_EQ(path_of_uri("untitled:Untitled-1"), std::nullopt);
  EXPECT_EQ(path_of_uri("file://"), std::nullopt);
}

/// A text as code points, which finds positions by counting from its begin.
class Model {
 public:
  std::vector<std::string> points;  // each as UTF-8

  std::string text() const {
    std::string all;
    for (const std::string& point : points) {
      all += point;
    }
    return all;
  }

  static std::size_t units(const std::string& point, ColumnUnit unit) {
    switch (unit) {
      case ColumnUnit::Byte:
        return point.size();
      case ColumnUnit::Utf16:
        return point.size() == 4 ? 2 : 1;
      default:
        return 1;
    }
  }

  bool ends_line(std::size_t at) const {
    return points[at] == "\n" ||
           (points[at] == "\r" && (at + 1 == points.size() || points[at + 1] != "\n"));
  }

  // A position between the two characters of a line end cannot be written.
  bool has_position(std::size_t at) const {
    return at == 0 || at == points.size() || points[at - 1] != "\r" || points[at] != "\n";
  }

  Json position(std::size_t at, ColumnUnit unit) const {
    std::size_t line = 0;
    std::size_t character = 0;
    for (std::size_t i = 0; i < at; ++i) {
      const bool is_end = ends_line(i);
      line += is_end ? 1 : 0;
      character = is_end ? 0 : character + units(points[i], unit);
    }
    return {{"line", line}, {"character", character}};
  }
};

std::vector<std::string> random_points(std::mt19937& random, std::size_t most) {
  static const std::vector<std::string> alphabet = {
      "a", "$", " ", "\n", "\r", "\r\n", "\xC3\xA4", "\xE6\xB0\xA2", "\xF0\x9F\xA7\xAA", "#"};
  std::vector<std::string> points(random() % (most + 1));
  for (std::string& point : points) {
    point = alphabet[random() % alphabet.size()];
  }
  std::vector<std::string> apart;
  for (const std::string& point : points) {
    if (point == "\r\n") {
      apart.insert(apart.end(), {"\r", "\n"});
    } else {
      apart.push_back(point);
    }
  }
  return apart;
}

class Synchronisation : public testing::TestWithParam<ColumnUnit> {};

TEST_P(Synchronisation, OfManyChangesGivesTheTextThatTheEditorHas) {
  const ColumnUnit unit = GetParam();
  std::mt19937 random(11);
  for (int round = 0; round < 60; ++round) {
    Model model{random_points(random, 30)};
    Document document(uri, 0, model.text());
    for (int step = 1; step <= 20; ++step) {
      std::size_t begin = random() % (model.points.size() + 1);
      std::size_t end = begin + random() % (model.points.size() + 1 - begin);
      begin -= model.has_position(begin) ? 0 : 1;
      end += model.has_position(end) ? 0 : 1;
      const Model added{random_points(random, 6)};
      const Json range = {{"start", model.position(begin, unit)},
                          {"end", model.position(end, unit)}};
      document.change(step, {{{"range", range}, {"text", added.text()}}}, unit);
      const auto at = [&](std::size_t index) {
        return model.points.begin() + static_cast<std::ptrdiff_t>(index);
      };
      model.points.erase(at(begin), at(end));
      model.points.insert(at(begin), added.points.begin(), added.points.end());
      ASSERT_EQ(document.text(), model.text()) << "round " << round << ", step " << step;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Units, Synchronisation,
                         testing::Values(ColumnUnit::Byte, ColumnUnit::Utf16,
                                         ColumnUnit::CodePoint));

}  // namespace
}  // namespace kelp::app::lsp
