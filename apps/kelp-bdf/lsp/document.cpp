#include "lsp/document.hpp"

#include <algorithm>
#include <utility>

#include "cli/file_uri.hpp"

namespace kelp::app::lsp {

using input::bdf::ColumnUnit;
using input::bdf::Diagnostic;
using input::bdf::ParsedInput;
using input::bdf::TextRange;

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
