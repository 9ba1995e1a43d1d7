// Makes a source file of the library from a document that it comes with: the document's text and a
// table of what the library's own reader makes of it. Part of the build, never installed.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/console.hpp"
#include "kelp/core/fs.hpp"
#include "knowledge/knowledge_table.hpp"
#include "schema/schema_table.hpp"
#include "schema/table_writer.hpp"
#include "schema/yaml_reader.hpp"

namespace kelp::input::bdf {
namespace {

template <typename Record>
std::string table_of(const Record& record) {
  TableWriter writer;
  writer(record);
  return writer.table();
}

std::string table_of_document(std::string_view kind, const std::string& text) {
  if (kind == "schema") {
    return table_of(*read_schema(text));
  }
  if (kind == "knowledge") {
    return table_of(*read_knowledge(text));
  }
  throw std::runtime_error("there is no table of kind " + std::string(kind));
}

// Numbers, since compilers are free to refuse long literals of text.
std::string array_source(const std::string& name, std::string_view bytes) {
  constexpr std::size_t bytes_of_a_line = 24;
  std::string source = "constexpr unsigned char " + name + "[] = {";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    source += i % bytes_of_a_line == 0 ? "\n" : "";
    source += std::to_string(static_cast<unsigned char>(bytes[i]));
    source += ',';
  }
  return source + "};\n\n";
}

std::string source_of(const std::string& kind, const std::string& text) {
  const std::string header = kind + "/" + kind + "_table.hpp";
  return "// Made by tools/make_table.cpp when the library was built.\n\n#include \"" + header +
         "\"\n\nnamespace kelp::input::bdf {\nnamespace {\n\n" + array_source("text", text) +
         array_source("table", table_of_document(kind, text)) +
         "template <std::size_t N>\n"
         "std::string_view view(const unsigned char (&bytes)[N]) noexcept {\n"
         "  return {reinterpret_cast<const char*>(bytes), N};\n"
         "}\n\n"
         "}  // namespace\n\n"
         "BuiltInDocument built_in_" +
         kind +
         "() noexcept {\n"
         "  return {view(text), view(table)};\n"
         "}\n\n"
         "}  // namespace kelp::input::bdf\n";
}

int run(const std::vector<std::string>& arguments) {
  if (arguments.size() != 3) {
    throw std::runtime_error("usage: kelp_bdf_make_table schema|knowledge DOCUMENT SOURCE");
  }
  const std::string source = source_of(arguments[0], core::fs::read_text_file(arguments[1]));
  if (!core::fs::write_text_file_atomic(arguments[2], source)) {
    throw std::runtime_error("cannot write " + arguments[2]);
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace kelp::input::bdf

int main(int count, char** values) {
  try {
    return kelp::input::bdf::run(kelp::core::console::arguments(count, values));
  } catch (const std::exception& error) {
    std::cerr << "kelp_bdf_make_table: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
