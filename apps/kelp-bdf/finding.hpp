#pragma once

#include <string>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// A diagnostic with the text that it is about.
struct Finding {
  std::string file;
  input::bdf::SourceText source;
  input::bdf::Diagnostic diagnostic;
};

}  // namespace kelp::app
