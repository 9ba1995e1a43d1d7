#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"bdf.format_loss", "Laying the input out would change what it says.",
     "A line that reads otherwise at another indentation: one whose first word is unknown, for "
     "example.",
     "Look at --diff; correct the line that the message names, or write with --force.", "", "",
     error},
    {"bdf.edit_value", "A value that was set would not be read back as it was given.",
     "It begins with a keyword or a '#', or has more lines than the entry takes.",
     "Give the value as the entry wants it; 'kelp-bdf explain MODULE.ENTRY' tells how.", "", "",
     error},
});

}  // namespace

std::span<const FindingText> rewrite_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
