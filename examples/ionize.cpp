// Reads an input, makes it a cation with more SCF iterations, and prints the new input.

#include <filesystem>
#include <iostream>
#include <kelp/input/bdf.hpp>
#include <string>

namespace bdf = kelp::input::bdf;

// Names of files are UTF-8 for the library. Windows gives them to `wmain`, in UTF-16.
#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
#else
int main(int count, char** arguments) {
#endif
  const bdf::InputSchema& schema = bdf::default_schema();

  for (int i = 1; i < count; ++i) {
    const std::u8string name = std::filesystem::path(arguments[i]).u8string();
    const std::string file(name.begin(), name.end());
    const bdf::ParseResult input = bdf::BDFParser::parse_file(file, schema, {});
    if (!input.ok) {
      // A file that cannot be read is named by the error.
      const bool is_named = input.error.find(file) != std::string::npos;
      std::cerr << (is_named ? "" : file + ": ") << input.error << '\n';
      return 1;
    }
    bdf::BDFEditor editor(input.data, schema);
    editor.set_charge_and_multiplicity(1, 2);
    editor.set_module_entry("scf", "maxiter", {"200"});
    std::cout << editor.render();
  }
  return 0;
}
