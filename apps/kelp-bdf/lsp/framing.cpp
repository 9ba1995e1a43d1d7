// Bytes are kept until a whole message is there. Those of messages that were returned are dropped
// when they are more than half of what is kept, so that a long stream is not moved again and again.

#include "lsp/framing.hpp"

#include <algorithm>
#include <cstdint>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app::lsp {
namespace {

constexpr std::string_view length_field = "Content-Length";
// Nobody sends more, and a number without bounds would be an order to wait for ever.
constexpr std::int64_t most_bytes = std::int64_t{1} << 30;
constexpr std::size_t longest_header = 4096;

struct Header {
  std::size_t size = 0;       // of the header itself, with its empty line
  std::int64_t content = -1;  // bytes of the content; negative when it does not say it
  std::string_view trouble;   // empty when it is right
};

bool is_utf8(std::string_view content_type) {
  constexpr std::string_view mark = "charset=";
  const std::string lower = core::text::to_lower(content_type);
  const std::size_t at = lower.find(mark);
  return at == std::string::npos || lower.compare(at + mark.size(), 3, "utf") == 0;
}

void read_field(std::string_view line, Header& header) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) {
    header.trouble = "a line of the header is no field";
    return;
  }
  const std::string_view name = line.substr(0, colon);
  const std::string_view value = core::text::trim_view(line.substr(colon + 1));
  if (core::text::equals_ignoring_case(name, length_field)) {
    const bool is_number = value.find_first_not_of("0123456789") == std::string_view::npos;
    header.content = is_number ? core::number::parse_integer(value).value_or(-1) : -1;
    if (header.content < 0 || header.content > most_bytes) {
      header.trouble = "the length of the content is no number of bytes";
    }
  } else if (core::text::equals_ignoring_case(name, "Content-Type") && !is_utf8(value)) {
    header.trouble = "the content is not UTF-8";
  }
}

// Returns nothing when the header has not arrived as a whole.
std::optional<Header> read_header(std::string_view bytes) {
  Header header;
  while (true) {
    const std::size_t end = bytes.find('\n', header.size);
    if (end == std::string_view::npos) {
      if (bytes.size() - header.size <= longest_header) {
        return std::nullopt;
      }
      header.trouble = "the header is too long";
      return header;
    }
    std::string_view line = bytes.substr(header.size, end - header.size);
    header.size = end + 1;
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    if (line.empty()) {
      break;
    }
    read_field(line, header);
    if (!header.trouble.empty()) {
      return header;
    }
  }
  if (header.content < 0) {
    header.trouble = "the header does not say how long the content is";
  }
  return header;
}

}  // namespace

void MessageReader::feed(std::string_view bytes) {
  bytes_ += bytes;
}

std::optional<StreamItem> MessageReader::next() {
  if (is_lost_ && !find_header()) {
    return std::nullopt;
  }
  const std::string_view rest = std::string_view(bytes_).substr(begin_);
  const std::optional<Header> header = read_header(rest);
  if (!header) {
    return std::nullopt;
  }
  if (!header->trouble.empty()) {
    return lose_track(std::string(header->trouble));
  }
  const std::size_t size = static_cast<std::size_t>(header->content);
  if (rest.size() - header->size < size) {
    return std::nullopt;
  }
  StreamItem item{true, std::string(rest.substr(header->size, size))};
  drop(header->size + size);
  return item;
}

std::optional<StreamItem> MessageReader::lose_track(std::string reason) {
  is_lost_ = true;
  drop(1);  // or else the same header would be found
  return StreamItem{false, std::move(reason)};
}

bool MessageReader::find_header() {
  const auto same_letter = [](char left, char right) {
    return core::text::to_lower(left) == core::text::to_lower(right);
  };
  const auto begin = bytes_.begin() + static_cast<std::ptrdiff_t>(begin_);
  const auto found =
      std::search(begin, bytes_.end(), length_field.begin(), length_field.end(), same_letter);
  is_lost_ = found == bytes_.end();
  const auto passed = static_cast<std::size_t>(found - begin);
  // Its beginning may be there already.
  drop(is_lost_ ? passed - std::min(passed, length_field.size() - 1) : passed);
  return !is_lost_;
}

void MessageReader::drop(std::size_t count) {
  begin_ += count;
  if (begin_ > bytes_.size() / 2) {
    bytes_.erase(0, begin_);
    begin_ = 0;
  }
}

std::string framed(std::string_view content) {
  return std::string(length_field) + ": " + std::to_string(content.size()) + "\r\n\r\n" +
         std::string(content);
}

}  // namespace kelp::app::lsp
