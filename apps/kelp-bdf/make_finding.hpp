#pragma once

#include <memory>

#include "checked_input.hpp"
#include "finding.hpp"
#include "line_index.hpp"

namespace kelp::app {

class FindingContext;

/// Makes the full records of an input's findings: the exact place, the path, a hint, similar names.
/// The input must outlive it.
class FindingMaker {
 public:
  explicit FindingMaker(const CheckedInput& input);
  FindingMaker(const FindingMaker&) = delete;
  FindingMaker(FindingMaker&&) = delete;
  FindingMaker& operator=(const FindingMaker&) = delete;
  FindingMaker& operator=(FindingMaker&&) = delete;
  ~FindingMaker();

  /// Makes the record of one finding. Findings are to be given in the library's order: of several
  /// equal ones the first is about the first place.
  Finding make(const input::bdf::ValidationIssue& issue);

 private:
  std::unique_ptr<FindingContext> context_;
};

/// Makes the record of a single finding; for more than a few, make a `FindingMaker`.
Finding make_finding(const input::bdf::ValidationIssue& issue, const CheckedInput& input);

/// Makes the finding about an input that holds nothing.
Finding make_empty_input_finding(const CheckedInput& input);

/// Tells whether an issue is about a comment or a blank line inside a module. The library keeps and
/// reports them like any other line that is no keyword, but a remark is not a mistake.
bool is_about_remark(const input::bdf::ValidationIssue& issue, const CheckedInput& input);

}  // namespace kelp::app
