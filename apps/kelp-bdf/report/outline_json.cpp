// All that the library knows of an input, as JSON: its records with their ranges, the molecule,
// what is computed, and the lines that say nothing to the program. And values by their paths.

#include <string>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "report/json.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::EasyToken;
using input::bdf::LineRole;
using input::bdf::Outline;
using input::bdf::ParsedInput;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

/// Writes one input.
class InputJson {
 public:
  InputJson(const ParsedInput& input, input::bdf::Language language)
      : input_(input), outline_(outline_of(input, language)) {}

  Json run(const std::string& file) const {
    return {
        {"file", file},
        {"schema",
         {{"version", input_.schema().metadata().schema_version},
          {"bdf_version", input_.schema().metadata().bdf_version}}},
        {"mode", to_string(outline_.mode)},
        {"script_name", outline_.script_name ? Json(*outline_.script_name) : Json()},
        {"header", list_of(outline_.header, [this](const auto& word) { return made(word); })},
        {"charge", made(outline_.charge)},
        {"multiplicity", made(outline_.multiplicity)},
        {"geometry", made(outline_.geometry)},
        {"molecule", molecule()},
        {"modules", list_of(outline_.modules, [this](const auto& module) { return made(module); })},
        {"statements", statements()},
        {"comments", comments()},
        {"misspelt_borders", misspelt_borders()},
        {"calculation", calculation_json(calculation_of(input_))}};
  }

 private:
  Json range(const TextRange& range) const { return range_json(range, input_.source()); }

  Json text_of(const TextRange& range) const {
    return text_or_null(std::string(input_.source().text_of(range)));
  }

  Json made(const Outline::Word& word) const {
    const EasyToken& token = input_.data().easy_tokens[word.record.index];
    const bool is_specification = token.category == "method_spec";
    const input::bdf::SpecificationRanges parts = input_.specification_ranges(word.record.index);
    return {{"text", word.text},
            {"canonical", word.canonical},
            {"category", word.category},
            {"known", word.known},
            {"line", word.line},
            {"range", range(word.range)},
            {"key", is_specification ? Json() : text_or_null(token.key)},
            {"value", text_or_null(token.value)},
            {"method", text_of(parts.method)},
            {"functional", text_of(parts.functional)},
            {"basis", text_of(parts.basis)},
            {"summary", text_or_null(word.summary)}};
  }

  Json made(const std::optional<Outline::Value>& value) const {
    if (!value) {
      return nullptr;
    }
    return {{"value", value->text},
            {"path", value->path},
            {"line", value->line},
            {"range", range(value->range)}};
  }

  Json made(const std::optional<Outline::Geometry>& geometry) const {
    if (!geometry) {
      return nullptr;
    }
    return {{"atoms", geometry->atoms},
            {"formula", geometry->formula},
            {"line", geometry->line},
            {"range", range(geometry->range)}};
  }

  Json made(const Outline::Entry& entry) const {
    const input::bdf::ModuleEntry& read = *entry_or_child(input_.data(), entry.record);
    return {
        {"name", entry.name},
        {"path", entry.path},
        {"kind", to_string(entry.kind)},
        {"known", entry.known},
        {"terminator", text_or_null(read.terminator)},
        {"terminated", read.terminated},
        {"line", entry.line},
        {"range", range(entry.range)},
        {"name_range", range(entry.name_range)},
        {"values", entry.values},
        {"value_ranges", list_of(input_.value_ranges(entry.record),
                                 [this](const TextRange& line) { return range(line); })},
        {"children", list_of(entry.children, [this](const auto& child) { return made(child); })},
        {"summary", text_or_null(entry.summary)}};
  }

  Json made(const Outline::Module& module) const {
    return {{"name", module.name},
            {"path", module.path},
            {"known", module.known},
            {"terminated", module.terminated},
            {"line", module.line},
            {"range", range(module.range)},
            {"name_range", range(module.name_range)},
            {"entries", list_of(module.entries, [this](const auto& entry) { return made(entry); })},
            {"summary", text_or_null(module.summary)}};
  }

  Json molecule() const {
    const input::bdf::Molecule molecule = molecule_of(input_);
    const bool is_bohr = molecule.unit == input::bdf::LengthUnit::Bohr;
    return {{"unit", is_bohr ? "bohr" : "angstrom"},
            {"unit_is_stated", molecule.stated_unit.has_value()},
            {"atoms", list_of(molecule.atoms, [](const input::bdf::AtomRecord& atom) {
               const std::string element(input::bdf::element_of(atom.element));
               return Json{{"label", atom.element},
                           {"element", text_or_null(element)},
                           {"x", atom.x},
                           {"y", atom.y},
                           {"z", atom.z},
                           {"line", atom.location ? Json(atom.location->line) : Json()}};
             })}};
  }

  Json statements() const {
    Json list = Json::array();
    const auto& statements = input_.data().statements;
    for (std::size_t i = 0; i < statements.size(); ++i) {
      const RecordId record = RecordId::of(RecordKind::Statement, i);
      if (statements[i].kind != input::bdf::StatementKind::Module) {
        list.push_back({{"kind", to_string(statements[i].kind)},
                        {"lines", statements[i].lines},
                        {"line", input_.first_line(record)},
                        {"range", range(input_.range(record))}});
      }
    }
    return list;
  }

  // Those behind a line's words and those on lines of their own.
  Json comments() const {
    Json list = Json::array();
    const input::bdf::SourceText& source = input_.source();
    for (std::size_t number = 1; number <= source.line_count(); ++number) {
      const bool is_whole_line = input_.line(number).role == LineRole::Comment;
      const TextRange comment =
          is_whole_line ? source.content(number) : source.trimmed(input_.comment_range(number));
      if (!comment.empty()) {
        list.push_back({{"text", source.text_of(comment)}, {"range", range(comment)}});
      }
    }
    return list;
  }

  Json misspelt_borders() const {
    return list_of(input_.misspelt_borders(), [this](const input::bdf::MisspeltBorder& border) {
      const TextRange line = input_.source().content(border.line);
      return Json{{"text", input_.source().text_of(line)},
                  {"meant", border.meant},
                  {"line", border.line},
                  {"range", range(line)}};
    });
  }

  const ParsedInput& input_;
  Outline outline_;
};

Json value_json(const FileValue& value) {
  Json lines;
  if (value.lines) {
    lines = list_of(*value.lines, [&](const ValueLine& line) {
      return Json{{"text", line.text}, {"range", range_json(line.range, value.source)}};
    });
  }
  return {{"path", value.path}, {"file", value.file}, {"values", std::move(lines)}};
}

}  // namespace

std::string input_json(const std::string& file, const ParsedInput& input,
                       input::bdf::Language language) {
  return json_lines(InputJson(input, language).run(file));
}

std::string values_json(const std::vector<FileValue>& files) {
  JsonList list("inputs");
  std::string text = list.begin();
  for (const FileValue& file : files) {
    text += list.add(json_line(value_json(file)));
  }
  return text + list.end();
}

}  // namespace kelp::app
