// The core's headers are not part of the package.
#include <kelp/core/text.hpp>

int main() {}
