// Prints the entries of a module that begin with what was typed, or else those that it may be a
// slip of:
//
//     complete scf max

#include <iostream>
#include <kelp/input/bdf.hpp>
#include <string>
#include <vector>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "usage: complete MODULE LETTERS\n";
    return 2;
  }
  const std::string letters = arguments[2];
  const bdf::NameLists names(bdf::default_schema());
  const std::vector<std::string>& entries = names.entries(arguments[1]);

  std::vector<std::string> choice;
  for (const std::string& entry : entries) {
    if (entry.starts_with(letters)) {
      choice.push_back(entry);
    }
  }
  if (choice.empty()) {
    choice = bdf::similar_names(letters, entries);
  }
  for (const std::string& entry : choice) {
    std::cout << entry << '\n';
  }
}
