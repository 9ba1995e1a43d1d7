// The language server: lines of a text are messages, or the text is a stream. Whatever it holds,
// what is sent can be framed and read again.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "checks.hpp"
#include "kelp/core/text.hpp"
#include "lsp/framing.hpp"
#include "lsp/server.hpp"

namespace {

using namespace kelp::app::lsp;

void check_answer(const Json& message) {
  MessageReader reader;
  reader.feed(framed(text_of(message)));
  const auto item = reader.next();
  const bool is_right = item && item->is_message &&
                        !Json::parse(item->text, nullptr, false).is_discarded() && !reader.next();
  kelp::fuzz::expect_none(is_right ? std::vector<std::string>()
                                   : std::vector<std::string>{"an answer is malformed"});
}

std::string framed_lines(std::string_view text) {
  std::string stream;
  while (!text.empty()) {
    stream += framed(kelp::core::text::take_line(text));
  }
  return stream;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ServerSetup setup;
  setup.load_schema = [](const std::string&) { return kelp::fuzz::schema(false); };
  Server server(setup, check_answer);
  MessageReader reader;
  reader.feed(text.starts_with('{') ? framed_lines(text) : std::string(text));
  while (const auto item = reader.next()) {
    server.handle(item->is_message ? read_message(item->text)
                                   : malformed_message(ErrorCode::ParseError, item->text));
    server.publish_findings();
  }
  return 0;
}
