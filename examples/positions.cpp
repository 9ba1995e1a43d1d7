// Prints what stands at each word that is looked for: positions FILE WORD...

#include <fstream>
#include <iostream>
#include <sstream>

#include "kelp/input/bdf.hpp"

int main(int argc, char** argv) {
  using namespace kelp::input::bdf;
  if (argc < 2) {
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  const ParsedInput input(text.str(), default_schema());
  const SourceText& source = input.source();
  for (int i = 2; i < argc; ++i) {
    const std::size_t byte = source.text().find(argv[i]);
    const RecordId record = input.record_at(byte);
    const TextPosition position = source.position(byte);
    std::cout << argv[i] << ": line " << position.line << ", column " << position.column << ", "
              << path_of(input.data(), record) << ", lines " << input.first_line(record) << " to "
              << input.last_line(record) << '\n';
  }
}
