#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto warning = Severity::Warning;

constexpr auto texts = std::to_array<FindingText>({
    {"numbers.out_of_sense",
     "A number is none that the entry can have by what it means: a negative threshold, a "
     "dielectric "
     "constant below 1, a share in percent.",
     "A sign or the exponent is wrong, or the number is in another unit.", "Correct the number.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\nthrene\n  1.d8\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\nthrene\n  1.d-8\n$end\n",
     warning},
});

}  // namespace

std::span<const FindingText> numbers_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
