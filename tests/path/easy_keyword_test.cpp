// Keywords of the header with the words that are their values.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "path/reading.hpp"

namespace kelp::input::bdf {
namespace {

std::string found_in(const std::string& header, const char* key) {
  const BDFData data = read(header + "\nGeometry\nHe 0 0 0\nEnd Geometry\n");
  std::string text;
  for (const EasyKeyword& keyword : find_easy_keywords(data, shipped_schema(), key)) {
    text += '[' + std::to_string(keyword.first) + ',' + std::to_string(keyword.last) +
            ")=" + easy_value(data, keyword) + ' ';
  }
  return text;
}

TEST(EasyKeyword, IsFoundWithItsValue) {
  struct Row {
    const char* header;
    const char* key;
    const char* found;
  };
  for (const Row& row : {
           Row{"hf/sto-3g charge=1", "charge", "[1,2)=1 "},
           Row{"hf/sto-3g charge = 1", "CHARGE", "[1,2)=1 "},
           Row{"hf/sto-3g charge -1 soc", "charge", "[1,3)=-1 "},
           Row{"hf/sto-3g spin=3", "spinmulti", "[1,2)=3 "},
           Row{"hf/sto-3g spinmulti=3", "spin", "[1,2)=3 "},
           Row{"hf/sto-3g soc charge=1 charge=2", "charge", "[2,3)=1 [3,4)=2 "},
           Row{"hf/sto-3g charge", "charge", "[1,2)= "},
           Row{"hf/sto-3g soc xyz", "soc", "[1,2)= "},
           Row{"hf/sto-3g charge # 1", "charge", "[1,2)= "},
           Row{"hf/sto-3g # charge=1", "charge", ""},
           Row{"hf/sto-3g # soc\ncharge=1", "charge", "[3,4)=1 "},
           Row{"hf/sto-3g", "hf", ""},
       }) {
    EXPECT_EQ(found_in(row.header, row.key), row.found) << row.header;
  }
}

TEST(EasyKeyword, TokensBeforeTheFirstCommentAreCounted) {
  EXPECT_EQ(tokens_before_comment(read("hf/sto-3g charge=1 # soc\nGeometry\nEnd Geometry\n")), 2U);
  EXPECT_EQ(tokens_before_comment(read("hf/sto-3g charge=1\nGeometry\nEnd Geometry\n")), 2U);
  EXPECT_EQ(tokens_before_comment(BDFData()), 0U);
}

}  // namespace
}  // namespace kelp::input::bdf
