#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "lsp/line_table.hpp"
#include "lsp/message.hpp"
#include "lsp/settings.hpp"

namespace kelp::app::lsp {

/// An input that is open in the editor. It is read when somebody asks for the first time after a
/// change, and what was found is kept until the next one.
class Document {
 public:
  Document(std::string uri, std::int64_t version, std::string text);

  const std::string& uri() const { return uri_; }
  std::int64_t version() const { return version_; }
  const std::string& text() const { return text_; }

  /// Makes the changes of a notification, one after the other.
  /// @throws RequestError for one that is none; those before it were made.
  void change(std::int64_t version, const Json& changes, input::bdf::ColumnUnit unit);
  /// Lets go what was found with another schema or other options.
  void forget();

  /// Returns the input as it is now. The reference lives until the next change.
  const input::bdf::ParsedInput& input(const input::bdf::InputSchema& schema);
  /// Returns the findings about it, up to the most that are wanted; same lifetime.
  const std::vector<input::bdf::Diagnostic>& findings(const input::bdf::InputSchema& schema,
                                                      const Settings& settings);

  std::size_t byte_at(const Json& position, input::bdf::ColumnUnit unit) const;
  Json position(std::size_t byte, input::bdf::ColumnUnit unit) const;
  Json range(const input::bdf::TextRange& range, input::bdf::ColumnUnit unit) const;
  /// Reads a range of the client; its ends may be the wrong way round.
  input::bdf::TextRange text_range(const Json& range, input::bdf::ColumnUnit unit) const;
  const LineTable& lines() const { return lines_; }

 private:
  void set_text(std::string text);

  std::string uri_;
  std::int64_t version_;
  std::string text_;
  LineTable lines_;
  std::optional<input::bdf::ParsedInput> input_;
  std::optional<std::vector<input::bdf::Diagnostic>> findings_;
};

}  // namespace kelp::app::lsp
