// dump SCHEMA <NAMES >OUTPUT: reads the named files, one name a line, and prints for each what the
// library finds in it and how it renders it, so that two builds can be compared byte by byte.

#include <array>
#include <charconv>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "kelp/input/bdf.hpp"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#endif

namespace kelp::input::bdf {
namespace {

void print_place(const std::optional<SourceSpan>& place) {
  if (place) {
    std::cout << place->line << ':' << place->column << '+' << place->length;
  } else {
    std::cout << '-';
  }
}

void print_findings(const BDFData& data, const InputSchema& schema, bool as_errors) {
  ValidationOptions options;
  options.report_unknown_modules = true;
  options.report_unknown_entries = true;
  options.unknown_modules_as_errors = as_errors;
  options.unknown_entries_as_errors = as_errors;
  for (const ValidationIssue& issue : schema.validate(data, options)) {
    std::cout << static_cast<int>(issue.severity) << ' ';
    print_place(issue.location);
    std::cout << ' ' << issue.code << ' ' << issue.message << '\n';
  }
}

// The shortest text that means this number and no other.
void print_number(double value) {
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  std::cout << ' ' << std::string_view(digits.data(), written.ptr);
}

void print_atoms(const BDFData& data) {
  for (const AtomRecord& atom : data.atoms) {
    std::cout << atom.element;
    print_number(atom.x);
    print_number(atom.y);
    print_number(atom.z);
    std::cout << '\n';
  }
}

void print_result(const ParseResult& result, const InputSchema& schema) {
  std::cout << "ok " << result.ok << " error '" << result.error << "' mode "
            << static_cast<int>(result.data.mode) << '\n';
  for (const ParseWarning& warning : result.data.warnings) {
    std::cout << "warning ";
    print_place(warning.location);
    std::cout << ' ' << warning.code << ' ' << warning.message << '\n';
  }
  print_atoms(result.data);
  print_findings(result.data, schema, false);
  print_findings(result.data, schema, true);
  std::cout << "rendered:\n" << BDFEditor(result.data, schema).render() << "end\n";
}

void print_file(const std::string& name, const InputSchema& schema) {
  std::cout << "==== " << name << '\n';
  for (const bool validate : {true, false}) {
    ParseOptions options;
    options.validate = validate;
    print_result(BDFParser::parse_file(name, schema, options), schema);
  }
}

int run(const std::string& schema_path) {
  const InputSchema schema = InputSchema::from_file(schema_path);
  for (std::string name; std::getline(std::cin, name);) {
    print_file(name, schema);
  }
  return std::cout.flush() ? 0 : 1;
}

}  // namespace
}  // namespace kelp::input::bdf

int main(int count, char** arguments) {
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  if (count != 2) {
    std::cerr << "usage: dump SCHEMA <NAMES\n";
    return 2;
  }
  try {
    return kelp::input::bdf::run(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
