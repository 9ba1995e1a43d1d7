// Tells what keywords and codes mean, as a window beside an input would:
//
//     explain scf.maxiter bdf.missing_entry_value

#include <iostream>
#include <kelp/input/bdf.hpp>
#include <string>
#include <vector>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  const std::vector<std::string> names(arguments + 1, arguments + count);
  const bdf::InputSchema& schema = bdf::default_schema();

  for (const std::string& name : names) {
    const std::vector<bdf::Explanation> meanings = bdf::explain(name, schema);
    for (const bdf::Explanation& meaning : meanings) {
      std::cout << bdf::explanation_text(meaning) << '\n';
    }
    if (meanings.empty()) {
      const auto similar = bdf::similar_explained_names(name, schema);
      std::cout << name << ": unknown; similar: " << bdf::quoted_choice(similar) << '\n';
    }
  }
}
