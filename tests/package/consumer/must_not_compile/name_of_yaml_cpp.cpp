// The public headers do not bring in yaml-cpp, installed or not.
#include <kelp/input/bdf.hpp>

int main() {
  YAML::Node node;
}
