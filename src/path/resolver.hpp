#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// The modules of a document by their canonical names, for whoever looks up many paths: to look
/// through the modules each time would take the square of their number. It knows the modules that
/// there were when it was made.
class ModuleFinder {
 public:
  ModuleFinder(const BDFData& data, const InputSchema& schema);

  /// Returns the index of the module that a path names; unset when there is none.
  std::optional<std::size_t> find(const InputSchema& schema, const ValuePath& path) const;
  /// Returns how many modules of a name, or of an alias of it, there are.
  std::size_t count(const InputSchema& schema, std::string_view name) const;

 private:
  std::unordered_map<std::string, std::vector<std::size_t>> by_name_;
};

/// Does what the public function does with a finder that knows the modules of the document.
RecordId find_record(const BDFData& data, const InputSchema& schema, const ModuleFinder& modules,
                     const ValuePath& path);

/// Returns the first geometry entry of a `$compass`; none when there is none.
RecordId find_compass_geometry(const BDFData& data, const InputSchema& schema);

/// Tells whether a header token begins a comment, which goes on to the end of its line.
bool begins_comment(const EasyToken& token);

/// Tells of each header token whether it begins a comment or stands in one.
std::vector<bool> tokens_in_comments(const std::vector<EasyToken>& tokens);

}  // namespace kelp::input::bdf
