#include "model/molecule_names.hpp"

namespace kelp::input::bdf {

NumberHomes homes_of_numbers(const BDFData& data, const InputSchema& schema) {
  if (data.mode == InputMode::Module) {
    return {false, true};
  }
  return {true, data.find_module(schema.canonical_module(scf_module)) != nullptr};
}

}  // namespace kelp::input::bdf
