#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/validation.hpp"

namespace kelp::app {

/// A place in a text.
struct Position {
  std::size_t line = 1;    ///< counted from 1
  std::size_t column = 1;  ///< code points, counted from 1
  std::size_t byte = 0;    ///< from the beginning of the file
};

/// Part of one line; `end` is behind the last code point.
struct Range {
  Position start;
  Position end;
};

/// One finding about one file. All forms of output are made from this record.
struct Finding {
  std::string file;
  std::string code;
  input::bdf::ValidationSeverity severity = input::bdf::ValidationSeverity::Warning;
  std::string message;               ///< the library's own text
  std::optional<Range> range;        ///< unset when the finding concerns the file as a whole
  std::string source_line;           ///< the line of the range; of a long line, what is around it
  std::size_t source_line_byte = 0;  ///< where `source_line` begins in the file
  std::string label;                 ///< what is wrong about the range, in few words; may be empty
  std::vector<std::string> help;     ///< what to do about it
  std::vector<std::string> suggestions;  ///< names that may have been meant
  std::string path;                      ///< for example scf.charge or scf#2.charge; may be empty
};

}  // namespace kelp::app
