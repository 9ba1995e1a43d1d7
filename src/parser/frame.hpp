#pragma once

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// What is said of an input that holds nothing but comments and blank lines.
inline constexpr const char* empty_input_message = "BDF input is empty";

/// Reads a whole input into a document. Returns false, with the comments read, when there is
/// nothing but comments and blank lines. `options` decide only about lines that the schema does not
/// know; nothing is validated.
bool read_input(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                BDFData& data);

// What the preamble and the header have in common.

/// Moves past a blank line that belongs to no record.
void skip_blank(LineReader& reader);

/// Moves a comment line in front of the body into the document.
void take_leading_line(LineReader& reader, BDFData& data);

}  // namespace kelp::input::bdf
