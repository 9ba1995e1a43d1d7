// Editing the header of an easy input.

#include <optional>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "model/from_schema.hpp"
#include "model/script_name.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

bool is_blank(const std::string& text) {
  return core::text::trim_view(text).empty();
}

/// Tells which tokens set a keyword; a method specification never does.
class KeywordMatch {
 public:
  KeywordMatch(const InputSchema& schema, std::string_view key)
      : has_key_(&SchemaAccess::impl(schema).control_keyword_aliases, key) {}

  bool operator()(const EasyToken& token) const noexcept {
    return token.category != "method_spec" && has_key_(token.key);
  }
  std::string key() const { return core::text::to_lower(has_key_.wanted()); }

 private:
  CanonicalMatch has_key_;
};

}  // namespace

// The interface takes its texts by value, whether they are kept or not.
// NOLINTBEGIN(performance-unnecessary-value-param)

EasyToken BDFEditor::make_easy_token(std::string text) const {
  return easy_token_from_text(core::text::trim(text), schema_, PartBlanks::Kept);
}

void BDFEditor::set_easy_tokens(const std::vector<std::string>& tokens) {
  std::vector<EasyToken> made;
  made.reserve(tokens.size());
  for (const std::string& text : tokens) {
    if (!is_blank(text)) {
      made.push_back(make_easy_token(text));
    }
  }
  data_.easy_tokens = std::move(made);
}

void BDFEditor::add_easy_token(std::string text) {
  if (!is_blank(text)) {
    data_.easy_tokens.push_back(make_easy_token(std::move(text)));
  }
}

void BDFEditor::set_easy_keyword(std::string key, std::optional<std::string> value) {
  const KeywordMatch matches(schema_, key);
  std::string text = matches.key();
  if (value) {
    text += '=' + core::text::trim(*value);
  }
  EasyToken made = make_easy_token(std::move(text));
  for (EasyToken& token : data_.easy_tokens) {
    if (matches(token)) {
      made.location = token.location;
      token = std::move(made);
      return;
    }
  }
  data_.easy_tokens.push_back(std::move(made));
}

bool BDFEditor::remove_easy_keyword(std::string_view key) {
  // The key may live in a token that is about to go.
  const std::string wanted(key);
  return std::erase_if(data_.easy_tokens, KeywordMatch(schema_, wanted)) > 0;
}

void BDFEditor::set_script_name(std::string name) {
  data_.script_name = normalize_script_name(name);
}

// NOLINTEND(performance-unnecessary-value-param)

}  // namespace kelp::input::bdf
