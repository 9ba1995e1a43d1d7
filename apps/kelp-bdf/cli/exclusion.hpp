#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::app {

/// What is left out of a folder that is searched for inputs.
class Exclusion {
 public:
  /// @param folder    what patterns with a slash are relative to, as paths below it begin
  /// @param patterns  as `core::glob::matches` takes them. One without a slash is about the names
  ///                  of files and folders at any depth, one with a slash about paths below the
  ///                  folder, or as they are written.
  Exclusion(std::string_view folder, const std::vector<std::string>& patterns);

  /// Tells whether a file or folder below that folder is left out.
  bool leaves_out(std::string_view path) const;

 private:
  std::string folder_;
  std::vector<std::string> names_;
  std::vector<std::string> paths_;
};

}  // namespace kelp::app
