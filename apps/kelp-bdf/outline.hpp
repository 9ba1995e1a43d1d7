#pragma once

#include <string>
#include <vector>

#include "kelp/input/bdf/outline.hpp"

namespace kelp::app {

/// The outline of a file.
struct FileOutline {
  std::string file;
  input::bdf::Outline outline;
};

/// Returns an outline as people like to read it.
std::string outline_text(const FileOutline& file);

/// Returns outlines as one JSON document.
std::string outline_json(const std::vector<FileOutline>& files);

}  // namespace kelp::app
