#include "kelp/input/bdf/outline.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {
namespace {

class OutlineMaker {
 public:
  OutlineMaker(const ParsedInput& input, Language language)
      : input_(input), data_(input.data()), paths_(input.data()), language_(language) {}

  Outline run() {
    outline_.mode = data_.mode;
    if (data_.mode != InputMode::Module) {
      outline_.script_name = data_.script_name;
    }
    for (std::size_t i = 0; i < data_.easy_tokens.size(); ++i) {
      outline_word(data_.easy_tokens[i], RecordId::of(RecordKind::EasyToken, i));
    }
    outline_molecule();
    for (std::size_t i = 0; i < data_.modules.size(); ++i) {
      outline_module(data_.modules[i], i);
    }
    return std::move(outline_);
  }

 private:
  template <typename Made>
  void stand(Made& made, const RecordId& record) const {
    made.record = record;
    made.line = input_.first_line(record);
    made.range = input_.range(record);
  }

  void outline_word(const EasyToken& token, const RecordId& record) {
    Outline::Word made;
    made.text = token.text;
    made.canonical = token.canonical;
    made.category = token.category;
    made.known = token.known;
    if (token.category != "method_spec") {
      const std::string_view keyword = std::string_view(token.canonical);
      made.summary =
          easy_keyword_summary(input_.schema(), keyword.substr(0, keyword.find('=')), language_);
    }
    stand(made, record);
    outline_.header.push_back(std::move(made));
  }

  void outline_molecule() {
    const Molecule molecule = molecule_of(input_);
    outline_.charge = value_of(molecule.charge);
    outline_.multiplicity = value_of(molecule.multiplicity);
    if (!molecule.atoms.empty()) {
      Outline::Geometry made;
      made.atoms = molecule.atoms.size();
      made.formula = hill_formula(molecule.atoms);
      stand(made, molecule.geometry);
      outline_.geometry = std::move(made);
    }
  }

  std::optional<Outline::Value> value_of(const std::optional<StatedValue>& stated) const {
    if (!stated) {
      return std::nullopt;
    }
    Outline::Value made;
    made.text = stated->text;
    made.path = to_string(stated->path);
    stand(made, stated->record);
    return made;
  }

  void outline_module(const Module& module, std::size_t index) {
    const RecordId record = RecordId::of_module(index);
    Outline::Module made;
    made.name = module.name;
    made.path = paths_.path_of(record);
    made.known = module.known;
    made.terminated = module.terminated;
    made.summary = module_summary(input_.schema(), module.name, language_);
    stand(made, record);
    made.name_range = input_.keyword_range(record);
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      const RecordId entry = RecordId::of_entry(index, i);
      if (says_something(entry)) {
        made.entries.push_back(outline_entry(module.entries[i], entry));
        add_summaries(module.name, made.entries.back());
      }
    }
    outline_.modules.push_back(std::move(made));
  }

  // Comments and blank lines of a module are kept as entries, too.
  bool says_something(const RecordId& record) const {
    const LineRole role = input_.line(input_.first_line(record)).role;
    return role != LineRole::Comment && role != LineRole::Blank;
  }

  Outline::Entry outline_entry(const ModuleEntry& entry, const RecordId& record) const {
    Outline::Entry made;
    made.name = entry.name;
    made.path = paths_.path_of(record);
    made.kind = entry.kind;
    made.known = entry.known;
    stand(made, record);
    made.name_range = input_.keyword_range(record);
    made.values.reserve(entry.values.size());
    for (const std::string& value : entry.values) {
      made.values.push_back(core::text::trim(value));
    }
    for (std::size_t i = 0; i < entry.children.size(); ++i) {
      const RecordId child = RecordId::of_child(record.index, record.entry, i);
      if (says_something(child)) {
        made.children.push_back(outline_entry(entry.children[i], child));
      }
    }
    return made;
  }

  void add_summaries(const std::string& module, Outline::Entry& made) const {
    made.summary = entry_summary(input_.schema(), module, made.name, language_);
    for (Outline::Entry& child : made.children) {
      child.summary =
          nested_entry_summary(input_.schema(), module, made.name, child.name, language_);
    }
  }

  const ParsedInput& input_;
  const BDFData& data_;
  PathIndex paths_;
  Language language_;
  Outline outline_;
};

}  // namespace

Outline outline_of(const ParsedInput& input, Language language) {
  return OutlineMaker(input, language).run();
}

}  // namespace kelp::input::bdf
