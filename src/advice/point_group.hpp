#pragma once

#include <string>
#include <string_view>

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// What the value of `group` is.
enum class GroupForm : std::int32_t {
  None = 0,            ///< nothing
  Real,                ///< a group that the program works with: `D(2h)`, `O`, `C(LIN)`
  Complex,             ///< a group that exists, but has complex representations: `C(3)`
  Generators,          ///< `gen(...)`
  WithoutParentheses,  ///< one of the two above as chemists write it: `D2h`
  Unknown,             ///< anything else
};

/// The point group that is asked for.
struct PointGroup {
  Setting setting;  ///< `group` of the `$compass`, else of the header
  GroupForm form = GroupForm::None;
  std::string name;  ///< in lower case without blanks: `d(2h)`; for messages take the setting's

  /// Tells whether it is one of the groups that the program works with.
  explicit operator bool() const { return form == GroupForm::Real; }
};

/// Tells what a text says as the value of `group`.
GroupForm group_form(std::string_view text);

/// Returns the point group of a system; one of form `None` when none is named.
PointGroup point_group_of(const Job& job, const System& system);

/// Tells whether a group is sure to have representations of more than one dimension.
bool is_non_abelian(const Job& job, const PointGroup& group);

}  // namespace kelp::input::bdf
