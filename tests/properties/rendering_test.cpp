// Reading what was written and writing it again changes nothing. There are exceptions, which the
// generated texts avoid and `rendering_exceptions_test.cpp` shows.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "input_text.hpp"
#include "read_back.hpp"

namespace kelp::input::bdf {
namespace {

/// The one change that is always made: an easy input has an empty line between its geometry and its
/// body, which is read as a line of the body, so that the next writing puts another one before it.
std::string with_growing_gap(const std::string& text, InputMode mode) {
  if (mode == InputMode::Module) {
    return text;
  }
  const std::string end = "\nEnd Geometry\n";
  const std::size_t body = text.find(end) + end.size();
  return body == text.size() ? text : text.substr(0, body) + '\n' + text.substr(body);
}

void expect_stable(const std::string& text, const ParseOptions& options) {
  const BDFData first = read(text, options);
  const std::string once = written(first);
  const BDFData second = read(once, options);
  RC_ASSERT((second.mode == InputMode::Module) == (first.mode == InputMode::Module));
  const std::string twice = written(second);
  RC_ASSERT(twice == with_growing_gap(once, first.mode));
  RC_ASSERT(written(read(twice, options)) == with_growing_gap(twice, first.mode));
}

ParseOptions any_options() {
  ParseOptions options;
  options.custom_unknown_policy = chance();
  options.validate = chance();
  options.unknown_policy = pick_number(3);
  return options;
}

TextStyle any_style(const ParseOptions& options) {
  TextStyle style;
  style.module_input = chance();
  style.unknown_children = !options.custom_unknown_policy;
  return style;
}

RC_GTEST_PROP(WritingWhatWasRead, IsStableAfterTheFirstTime, ()) {
  const ParseOptions options = any_options();
  expect_stable(*input_text(any_style(options)), options);
}

RC_GTEST_PROP(WritingWhatWasRead, EndsInExactlyOneLineFeed, ()) {
  const std::string text = written(read(*input_text(any_style({}))));
  RC_ASSERT(text.back() == '\n');
  RC_ASSERT(text.size() == 1 || (text[text.size() - 2] != '\n' && text[text.size() - 2] != '\r'));
}

}  // namespace
}  // namespace kelp::input::bdf
