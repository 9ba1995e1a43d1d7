#pragma once

// Published inputs, kept outside the project: inputs/ and fragments/, each with a list INDEX.tsv.

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/folders.hpp"

namespace kelp::test {

/// One published text.
struct CorpusInput {
  std::string name;     ///< inputs/water.inp
  std::string suspect;  ///< what seemed wrong to those who collected it; "-" when nothing did
  std::string text;

  /// Tells whether nothing is wrong with it: comments in Chinese are no fault.
  bool is_clean() const;
};

/// Returns all texts, the files in the order of their lists; none when there is no such folder.
const std::vector<CorpusInput>& corpus();

/// What the tests compare of a finding.
struct Found {
  std::size_t line = 0;  ///< of what is marked; 0 when nothing is
  std::string code;
  std::string message;
  bool is_error = false;
};

/// Diagnoses a text with unknown names as errors, without advice.
std::vector<Found> findings_in(std::string_view text);

/// Cuts a text into lines without their line ends.
std::vector<std::string> lines_of(std::string_view text);

/// Joins lines to a text.
std::string text_of(const std::vector<std::string>& lines);

}  // namespace kelp::test

/// Skips a test when the published inputs are not there.
#define KELP_NEED_CORPUS()                                                   \
  if (kelp::test::corpus().empty()) {                                        \
    GTEST_SKIP() << "no published inputs in " << kelp::test::corpus_folder() \
                 << " (KELP_CORPUS_DIR)";                                    \
  }                                                                          \
  static_assert(true, "")
