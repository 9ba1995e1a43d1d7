#include "edit.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "did_you_mean.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFEditor;
using input::bdf::EasyKeyword;
using input::bdf::EasyToken;
using input::bdf::EntryValueKind;
using input::bdf::InputMode;
using input::bdf::InputSchema;
using input::bdf::ModuleEntry;
using input::bdf::ValuePath;
using Kind = input::bdf::PathKind;

[[noreturn]] void refuse(const WrittenPath& path, std::string_view reason) {
  throw ImpossibleEdit(fmt::format("cannot change '{}': {}", path.text, reason));
}

std::vector<std::string> split_values(std::string_view text) {
  std::vector<std::string> lines;
  if (text.empty()) {
    return lines;
  }
  for (std::size_t cut = 0; cut != std::string_view::npos;) {
    cut = text.find("\\n");
    lines.emplace_back(text.substr(0, cut));
    text.remove_prefix(cut == std::string_view::npos ? text.size() : cut + 2);
  }
  return lines;
}

class Editing {
 public:
  Editing(const Edit& edit, BDFEditor& editor, const InputSchema& schema)
      : edit_(edit), editor_(editor), schema_(schema) {}

  void run() {
    set_script_name();
    if (edit_.geometry) {
      editor_.set_cartesian_geometry(*edit_.geometry);
    }
    if (edit_.charge) {
      set_number(charge_paths(editor_.data(), schema_), *edit_.charge);
    }
    if (edit_.multiplicity) {
      set_number(multiplicity_paths(editor_.data(), schema_), *edit_.multiplicity);
    }
    for (const Assignment& assignment : edit_.assignments) {
      set(assignment);
    }
    unset_values();
    unset_modules();
  }

 private:
  bool is_module_input() const { return editor_.data().mode == InputMode::Module; }

  void set_script_name() {
    if (!edit_.script_name) {
      return;
    }
    if (is_module_input()) {
      throw ImpossibleEdit("an input of modules alone has no line '#!' for a script name");
    }
    editor_.set_script_name(*edit_.script_name);
  }

  void set_number(const std::vector<ValuePath>& paths, int number) {
    const std::string text = std::to_string(number);
    for (const ValuePath& path : paths) {
      if (path.kind == Kind::EasyKeyword) {
        set_header_keyword(path.name, text);
      } else {
        editor_.set_module_entry(path.module, path.module_index, path.name, {text});
      }
    }
  }

  std::vector<std::string> header_words() const {
    std::vector<std::string> words;
    for (const EasyToken& token : editor_.data().easy_tokens) {
      words.push_back(token.text);
    }
    return words;
  }

  // The editor alone would leave the old value of "charge 1" behind, and take the words of a remark
  // for keywords.
  void set_header_keyword(const std::string& key, const std::optional<std::string>& value) {
    const std::string word = schema_.canonical_easy_key(key) + (value ? '=' + *value : "");
    std::vector<std::string> words = header_words();
    const auto keywords = find_easy_keywords(editor_.data(), schema_, key);
    auto at = words.begin();
    if (keywords.empty()) {
      at += static_cast<std::ptrdiff_t>(tokens_before_comment(editor_.data()));
    } else {
      at = erase(words, keywords.front());
    }
    words.insert(at, word);
    editor_.set_easy_tokens(words);
  }

  static std::vector<std::string>::iterator erase(std::vector<std::string>& words,
                                                  const EasyKeyword& keyword) {
    return words.erase(words.begin() + static_cast<std::ptrdiff_t>(keyword.first),
                       words.begin() + static_cast<std::ptrdiff_t>(keyword.last));
  }

  void set(const Assignment& assignment) {
    switch (assignment.path.kind) {
      case Kind::Geometry:
        refuse(assignment.path, "atoms come from a file: --geometry FILE.xyz");
      case Kind::Module:
        refuse(assignment.path, "it names a module; a value belongs to one of its entries");
      case Kind::Child:
        refuse(assignment.path, "entries within a block can be read, but not set");
      case Kind::EasyKeyword:
        return set_easy(assignment);
      case Kind::Entry:
        return set_entry(assignment);
    }
  }

  void set_easy(const Assignment& assignment) {
    const WrittenPath& path = assignment.path;
    if (is_module_input()) {
      refuse(path, "an input of modules alone has no header");
    }
    if (path.name.find('/') != std::string::npos) {
      refuse(path, "method, functional and basis are no keyword");
    }
    if (assignment.values.empty()) {
      return set_header_keyword(path.name, std::nullopt);
    }
    const std::string& value = assignment.values.front();
    const bool is_word = assignment.values.size() == 1 && value.find('#') == std::string::npos &&
                         std::none_of(value.begin(), value.end(), core::text::is_space);
    if (!is_word) {
      refuse(path, "a value of the header is a single word without '#'");
    }
    set_header_keyword(path.name, value);
  }

  void set_entry(const Assignment& assignment) {
    const WrittenPath& path = assignment.path;
    const std::size_t count = count_modules(editor_.data(), schema_, path.module);
    if (path.module_index > count) {
      refuse(path,
             fmt::format("there {} {} ${}, so that the next one is {}#{}",
                         count == 1 ? "is" : "are", count, path.module, path.module, count + 1));
    }
    check_number_of_lines(assignment);
    ModuleEntry& entry =
        *editor_.set_module_entry(path.module, path.module_index, path.name, assignment.values);
    if (!entry.known) {
      lay_out_unknown(entry, path.name);
    }
  }

  void check_number_of_lines(const Assignment& assignment) const {
    const WrittenPath& path = assignment.path;
    if (!schema_.is_known_entry(path.module, path.name)) {
      return;
    }
    const EntryValueKind kind = schema_.entry_value_kind(path.module, path.name);
    if (kind == EntryValueKind::NestedBlock) {
      refuse(path, "it is a block of entries, not a value");
    }
    if (kind == EntryValueKind::Flag && !assignment.values.empty()) {
      refuse(path, fmt::format("it takes no value; write {}=", path.text));
    }
    const bool one_line = kind == EntryValueKind::Scalar || kind == EntryValueKind::Tuple;
    if (one_line && assignment.values.size() > 1) {
      refuse(path, fmt::format("it takes one line, not {}", assignment.values.size()));
    }
  }

  // What the schema does not know is written as it stands. Only a keyword at the beginning of its
  // line with its values indented is read back as such.
  static void lay_out_unknown(ModuleEntry& entry, const std::string& name) {
    if (entry.raw_line.empty()) {
      entry.raw_line = name;
    }
    for (std::string& value : entry.values) {
      value.insert(0, "    ");
    }
  }

  void unset_values() {
    for (const WrittenPath& path : edit_.unset) {
      switch (path.kind) {
        case Kind::Geometry:
          refuse(path, "the geometry cannot be taken out");
        case Kind::Child:
          refuse(path, "entries within a block can be read, but not taken out");
        case Kind::EasyKeyword:
          unset_easy(path);
          break;
        case Kind::Entry:
          if (!editor_.remove_module_entry(path.module, path.module_index, path.name,
                                           std::nullopt)) {
            miss(path);
          }
          break;
        case Kind::Module:
          break;
      }
    }
  }

  void unset_easy(const WrittenPath& path) {
    const auto keywords = find_easy_keywords(editor_.data(), schema_, path.name);
    if (keywords.empty()) {
      miss(path);
    }
    std::vector<std::string> words = header_words();
    std::for_each(keywords.rbegin(), keywords.rend(),
                  [&words](const EasyKeyword& keyword) { erase(words, keyword); });
    editor_.set_easy_tokens(words);
  }

  // From the last to the first, so that the numbers of those still to go stay right.
  void unset_modules() {
    std::vector<WrittenPath> paths;
    std::copy_if(edit_.unset.begin(), edit_.unset.end(), std::back_inserter(paths),
                 [](const WrittenPath& path) { return path.kind == Kind::Module; });
    std::stable_sort(paths.begin(), paths.end(), [](const auto& left, const auto& right) {
      return left.module_index > right.module_index;
    });
    for (const WrittenPath& path : paths) {
      if (!editor_.remove_module(path.module, path.module_index)) {
        miss(path);
      }
    }
  }

  [[noreturn]] void miss(const WrittenPath& path) const {
    throw ImpossibleEdit(fmt::format("nothing at '{}' to take out{}", path.text,
                                     did_you_mean(path_hint(schema_, path))));
  }

  const Edit& edit_;
  BDFEditor& editor_;
  const InputSchema& schema_;
};

}  // namespace

Assignment parse_assignment(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) {
    throw std::runtime_error(
        fmt::format("'{0}' is no PATH=VALUE; write '{0}=' for a keyword without a value", text));
  }
  return {read_path(std::string_view(text).substr(0, equals)),
          split_values(std::string_view(text).substr(equals + 1))};
}

void apply_edit(const Edit& edit, BDFEditor& editor, const InputSchema& schema) {
  Editing(edit, editor, schema).run();
}

}  // namespace kelp::app
