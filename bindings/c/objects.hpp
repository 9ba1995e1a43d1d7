#pragma once

// The objects that several sources of the C interface know.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "handles.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/source.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::c_interface {

namespace bdf = kelp::input::bdf;

struct Schema : Object {
  explicit Schema(bdf::InputSchema names) : schema(std::move(names)) {}

  bdf::InputSchema schema;
};

struct Input : Object {
  Input(std::string text, const bdf::InputSchema& schema, std::string file)
      : input(std::move(text), schema), path(std::move(file)) {}

  bdf::ParsedInput input;
  std::string path;  // empty unless it was read from a file
};

struct Findings : Object {
  Findings(std::vector<bdf::Diagnostic> list, bdf::SourceText text)
      : findings(std::move(list)), source(std::move(text)) {}

  std::vector<bdf::Diagnostic> findings;
  bdf::SourceText source;
};

struct Molecule : Object {
  explicit Molecule(bdf::Molecule read);

  bdf::Molecule molecule;
  std::vector<double> coordinates;
  std::vector<std::string> elements;
  std::string formula;
};

struct EditObject : Object {
  bdf::Edit edit;
};

template <>
struct ObjectOf<kelp_bdf_schema> {
  using Type = Schema;
};
template <>
struct ObjectOf<kelp_bdf_input> {
  using Type = Input;
};
template <>
struct ObjectOf<kelp_bdf_findings> {
  using Type = Findings;
};
template <>
struct ObjectOf<kelp_bdf_molecule> {
  using Type = Molecule;
};
template <>
struct ObjectOf<kelp_bdf_edit> {
  using Type = EditObject;
};

/// Returns the schema of a handle, for a null one that of the library.
bdf::InputSchema schema_of(const kelp_bdf_schema* handle);

/// Returns the path that a text means.
bdf::ValuePath path_from(const char* text);

inline std::string_view bytes_of(const char* text, std::size_t size) {
  return size == 0 ? std::string_view() : std::string_view(needed(text), size);
}

inline kelp_bdf_range range_of(const bdf::TextRange& range) {
  return {range.begin, range.end};
}

inline kelp_bdf_position position_of(const bdf::TextPosition& position) {
  return {position.line, position.column};
}

inline kelp_bdf_text_edit edit_of(const bdf::TextEdit& edit) {
  return {range_of(edit.range), string_of(edit.text)};
}

inline kelp_bdf_record record_of(const bdf::RecordId& record) {
  return {static_cast<std::int32_t>(record.kind), record.index, record.entry, record.child};
}

}  // namespace kelp::c_interface
