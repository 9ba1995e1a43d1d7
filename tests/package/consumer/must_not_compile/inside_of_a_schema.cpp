// What a schema holds is known to the library alone.
#include <kelp/input/bdf.hpp>

int main() {
  return sizeof(kelp::input::bdf::InputSchema::Impl);
}
