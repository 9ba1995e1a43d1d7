#pragma once

#include <string>
#include <vector>

#include "kelp/input/bdf/difference.hpp"

namespace kelp::app {

/// Two inputs and in what they differ.
struct ComparedInputs {
  std::string before;  ///< names, as the user gave them
  std::string after;
  const input::bdf::SourceText& before_source;
  const input::bdf::SourceText& after_source;
  std::vector<input::bdf::InputDifference> differences;
};

/// Returns differences as people like to read them; empty when there are none.
std::string differences_text(const ComparedInputs& compared, bool colour);

/// Returns differences as one JSON document.
std::string differences_json(const ComparedInputs& compared);

}  // namespace kelp::app
