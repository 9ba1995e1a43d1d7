// Reads any bytes as the path of a value, and behind a NUL byte as an input to look for it in: a
// path is the same again when it is written and read, what is at fault lies in the text, and what
// is found by a path has one.

#include <string>

#include "checks.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace {

using namespace kelp::input::bdf;

void expect(bool condition, const char* otherwise) {
  if (!condition) {
    kelp::fuzz::expect_none({otherwise});
  }
}

void look_up(const ValuePath& path, const ParsedInput& input) {
  const RecordId record = find_record(input, path);
  find_value(input, path);
  path_hint(input.schema(), path);
  paths_of_name(input.data(), input.schema(), path.name);
  const std::string name = path_of(input.data(), record);
  if (!name.empty()) {
    const PathResult again = parse_path(name);
    expect(!again.path || find_record(input, *again.path) == record,
           "the path of a record leads to another one");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelp::fuzz::Decisions decisions(data, size);
  const std::string text = decisions.text();
  parse_assignment(text);
  const PathResult read = parse_path(text);
  if (!read.path) {
    expect(!read.error.empty(), "nothing is said of a text that is no path");
    expect(read.range.begin <= read.range.end && read.range.end <= text.size(),
           "what is at fault leaves the text");
    return 0;
  }
  expect(parse_path(to_string(*read.path)).path == read.path, "a path is read back as another one");
  const std::string rest(decisions.rest());
  for (const bool small : {true, false}) {
    look_up(*read.path, ParsedInput(rest, kelp::fuzz::schema(small)));
  }
  return 0;
}
