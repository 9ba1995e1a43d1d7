#include "kelp/input/bdf/version.hpp"

namespace kelp::input::bdf {

const char* library_version() noexcept {
  return KELP_BDF_INP_VERSION;
}

}  // namespace kelp::input::bdf
