// Schemas, inputs, and what stands where in them.

#include <string>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/names.hpp"
#include "objects.hpp"

namespace kelp::c_interface {

bdf::InputSchema schema_of(const kelp_bdf_schema* handle) {
  if (handle != nullptr) {
    return object_of(handle)->schema;
  }
  return as_failure(KELP_BDF_SCHEMA_ERROR, [] {
    const bdf::InputSchema& schema = bdf::default_schema();
    if (schema.empty()) {
      throw std::runtime_error("no schema file found; name one with KELP_BDF_INP_SCHEMA_YAML");
    }
    return schema;
  });
}

bdf::ValuePath path_from(const char* text) {
  bdf::PathResult result = bdf::parse_path(needed(text));
  if (!result.path) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, result.error);
  }
  return *std::move(result.path);
}

namespace {

std::string nothing_at(const bdf::InputSchema& schema, const bdf::ValuePath& path) {
  std::string text = "nothing at '" + to_string(path) + "'";
  const std::vector<std::string> names = path_hint(schema, path);
  return names.empty() ? text : text + "; did you mean " + bdf::quoted_choice(names) + "?";
}

bdf::RecordId record_from(const kelp_bdf_record& record) {
  return {enumerator_of(record.kind, bdf::RecordKind::LeadingLine), record.index, record.entry,
          record.child};
}

}  // namespace
}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_schema_default(kelp_bdf_schema** schema, kelp_bdf_error* error) {
  return call(error, [=] { hand_out(schema, std::make_shared<Schema>(schema_of(nullptr))); });
}

kelp_bdf_status kelp_bdf_schema_read(const char* path, kelp_bdf_schema** schema,
                                     kelp_bdf_error* error) {
  return call(error, [=] {
    const std::string file = needed(path);
    hand_out(schema, std::make_shared<Schema>(as_failure(KELP_BDF_SCHEMA_ERROR, [&] {
               return bdf::InputSchema::from_file(file);
             })));
  });
}

kelp_bdf_status kelp_bdf_schema_parse(const char* yaml, size_t size, kelp_bdf_schema** schema,
                                      kelp_bdf_error* error) {
  return call(error, [=] {
    const std::string_view text = bytes_of(yaml, size);
    hand_out(schema, std::make_shared<Schema>(as_failure(KELP_BDF_SCHEMA_ERROR, [&] {
               return bdf::InputSchema::from_yaml(text);
             })));
  });
}

kelp_bdf_status kelp_bdf_schema_free(kelp_bdf_schema* schema) {
  return free_handle(schema);
}

kelp_bdf_status kelp_bdf_input_parse(const char* text, size_t size, const kelp_bdf_schema* schema,
                                     kelp_bdf_input** input, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out(input, std::make_shared<Input>(std::string(bytes_of(text, size)), schema_of(schema),
                                            std::string()));
  });
}

kelp_bdf_status kelp_bdf_input_read(const char* path, const kelp_bdf_schema* schema,
                                    kelp_bdf_input** input, kelp_bdf_error* error) {
  return call(error, [=] {
    const std::string file = needed(path);
    std::string text =
        as_failure(KELP_BDF_FILE_ERROR, [&] { return kelp::core::fs::read_text_file(file); });
    hand_out(input, std::make_shared<Input>(std::move(text), schema_of(schema), file));
  });
}

kelp_bdf_status kelp_bdf_input_free(kelp_bdf_input* input) {
  return free_handle(input);
}

kelp_bdf_status kelp_bdf_input_text(const kelp_bdf_input* input, kelp_bdf_string* text) {
  return call([=] {
    // The source keeps it as a `std::string`, whose end is marked.
    const std::string_view whole = object_of(input)->input.source().text();
    *needed(text) = {whole.data(), whole.size()};
  });
}

kelp_bdf_status kelp_bdf_input_mode(const kelp_bdf_input* input, int32_t* mode) {
  return call(
      [=] { *needed(mode) = static_cast<std::int32_t>(object_of(input)->input.data().mode); });
}

kelp_bdf_status kelp_bdf_input_position(const kelp_bdf_input* input, size_t byte, int32_t unit,
                                        kelp_bdf_position* position) {
  return call([=] {
    *needed(position) = position_of(object_of(input)->input.source().position(
        byte, enumerator_of(unit, bdf::ColumnUnit::Utf16)));
  });
}

kelp_bdf_status kelp_bdf_input_byte(const kelp_bdf_input* input, kelp_bdf_position position,
                                    int32_t unit, size_t* byte) {
  return call([=] {
    *needed(byte) = object_of(input)->input.source().byte_at(
        {position.line, position.column}, enumerator_of(unit, bdf::ColumnUnit::Utf16));
  });
}

kelp_bdf_status kelp_bdf_record_at(const kelp_bdf_input* input, size_t byte,
                                   kelp_bdf_record* record) {
  return call([=] { *needed(record) = record_of(object_of(input)->input.record_at(byte)); });
}

kelp_bdf_status kelp_bdf_record_lines(const kelp_bdf_input* input, kelp_bdf_record record,
                                      size_t* first, size_t* last) {
  return call([=] {
    const auto object = object_of(input);
    const bdf::RecordId id = record_from(record);
    needed(last);
    *needed(first) = object->input.first_line(id);
    *last = object->input.last_line(id);
  });
}

kelp_bdf_status kelp_bdf_record_range(const kelp_bdf_input* input, kelp_bdf_record record,
                                      kelp_bdf_range* range) {
  return call(
      [=] { *needed(range) = range_of(object_of(input)->input.range(record_from(record))); });
}

kelp_bdf_status kelp_bdf_record_path(const kelp_bdf_input* input, kelp_bdf_record record,
                                     kelp_bdf_texts** path, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out_texts(path, {path_of(object_of(input)->input.data(), record_from(record))});
  });
}

kelp_bdf_status kelp_bdf_find(const kelp_bdf_input* input, const char* path,
                              kelp_bdf_record* record, kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(input);
    const bdf::ValuePath wanted = path_from(path);
    needed(record);
    const bdf::RecordId found = find_record(object->input, wanted);
    if (!found) {
      throw Failure(KELP_BDF_NOT_FOUND, nothing_at(object->input.schema(), wanted));
    }
    *record = record_of(found);
  });
}

kelp_bdf_status kelp_bdf_get(const kelp_bdf_input* input, const char* path, kelp_bdf_texts** lines,
                             kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(input);
    const bdf::ValuePath wanted = path_from(path);
    auto value = find_value(object->input, wanted);
    if (!value) {
      throw Failure(KELP_BDF_NOT_FOUND, nothing_at(object->input.schema(), wanted));
    }
    hand_out_texts(lines, *std::move(value));
  });
}

kelp_bdf_status kelp_bdf_path_hint(const kelp_bdf_schema* schema, const char* path,
                                   kelp_bdf_texts** names, kelp_bdf_error* error) {
  return call(error, [=] { hand_out_texts(names, path_hint(schema_of(schema), path_from(path))); });
}

kelp_bdf_status kelp_bdf_render(const kelp_bdf_input* input, kelp_bdf_texts** text,
                                kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(input);
    hand_out_texts(text, {bdf::BDFEditor(object->input.data(), object->input.schema()).render()});
  });
}
