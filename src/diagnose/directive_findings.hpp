#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "diagnose/directives.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// Finds what is wrong with a directive by itself.
void find_mistakes(const Directive& directive, const SourceText& source,
                   const std::function<void(const Diagnostic&)>& use);

/// Tells that nothing needed some codes of a directive, given by their indices in order.
void tell_unused(const Directive& directive, const std::vector<std::size_t>& unused,
                 const SourceText& source, const std::function<void(const Diagnostic&)>& use);

}  // namespace kelp::input::bdf
