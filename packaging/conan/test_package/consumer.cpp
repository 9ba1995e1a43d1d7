// Ends with 0 when the library finds its vocabulary and knows a module.

#include <kelp/input/bdf.hpp>

int main() {
  return kelp::input::bdf::default_schema().is_known_module("scf") ? 0 : 1;
}
