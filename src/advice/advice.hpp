#pragma once

#include <functional>
#include <span>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

class Job;
class Report;

/// One piece of advice: what it is called, and what finds it. How grave it is stands beside its
/// meaning in the table of texts.
struct Rule {
  const char* code;  ///< theme and name, `electrons.spin_parity`
  void (*check)(const Job&, Report&);
};

/// Returns the rules of all themes, in order. The span of each lives for ever.
std::vector<std::span<const Rule>> all_rules();

/// Hands over what is to be said about an input as a calculation, in the order of the text.
/// `folder` is null when nothing is known of the files beside it. What `use` throws is passed on.
void advise(const ParsedInput& input, const InputFolder* folder,
            const std::function<void(const Diagnostic&)>& use);

}  // namespace kelp::input::bdf
