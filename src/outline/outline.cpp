#include "kelp/input/bdf/outline.hpp"

#include <cstddef>
#include <string>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {
namespace {

class OutlineMaker {
 public:
  explicit OutlineMaker(const ParsedInput& input)
      : input_(input), data_(input.data()), paths_(input.data()) {}

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
    stand(made, record);
    made.name_range = input_.keyword_range(record);
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      const RecordId entry = RecordId::of_entry(index, i);
      if (says_something(entry)) {
        made.entries.push_back(outline_entry(module.entries[i], entry));
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

  const ParsedInput& input_;
  const BDFData& data_;
  PathIndex paths_;
  Outline outline_;
};

}  // namespace

Outline outline_of(const ParsedInput& input) {
  return OutlineMaker(input).run();
}

}  // namespace kelp::input::bdf
