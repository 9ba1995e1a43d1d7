// Symmetry without a search: a plane through all atoms, or one of the seven operations that change
// nothing but signs of coordinates, taken about the centre of charge. People draw molecules so.

#include "advice/evident_symmetry.hpp"

#include <algorithm>
#include <cmath>

namespace kelp::input::bdf {
namespace {

using Vector = std::array<double, 3>;

constexpr double tolerance = 1e-4;

Vector difference(const Vector& left, const Vector& right) {
  return {left[0] - right[0], left[1] - right[1], left[2] - right[2]};
}

double dot(const Vector& left, const Vector& right) {
  return left[0] * right[0] + left[1] * right[1] + left[2] * right[2];
}

Vector cross(const Vector& left, const Vector& right) {
  return {left[1] * right[2] - left[2] * right[1], left[2] * right[0] - left[0] * right[2],
          left[0] * right[1] - left[1] * right[0]};
}

// The longest of the vectors that `of` makes from the centres.
template <typename Of>
Vector longest(const std::vector<Centre>& centres, Of of) {
  Vector best = {0, 0, 0};
  for (const Centre& centre : centres) {
    const Vector vector = of(centre);
    best = dot(vector, vector) > dot(best, best) ? vector : best;
  }
  return best;
}

bool is_planar(const std::vector<Centre>& centres) {
  const Vector& origin = centres.front().position;
  const auto from_origin = [&](const Centre& it) { return difference(it.position, origin); };
  const Vector axis = longest(centres, from_origin);
  const Vector normal =
      longest(centres, [&](const Centre& it) { return cross(axis, from_origin(it)); });
  const double height = std::sqrt(dot(normal, normal)) * tolerance;
  return std::all_of(centres.begin(), centres.end(), [&](const Centre& it) {
    return std::abs(dot(normal, from_origin(it))) <= height;
  });
}

Vector centre_of_charge(const std::vector<Centre>& centres) {
  Vector sum = {0, 0, 0};
  double charge = 0;
  for (const Centre& centre : centres) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      sum[axis] += centre.element * centre.position[axis];
    }
    charge += centre.element;
  }
  return charge > 0 ? Vector{sum[0] / charge, sum[1] / charge, sum[2] / charge} : sum;
}

bool is_kept_by(const Vector& signs, const std::vector<Centre>& centres) {
  const Vector middle = centre_of_charge(centres);
  return std::all_of(centres.begin(), centres.end(), [&](const Centre& centre) {
    Vector image = difference(centre.position, middle);
    for (std::size_t axis = 0; axis < 3; ++axis) {
      image[axis] = middle[axis] + signs[axis] * image[axis];
    }
    return std::any_of(centres.begin(), centres.end(), [&](const Centre& other) {
      const Vector apart = difference(other.position, image);
      return other.element == centre.element && dot(apart, apart) < tolerance * tolerance;
    });
  });
}

}  // namespace

bool has_evident_symmetry(const Geometry& geometry) {
  // Each atom is compared with each, and large molecules seldom have any.
  constexpr std::size_t most = 200;
  const std::size_t size = geometry.size().value_or(0);
  if (size == 0 || size > most) {
    return false;
  }
  if (size <= 3) {
    return true;
  }
  if (geometry.form != GeometryForm::Cartesian) {
    return false;
  }
  if (is_planar(geometry.centres)) {
    return true;
  }
  for (unsigned code = 1; code < 8; ++code) {
    const Vector signs = {(code & 1U) != 0 ? -1.0 : 1.0, (code & 2U) != 0 ? -1.0 : 1.0,
                          (code & 4U) != 0 ? -1.0 : 1.0};
    if (is_kept_by(signs, geometry.centres)) {
      return true;
    }
  }
  return false;
}

}  // namespace kelp::input::bdf
