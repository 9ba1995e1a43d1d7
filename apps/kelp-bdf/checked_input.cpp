#include "checked_input.hpp"

#include <utility>

namespace kelp::app {

CheckedInput::CheckedInput(std::string file_name, std::string file_text,
                           const input::bdf::InputSchema& vocabulary)
    : name(std::move(file_name)), source(std::move(file_text)), schema(vocabulary) {
  // With validation on, the parser keeps every line.
  input::bdf::ParseOptions options;
  options.validate = true;
  result = input::bdf::BDFParser::parse_string(source.text(), schema, options);
}

}  // namespace kelp::app
