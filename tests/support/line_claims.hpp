#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "source/line_map.hpp"

namespace kelp::input::bdf {

/// A document and what the parser told of the lines that it was read from.
struct MappedDocument {
  BDFData data;
  LineMap map;
};

MappedDocument read_with_map(std::string_view text, const InputSchema& schema,
                             const ParseOptions& options);

/// Holds the line map of a text against the document: each line must be held, word for word, by the
/// record that the map names, and each line that a record holds must be claimed once. Returns a
/// sentence for each that is not; empty when nothing was lost. The options must drop no line.
std::vector<std::string> wrong_claims(std::string_view text, const InputSchema& schema,
                                      const ParseOptions& options);

/// The same for a document and its map.
std::vector<std::string> wrong_claims(std::string_view text, const MappedDocument& read);

/// Returns a sentence for each rule about the document as a whole that a parsed one breaks: modules
/// and statements refer to each other one to one and in order, locations agree, and the free lines
/// are those of the side statements.
std::vector<std::string> broken_invariants(const BDFData& data);

}  // namespace kelp::input::bdf
