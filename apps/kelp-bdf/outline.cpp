#include "outline.hpp"

#include <array>
#include <utility>

#include "easy_keyword.hpp"
#include "find_value.hpp"
#include "formula.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "line_index.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::AtomRecord;
using input::bdf::BDFData;
using input::bdf::EasyToken;
using input::bdf::InputMode;
using input::bdf::Module;
using input::bdf::ModuleEntry;

bool is_remark(const ModuleEntry& entry) {
  const std::string_view text = core::text::trim_view(entry.raw_line);
  return !entry.known && (text.empty() || text.front() == '#' || text.front() == '*');
}

// Returns the first word of a line that has a word and three numbers, else an empty text.
std::string label_on(std::string_view line) {
  std::string label(core::text::take_word(line));
  for (int i = 0; i < 3; ++i) {
    const std::string_view word = core::text::take_word(line);
    if (word.empty() || !core::number::parse_float(word)) {
      return {};
    }
  }
  return label;
}

class OutlineMaker {
 public:
  explicit OutlineMaker(const CheckedInput& input)
      : input_(input), data_(input.result.data), lines_(data_) {}

  Outline run() {
    outline_.file = input_.name;
    outline_.mode = to_string(data_.mode);
    if (data_.mode != InputMode::Module) {
      outline_.script_name = data_.script_name;
    }
    for (const EasyToken& token : data_.easy_tokens) {
      outline_.header.push_back(
          {token.text, token.canonical, token.category, token.known, line_of(token)});
    }
    outline_.charge = first_value({"easy.charge", "scf.charge"});
    outline_.multiplicity = first_value({"easy.spinmulti", "scf.spinmulti"});
    outline_geometry();
    for (const Module& module : data_.modules) {
      outline_module(module);
    }
    return std::move(outline_);
  }

 private:
  std::optional<Outline::Value> first_value(std::array<const char*, 2> paths) const {
    for (const char* const text : paths) {
      const ValuePath path = parse_path(text);
      const auto lines = find_value(data_, input_.schema, path);
      if (lines && !lines->empty()) {
        return Outline::Value{lines->front(), text, line_at(path)};
      }
    }
    return std::nullopt;
  }

  std::size_t line_at(const ValuePath& path) const {
    if (path.kind == ValuePath::Kind::EasyKeyword) {
      return line_of(
          data_.easy_tokens[find_easy_keywords(data_, input_.schema, path.name).front().first]);
    }
    const Module* const module = find_module(data_, input_.schema, path);
    return line_of(*module->find_entry(path.name));
  }

  void outline_geometry() {
    std::vector<std::string> labels;
    labels.reserve(data_.atoms.size());
    for (const AtomRecord& atom : data_.atoms) {
      labels.push_back(atom.element);
    }
    if (data_.has_geometry && !labels.empty()) {
      const std::size_t line = line_of(data_.geometry_location);
      outline_.geometry = Outline::Geometry{labels.size(), formula(labels), line};
      return;
    }
    for (const Module& module : data_.modules) {
      const ModuleEntry* const entry = module.find_entry("geometry");
      if (input_.schema.canonical_module(module.name) == "compass" && entry != nullptr) {
        outline_geometry(*entry);
        return;
      }
    }
  }

  void outline_geometry(const ModuleEntry& entry) {
    std::vector<std::string> labels;
    for (const std::string& value : entry.values) {
      std::string label = label_on(value);
      if (!label.empty()) {
        labels.push_back(std::move(label));
      }
    }
    if (!labels.empty()) {
      outline_.geometry = Outline::Geometry{labels.size(), formula(labels), line_of(entry)};
    }
  }

  void outline_module(const Module& module) {
    Outline::Module made;
    made.name = module.name;
    made.path = lines_.path({&module, nullptr, nullptr});
    made.known = module.known;
    made.terminated = module.terminated;
    made.line = line_of(module);
    made.entries = outline_entries(module.entries, made.path);
    outline_.modules.push_back(std::move(made));
  }

  static std::vector<Outline::Entry> outline_entries(const std::vector<ModuleEntry>& entries,
                                                     const std::string& path) {
    std::vector<Outline::Entry> list;
    for (const ModuleEntry& entry : entries) {
      if (is_remark(entry)) {
        continue;
      }
      Outline::Entry made;
      made.name = entry.name;
      made.path = path + '.' + entry.name;
      made.kind = to_string(entry.kind);
      made.known = entry.known;
      made.line = line_of(entry);
      for (const std::string& value : entry.values) {
        made.values.push_back(core::text::trim(value));
      }
      made.children = outline_entries(entry.children, made.path);
      list.push_back(std::move(made));
    }
    return list;
  }

  const CheckedInput& input_;
  const BDFData& data_;
  LineIndex lines_;
  Outline outline_;
};

}  // namespace

Outline make_outline(const CheckedInput& input) {
  return OutlineMaker(input).run();
}

}  // namespace kelp::app
