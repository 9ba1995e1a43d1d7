#include "cli/file_uri.hpp"

#include "kelp/core/resource.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

constexpr std::string_view file_scheme = "file://";

int digit_of(char byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  const std::size_t at = digits.find(core::text::to_lower(byte));
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

std::string decoded(std::string_view text) {
  constexpr int base = 16;
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool is_code = text[at] == '%' && at + 2 < text.size() && digit_of(text[at + 1]) >= 0 &&
                         digit_of(text[at + 2]) >= 0;
    plain += is_code ? static_cast<char>(digit_of(text[at + 1]) * base + digit_of(text[at + 2]))
                     : text[at];
    at += is_code ? 2 : 0;
  }
  return plain;
}

bool is_letter(char byte) {
  const char lower = core::text::to_lower(byte);
  return lower >= 'a' && lower <= 'z';
}

bool begins_with_drive(std::string_view path) {
  return path.size() >= 2 && is_letter(path[0]) && path[1] == ':';
}

}  // namespace

std::optional<std::string> path_of_uri(std::string_view uri) {
  if (!uri.starts_with(file_scheme)) {
    return std::nullopt;
  }
  uri.remove_prefix(file_scheme.size());
  const std::size_t root = uri.find('/');
  if (root == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view host = uri.substr(0, root);
  std::string path = decoded(uri.substr(root));
  if (!host.empty() && host != "localhost") {
    return "//" + std::string(host) + path;
  }
  // file:///C:/x names C:/x.
  return begins_with_drive(std::string_view(path).substr(1)) ? path.substr(1) : path;
}

std::string uri_of_path(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::string_view plain = "/-._~:";
  std::string uri(file_scheme);
  uri += begins_with_drive(path) ? "/" : "";
  for (const char byte : path) {
    const auto code = static_cast<unsigned char>(byte);
    if (byte == '\\') {
      uri += '/';
    } else if (is_letter(byte) || (byte >= '0' && byte <= '9') ||
               plain.find(byte) != std::string_view::npos) {
      uri += byte;
    } else {
      uri += '%';
      uri += digits[code >> 4U];
      uri += digits[code & 0xFU];
    }
  }
  return uri;
}

const std::string& findings_page() {
  static const std::string uri = [] {
    constexpr int levels = 6;
    const std::string path = core::resource::locate_file("docs/findings.md", {}, {}, levels);
    return path.empty() ? path : uri_of_path(path);
  }();
  return uri;
}

}  // namespace kelp::app
