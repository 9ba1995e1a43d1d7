#include "texts.hpp"

#include <array>
#include <cstdio>
#include <string_view>

namespace kelp::bench {
namespace {

constexpr std::array<std::string_view, 4> modules = {
    "$scf\n  charge\n    0\n  spinmulti\n    1\n  guess\n    atom\n  facex\n    0.25\n"
    "  facco\n    0.8\n  rsomega\n    0.33\n  nptrad\n    75\n  grid\n    fine\n"
    "  maxiter\n    100\n  threne\n    1.0d-8\n$end\n\n",
    "$tddft\n  imethod\n    1\n  isf\n    0\n  itda\n    1\n  iact\n    1\n  iroot\n    20\n"
    "  elw\n    0.125\n  eup\n    10.5\n  idiag\n    1\n  crit_e\n    1.0e-7\n"
    "  crit_vec\n    1.0e-5\n$end\n\n",
    "$resp\n  iprt\n    1\n  norder\n    1\n  maxmem\n    2000\n  nfiles\n    1\n  imethod\n    2\n"
    "  ignore\n    1\n  rtol\n    0.001\n  grid\n    medium\n  nptrad\n    75\n"
    "  nptang\n    302\n$end\n\n",
    "$mcscf\n  actel\n    6\n  symmetry\n    1\n  spin\n    1\n  guess\n    hforb\n"
    "  iprtmo\n    2\n  macit\n    100\n  micit\n    5\n  cmin\n    0.05\n  prtcri\n    0.1\n"
    "  maxstep\n    0.25\n$end\n\n",
};

}  // namespace

std::string keywords(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += modules[i % modules.size()];
  }
  return text;
}

std::string same_modules(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += modules.front();
  }
  return text;
}

std::string atoms(std::size_t count) {
  std::string text = "#!large.bdf\nPBE0/def2-SVP\n\nGeometry\n";
  std::array<char, 96> line;
  for (std::size_t i = 0; i < count; ++i) {
    const auto at = static_cast<double>(i);
    const int length =
        std::snprintf(line.data(), line.size(), " %-2s %12.6f %12.6f %12.6f\n",
                      i % 3 == 0 ? "O" : "H", 1.1731 * at, -0.7501 + 0.0173 * at, 0.25 - 0.31 * at);
    text.append(line.data(), static_cast<std::size_t>(length));
  }
  return text + "End Geometry\n";
}

}  // namespace kelp::bench
