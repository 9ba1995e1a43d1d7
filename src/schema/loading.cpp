// Where a schema comes from. A file is read as YAML only when it differs from the document that the
// library was built with; of that one the library has a table, which says the same in a fraction of
// the time. The two texts are compared as a whole, which takes no longer than to hash one of them.

#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "schema/schema_table.hpp"
#include "schema/yaml_reader.hpp"

namespace kelp::input::bdf {
namespace {

std::shared_ptr<const InputSchema::Impl> read_file(const std::string& path) {
  const BuiltInDocument built_in = built_in_schema();
  if (!built_in.stands_for(path)) {
    return read_schema(core::fs::read_text_file(path));
  }
  auto impl = std::make_shared<InputSchema::Impl>();
  TableReader{built_in.table}(*impl);
  return impl;
}

}  // namespace

InputSchema InputSchema::from_yaml(std::string_view text) {
  if (core::text::trim_view(text).empty()) {
    return {};
  }
  try {
    return InputSchema(read_schema(std::string(text)));
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    throw std::runtime_error(std::string("failed to parse BDF input schema YAML: ") + error.what());
  }
}

InputSchema InputSchema::from_file(const std::string& path) {
  try {
    return InputSchema(read_file(path));
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    throw std::runtime_error("failed to load BDF input schema '" + path + "': " + error.what());
  }
}

std::string resolve_schema_path(const std::string& hint) {
  // Far enough to climb from a program in a build tree or a prefix's lib/<triplet>/ folder.
  constexpr int parents = 6;
  std::string named = core::resource::getenv_string("KELP_BDF_INP_SCHEMA_YAML");
  if (!named.empty() && core::resource::is_regular_file_path(named)) {
    return named;
  }
  return core::resource::locate_file("schemas/input/bdf.yaml", hint, {}, parents);
}

const InputSchema& default_schema() {
  // A load that throws leaves this uninitialised, so the next call tries again.
  static const InputSchema schema = [] {
    const std::string path = resolve_schema_path({});
    return path.empty() ? InputSchema() : InputSchema::from_file(path);
  }();
  return schema;
}

}  // namespace kelp::input::bdf
