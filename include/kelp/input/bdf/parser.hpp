#pragma once

/// @file
/// From text to document.

#include <cstdint>
#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// What parsing does beyond reading. The defaults lose nothing and report unknown names as errors.
struct ParseOptions {
  /// Whether `unknown_policy` decides about unknown names; if not, they are errors.
  bool custom_unknown_policy = false;
  /// Whether the document is validated. Without this and without a custom policy, the parser drops
  /// those lines inside modules that the schema does not know (comments excepted).
  bool validate = true;
  /// 2: unknown names are errors; 1: warnings; any other value: warnings if `report_unknown`.
  std::int32_t unknown_policy = 0;
  /// Whether unknown names are reported where the policy leaves it open.
  bool report_unknown = false;
};

/// Reads BDF input. Stateless; any number of threads may parse with one schema.
class KELP_BDF_INP_EXPORT BDFParser {
 public:
  /// Reads a text. Problems of the input are in the result, never thrown; only a failed allocation
  /// throws.
  static ParseResult parse_string(std::string_view text, const InputSchema& schema,
                                  const ParseOptions& options);

  /// Reads a file, given by its UTF-8 path. A file that cannot be read gives a result whose `error`
  /// names the path and the cause; nothing is thrown.
  static ParseResult parse_file(const std::string& path, const InputSchema& schema,
                                const ParseOptions& options);

  /// Tells from the first significant line whether a text is likely to be a BDF input. Cheap; false
  /// for a text without such a line.
  static bool looks_like_bdf_input(std::string_view text);
};

}  // namespace kelp::input::bdf
