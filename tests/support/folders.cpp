#include "support/folders.hpp"

namespace kelp::test {

std::filesystem::path source_folder() {
  return KELP_SOURCE_DIR;
}

std::filesystem::path data_folder() {
  return source_folder() / "tests" / "data";
}

std::filesystem::path corpus_folder() {
  return KELP_CORPUS_DIR;
}

std::string shipped_schema_file() {
  return KELP_SOURCE_DIR "/schemas/input/bdf.yaml";
}

}  // namespace kelp::test
