#pragma once

#include <cstddef>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// Returns the first geometry entry of a `$compass`; none when there is none.
RecordId find_compass_geometry(const BDFData& data, const InputSchema& schema);

/// Tells whether a header token begins a comment, which goes on to the end of its line.
bool begins_comment(const EasyToken& token);

/// Tells of each header token whether it begins a comment or stands in one.
std::vector<bool> tokens_in_comments(const std::vector<EasyToken>& tokens);

}  // namespace kelp::input::bdf
