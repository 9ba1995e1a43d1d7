#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/outline.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// What a file computes, and its outline.
struct FileOutline {
  std::string file;
  input::bdf::Outline outline;
  input::bdf::Calculation calculation;

  static constexpr std::size_t usual_width = 100;
  std::size_t width = usual_width;  ///< of the text, in columns
};

/// Returns what a file computes, and below that its outline, as people like to read it, what names
/// mean beside them.
std::string outline_text(const FileOutline& file);

/// Returns all that is known of an input as JSON, on several lines without a line end.
std::string input_json(const std::string& file, const input::bdf::ParsedInput& input,
                       input::bdf::Language language);

/// Returns the lines of an outline that tell what a file computes; none when nothing is known.
std::vector<std::string> calculation_lines(const input::bdf::Calculation& calculation);

/// One line of a value, without comment, and where it stands.
struct ValueLine {
  std::string text;
  input::bdf::TextRange range;
};

/// What stands at a path in a file.
struct FileValue {
  std::string path;
  std::string file;
  input::bdf::SourceText source;
  std::optional<std::vector<ValueLine>> lines;  ///< unset when there is nothing at the path
};

/// Returns values as one JSON document.
std::string values_json(const std::vector<FileValue>& files);

}  // namespace kelp::app
