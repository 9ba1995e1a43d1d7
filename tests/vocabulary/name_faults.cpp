// Misspelt names: the words of the header, functionals and basis sets wherever they stand.

#include <algorithm>
#include <functional>

#include "fault_writer.hpp"
#include "kelp/core/text.hpp"

namespace kelp::test {
namespace {

using input::bdf::EasyToken;
using input::bdf::InputSchema;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using input::bdf::RecordId;
using input::bdf::TextRange;
using IsKnown = std::function<bool(const std::string&)>;

class NameBreaker {
 public:
  explicit NameBreaker(FaultWriter& writer) : writer_(writer), schema_(writer.input().schema()) {}

  void break_header() {
    const std::vector<EasyToken>& tokens = writer_.input().data().easy_tokens;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (tokens[i].category == "method_spec") {
        break_specification(i);
      } else if (tokens[i].known) {
        misspell("misspelt header keyword", writer_.input().token_ranges(i).key,
                 [this](const std::string& name) { return schema_.is_known_easy_token(name); });
        drop_value(i);
      }
    }
  }

  void break_values() {
    const std::vector<Module>& modules = writer_.input().data().modules;
    for (std::size_t i = 0; i < modules.size(); ++i) {
      for (std::size_t k = 0; k < modules[i].entries.size(); ++k) {
        const ModuleEntry& entry = modules[i].entries[k];
        const RecordId record = RecordId::of_entry(i, k);
        if (modules[i].name == "scf" && entry.name == "dft") {
          break_functional("misspelt functional of a module", only_value(record));
        } else if (modules[i].name == "compass" && entry.name == "basis") {
          break_basis("misspelt basis set of a module", only_value(record));
        } else if (modules[i].name == "compass" && entry.name == "basis-block") {
          break_rows(record);
        }
      }
    }
  }

 private:
  // What is listed only: of a file of the user's own, nobody can tell.
  void misspell(std::string_view kind, const TextRange& range, const IsKnown& is_known) {
    const std::string name = writer_.text_of(range);
    if (!name.empty() && is_known(name)) {
      replace_by(kind, range, misspellings_of(name), is_known);
    }
  }

  // In a list of names that are alike, it matters which stroke is wrong.
  void try_strokes(std::string_view kind, const TextRange& range, const IsKnown& is_known) {
    const std::string name = writer_.text_of(range);
    if (!name.empty() && is_known(name)) {
      replace_by(kind, range, strokes_of(name), is_known);
    }
  }

  void mark(std::string_view kind, const TextRange& range, const IsKnown& is_known) {
    const std::string name = writer_.text_of(range);
    if (!name.empty() && is_known(name)) {
      replace_by(kind, range, with_marks(name), is_known);
    }
  }

  // Of `charge=1` and `charge 1` the value is lost.
  void drop_value(std::size_t token) {
    const TextRange key = writer_.input().token_ranges(token).key;
    const TextRange value = writer_.input().token_ranges(token).value;
    const std::vector<EasyToken>& tokens = writer_.input().data().easy_tokens;
    const auto info = schema_.easy_keyword_info(tokens[token].key);
    if (!info ||
        std::find(info->allowed.begin(), info->allowed.end(), "true") != info->allowed.end()) {
      return;  // `SpinAdapt True`
    }
    if (!value.empty()) {
      writer_.replace("header keyword without value", value, "");
    } else if (token + 1 < tokens.size() && tokens[token + 1].category == "unknown") {
      const TextRange behind = writer_.input().token_ranges(token + 1).whole;
      if (writer_.text_of({key.begin, behind.end}).find('\n') == std::string::npos) {
        writer_.replace("header keyword without value", behind, "");
      }
    }
  }

  void replace_by(std::string_view kind, const TextRange& range,
                  const std::vector<std::string>& wrong, const IsKnown& is_known) {
    for (const std::string& text : wrong) {
      if (!is_known(text)) {
        writer_.replace(kind, range, text);
      }
    }
  }

  void break_functional(std::string_view kind, const TextRange& range) {
    const auto is_known = [this](const std::string& name) {
      return schema_.is_known_functional(name);
    };
    misspell(kind, range, is_known);
    try_strokes("wrong stroke in a functional", range, is_known);
    mark("mark in a functional", range, is_known);
  }

  void break_basis(std::string_view kind, const TextRange& range) {
    const auto is_known = [this](const std::string& name) { return schema_.is_known_basis(name); };
    misspell(kind, range, is_known);
    try_strokes("wrong stroke in a basis set", range, is_known);
    mark("mark in a basis set", range, is_known);
  }

  void break_specification(std::size_t token) {
    const auto ranges = writer_.input().specification_ranges(token);
    misspell("misspelt method", ranges.method,
             [this](const std::string& name) { return schema_.is_known_method(name); });
    break_functional("misspelt functional", ranges.functional);
    break_basis("misspelt basis set", ranges.basis);
  }

  TextRange only_value(const RecordId& record) const {
    const auto ranges = writer_.input().value_ranges(record);
    return ranges.size() == 1 ? ranges[0] : TextRange{};
  }

  void break_rows(const RecordId& record) {
    for (TextRange range : writer_.input().value_ranges(record)) {
      const std::string text = writer_.text_of(range);
      if (core::text::equals_ignoring_case(text, "inline")) {
        return;
      }
      if (const std::size_t equals = text.find('='); equals != std::string::npos) {
        const std::string name(core::text::trim_view(std::string_view(text).substr(equals + 1)));
        if (text.find(',') == std::string::npos && schema_.is_known_basis(name)) {
          writer_.replace(
              "row of basis sets without =", {range.begin + equals, range.begin + equals + 1}, " ");
        }
        range = writer_.input().source().trimmed({range.begin + equals + 1, range.end});
      }
      break_basis("misspelt basis set of a module", range);
    }
  }

  FaultWriter& writer_;
  const InputSchema& schema_;
};

}  // namespace

void break_names(FaultWriter& writer) {
  NameBreaker breaker(writer);
  breaker.break_header();
  breaker.break_values();
}

}  // namespace kelp::test
