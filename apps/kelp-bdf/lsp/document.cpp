#include "lsp/document.hpp"

#include <algorithm>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::app::lsp {

using input::bdf::ColumnUnit;
using input::bdf::Diagnostic;
using input::bdf::ParsedInput;
using input::bdf::TextRange;

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

Document::Document(std::string uri, std::int64_t version, std::string text)
    : uri_(std::move(uri)), version_(version) {
  set_text(std::move(text));
}

void Document::set_text(std::string text) {
  text_ = std::move(text);
  lines_ = LineTable(text_);
  forget();
}

void Document::forget() {
  input_.reset();
  findings_.reset();
}

void Document::change(std::int64_t version, const Json& changes, ColumnUnit unit) {
  if (!changes.is_array()) {
    throw RequestError(ErrorCode::InvalidParams, "'contentChanges' is no list");
  }
  version_ = version;
  for (const Json& change : changes) {
    std::string text = text_member(change, "text");
    if (!change.contains("range")) {
      set_text(std::move(text));
      continue;
    }
    const TextRange range = text_range(change["range"], unit);
    std::string whole = std::move(text_);
    whole.replace(range.begin, range.end - range.begin, text);
    set_text(std::move(whole));
  }
}

const ParsedInput& Document::input(const input::bdf::InputSchema& schema) {
  if (!input_) {
    input_.emplace(text_, schema);
  }
  return *input_;
}

const std::vector<Diagnostic>& Document::findings(const input::bdf::InputSchema& schema,
                                                  const Settings& settings) {
  if (!findings_) {
    input::bdf::DiagnoseOptions wanted = settings.wanted;
    if (const std::optional<std::string> path = path_of_uri(uri_)) {
      wanted.folder = input::bdf::input_folder_of(*path);
    }
    std::vector<Diagnostic> found;
    diagnose(input(schema), wanted, [&](const Diagnostic& diagnostic) {
      if (found.size() < settings.most_findings) {
        found.push_back(diagnostic);
      }
    });
    findings_ = std::move(found);
  }
  return *findings_;
}

std::size_t Document::byte_at(const Json& position, ColumnUnit unit) const {
  return lines_.byte_at(
      text_, {number_member(position, "line"), number_member(position, "character")}, unit);
}

Json Document::position(std::size_t byte, ColumnUnit unit) const {
  const Position found = lines_.position(text_, byte, unit);
  return {{"line", found.line}, {"character", found.character}};
}

Json Document::range(const TextRange& range, ColumnUnit unit) const {
  return {{"start", position(range.begin, unit)},
          {"end", position(std::max(range.begin, range.end), unit)}};
}

TextRange Document::text_range(const Json& range, ColumnUnit unit) const {
  const std::size_t one = byte_at(member(range, "start"), unit);
  const std::size_t other = byte_at(member(range, "end"), unit);
  return {std::min(one, other), std::max(one, other)};
}

}  // namespace kelp::app::lsp
