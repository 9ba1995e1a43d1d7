#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

/// A keyword of the header: [first, last) among its words. What follows the first is the value in
/// the form "charge 1".
struct EasyKeyword {
  std::size_t first = 0;
  std::size_t last = 0;
};

/// Returns where a keyword stands in the header. A method specification is none, and a remark holds
/// none.
std::vector<EasyKeyword> find_easy_keywords(const input::bdf::BDFData& data,
                                            const input::bdf::InputSchema& schema,
                                            const std::string& key);

/// Returns the value of a keyword; empty when it has none.
std::string easy_value(const input::bdf::BDFData& data, const EasyKeyword& keyword);

/// Returns the number of header words before the first remark.
std::size_t words_before_remark(const input::bdf::BDFData& data);

}  // namespace kelp::app
