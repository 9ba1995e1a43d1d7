#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::app {

/// How many findings there are of each code, and in each file.
class Summary {
 public:
  /// Counts a finding. The findings of a file come one after the other.
  void add(std::string_view file, input::bdf::Severity severity, const std::string& code);

  /// Returns tables of codes, the gravest and most frequent first, and of files in their order;
  /// empty for no findings.
  std::string text() const;

 private:
  struct OfCode {
    std::size_t findings = 0;
    std::size_t files = 0;
    std::size_t last_file = 0;  // its number, from 1 on
  };
  struct OfFile {
    std::string name;
    std::array<std::size_t, 3> counts{};  // errors, warnings, notes
  };

  std::map<std::pair<input::bdf::Severity, std::string>, OfCode> codes_;
  std::vector<OfFile> files_;
};

}  // namespace kelp::app
