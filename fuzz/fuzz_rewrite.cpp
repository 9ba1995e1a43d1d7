// Reads any bytes as BDF does, and changes them by text edits: without a change no byte differs;
// what is returned is what the edits make of the text, one by one as well as all at once; what is
// there already stays; a layout is laid out the same again.

#include <string>

#include "checks.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace {

using namespace kelp::input::bdf;
using kelp::fuzz::Decisions;

// From the last to the first, so that those still to come keep their ranges.
std::string applied_one_by_one(std::string text, const std::vector<TextEdit>& edits) {
  for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
    text.replace(edit->range.begin, edit->range.size(), edit->text);
  }
  return text;
}

void expect_consistent(const ParsedInput& input, const Rewrite& rewrite) {
  const std::string text(input.source().text());
  if (applied_one_by_one(text, rewrite.edits) != rewrite.text ||
      apply_edits(text, rewrite.edits) != rewrite.text) {
    kelp::fuzz::expect_none({"the edits do not lead to the text"});
  }
  if (!rewrite.error.empty() && !rewrite.edits.empty()) {
    kelp::fuzz::expect_none({"a refused change has edits"});
  }
}

Edit edit_from(Decisions& decisions) {
  Edit edit;
  edit.allow_unknown_names = decisions.flag();
  if (decisions.flag()) {
    edit.charge = static_cast<int>(decisions.byte()) - 100;
  }
  if (decisions.flag()) {
    edit.multiplicity = static_cast<int>(decisions.byte());
  }
  for (std::size_t i = decisions.below(4); i > 0; --i) {
    const AssignmentResult read = parse_assignment(decisions.text());
    if (read.assignment) {
      edit.assignments.push_back(*read.assignment);
    }
  }
  for (std::size_t i = decisions.below(3); i > 0; --i) {
    const PathResult read = parse_path(decisions.text());
    if (read.path) {
      edit.unset.push_back(*read.path);
    }
  }
  if (decisions.flag()) {
    AtomRecord atom;
    atom.element = "H";
    atom.x = decisions.byte() / 7.0;
    edit.geometry = NewGeometry{{atom, atom}, LengthUnit::Angstrom, std::nullopt};
  }
  return edit;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Decisions decisions(data, size);
  const InputSchema& schema = kelp::fuzz::schema(decisions.flag());
  const Edit edit = edit_from(decisions);
  const std::string text(decisions.rest());
  const ParsedInput input(text, schema);
  if (!text_edits(input, input.data()).edits.empty()) {
    kelp::fuzz::expect_none({"without a change something was changed"});
  }
  const Rewrite edited = edit_input(input, edit);
  expect_consistent(input, edited);
  const Rewrite laid_out = format_input(input);
  expect_consistent(input, laid_out);
  if (laid_out.error.empty() && laid_out.losses.empty() &&
      format_input(ParsedInput(laid_out.text, schema)).text != laid_out.text) {
    kelp::fuzz::expect_none({"a layout is laid out otherwise"});
  }
  return 0;
}
