// What the library does with a text in memory.

#include <yaml-cpp/yaml.h>

#include <cmath>
#include <cstdlib>

#include "floors.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/input/bdf.hpp"
#include "rows.hpp"
#include "texts.hpp"

namespace kelp::bench {
namespace {

namespace bdf = input::bdf;

constexpr std::size_t modules_of_table = 20;
constexpr std::size_t atoms_of_table = 100000;
constexpr std::size_t many_modules = 10000;

bdf::ParseOptions without_validation() {
  bdf::ParseOptions options;
  options.validate = false;
  options.custom_unknown_policy = true;
  return options;
}

void parse(const std::string& text, const bdf::ParseOptions& options) {
  keep(bdf::BDFParser::parse_string(text, bdf::default_schema(), options));
}

bdf::BDFData document(const std::string& text) {
  return bdf::BDFParser::parse_string(text, bdf::default_schema(), without_validation()).data;
}

Ratio compare_work(const Work& floor, const Work& subject, int turns) {
  bdf::default_schema();
  return compare([&] { return use_of(floor); }, [&] { return use_of(subject); }, turns);
}

void cut(const std::string& text) {
  keep(cut_lines(text));
}

Ratio parse_keywords(int turns) {
  const std::string text = keywords(modules_of_table);
  return compare_work([&] { cut(text); }, [&] { parse(text, without_validation()); }, turns);
}

Ratio copy_document(int turns) {
  const std::string text = keywords(modules_of_table);
  const bdf::BDFData data = document(text);
  return compare_work([&] { cut(text); }, [&] { keep(bdf::BDFData(data)); }, turns);
}

Ratio parse_and_validate(int turns) {
  const std::string text = keywords(modules_of_table);
  return compare_work([&] { cut(text); }, [&] { parse(text, {}); }, turns);
}

Ratio diagnose_keywords(int turns) {
  const std::string text = keywords(modules_of_table);
  return compare_work([&] { cut(text); },
                      [&] {
                        keep(bdf::diagnose({text, bdf::default_schema()}));
                      },
                      turns);
}

Ratio diagnose_without_advice(int turns) {
  const std::string text = keywords(modules_of_table);
  bdf::DiagnoseOptions options;
  options.advice = false;
  return compare_work([&] { cut(text); },
                      [&] {
                        keep(bdf::diagnose({text, bdf::default_schema()}, options));
                      },
                      turns);
}

Ratio parse_atoms(int turns) {
  const std::string text = atoms(atoms_of_table);
  return compare_work([&] { keep(cut_atoms(text)); }, [&] { parse(text, {}); }, turns);
}

Ratio diagnose_atoms(int turns) {
  const std::string text = atoms(atoms_of_table);
  return compare_work([&] { keep(cut_atoms(text)); },
                      [&] {
                        keep(bdf::diagnose({text, bdf::default_schema()}));
                      },
                      turns);
}

Ratio render_keywords(int turns) {
  const bdf::BDFEditor editor(document(keywords(modules_of_table)), bdf::default_schema());
  const std::string rendered = editor.render();
  return compare_work([&] { keep(copy_lines(rendered)); }, [&] { keep(editor.render()); }, turns);
}

Ratio render_atoms(int turns) {
  const bdf::BDFEditor editor(document(atoms(atoms_of_table)), bdf::default_schema());
  return compare_work([&] { keep(write_coordinates(editor.data().atoms)); },
                      [&] { keep(editor.render()); }, turns);
}

Ratio load_schema(int turns) {
  const std::string text = core::fs::read_text_file(KELP_SOURCE_DIR "/schemas/input/bdf.yaml");
  return compare_work([&] { keep(YAML::Load(text)); },
                      [&] { keep(bdf::InputSchema::from_yaml(text)); }, turns);
}

Ratio edit_by_editor(int turns) {
  const bdf::BDFData data = document(same_modules(many_modules));
  const auto edit = [&](bool everywhere) {
    bdf::BDFEditor editor(data, bdf::default_schema());
    for (std::size_t i = 0; i < many_modules; ++i) {
      editor.set_module_entry("scf", everywhere ? i : 0, "charge", {std::to_string(i % 7)});
    }
  };
  return compare_work([&] { edit(false); }, [&] { edit(true); }, turns);
}

Ratio edit_by_paths(int turns) {
  const bdf::ParsedInput input(same_modules(many_modules), bdf::default_schema());
  const auto edit = [&](bool everywhere) {
    bdf::Edit wanted;
    for (std::size_t i = 0; i < many_modules; ++i) {
      const std::string module = everywhere ? "scf#" + std::to_string(i + 1) : "scf#1";
      wanted.assignments.push_back({*bdf::parse_path(module + ".charge").path, {"1"}});
    }
    const bdf::Rewrite rewrite = bdf::edit_input(input, wanted);
    if (rewrite.edits.size() != (everywhere ? many_modules : 1)) {
      std::abort();
    }
  };
  return compare_work([&] { edit(false); }, [&] { edit(true); }, turns);
}

// The text itself is there before the work begins.
Ratio memory_of(const std::string& text) {
  bdf::default_schema();
  const Use use = use_of([&] { parse(text, without_validation()); });
  const auto size = static_cast<double>(text.size());
  const double ratio = (use.bytes + size) / size;
  return {ratio, ratio, ratio, {0, size}, use};
}

}  // namespace

std::vector<Row> library_rows(bool quick) {
  const std::size_t many_lines = quick ? 10000 : 10000000;
  const std::string cutting = "cut the text, store each line";
  return {
      {"parse 200 keywords in 20 modules", cutting, 3, parse_keywords},
      {"copy the document of that", cutting, 0, copy_document},
      {"parse and validate them", cutting, 5, parse_and_validate},
      {"`ParsedInput` and `diagnose` of them", cutting, 12, diagnose_keywords},
      {"the same without advice", cutting, 0, diagnose_without_advice},
      {"parse 100,000 atoms", "the same, three `from_chars`, a record", 1.05, parse_atoms},
      {"`ParsedInput` and `diagnose` of 100,000 atoms", "the same, three `from_chars`, a record", 0,
       diagnose_atoms},
      {"render the keywords", "append each line to a reserved text", 2, render_keywords},
      {"render 100,000 atoms", "three `to_chars` each", 1, render_atoms},
      {"load another schema", "`YAML::Load`", 1.05, load_schema},
      {"`BDFEditor`: an edit in each of 10,000 modules", "10,000 edits in one of them", 2,
       edit_by_editor},
      {"`edit_input`: an edit in each of 10,000 modules", "10,000 edits in one of them", 2,
       edit_by_paths},
      {"memory, 10 million lines of keywords", "the text", 10,
       [=](int) { return memory_of(keywords(many_lines / lines_of_module)); }, true},
      {"memory, 10 million atoms", "the text", 4, [=](int) { return memory_of(atoms(many_lines)); },
       true},
  };
}

std::vector<Point> growth(double most) {
  std::vector<Point> points;
  bdf::default_schema();
  for (double lines = 1e3; lines <= most; lines *= std::sqrt(10.0)) {
    const auto count = static_cast<std::size_t>(lines);
    const int turns = lines < 1e5 ? 5 : lines < 1e6 ? 3 : 1;
    for (const bool of_atoms : {false, true}) {
      const std::string text = of_atoms ? atoms(count) : keywords(count / lines_of_module);
      const Ratio ratio = compare_work([&] { of_atoms ? keep(cut_atoms(text)) : cut(text); },
                                       [&] { parse(text, {}); }, turns);
      points.push_back(
          {of_atoms ? "atoms" : "keywords", lines, ratio.subject.seconds, ratio.floor.seconds});
    }
  }
  return points;
}

}  // namespace kelp::bench
