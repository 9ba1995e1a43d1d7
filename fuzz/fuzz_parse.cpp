// Parses a text under options that its first two bytes choose, validates the document, and checks
// that no line was lost or doubled and that the document holds together.

#include "checks.hpp"
#include "support/line_claims.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kelp::input::bdf;
  kelp::fuzz::Decisions decisions(data, size);
  const InputSchema& schema = kelp::fuzz::schema(decisions.flag());
  const ParseOptions options = kelp::fuzz::parse_options(decisions);
  const std::string text(decisions.rest());

  const ParseResult result = BDFParser::parse_string(text, schema, options);
  kelp::fuzz::expect_none(broken_invariants(result.data));
  if (options.validate || options.custom_unknown_policy) {
    kelp::fuzz::expect_none(wrong_claims(text, schema, options));
  }
  schema.validate(result.data, {true, true, false, false});
  BDFParser::looks_like_bdf_input(text);
  return 0;
}
