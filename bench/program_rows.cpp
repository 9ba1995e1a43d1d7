// What the command does with a file, as a process. Files are written into a folder of their own,
// which goes with the last row.

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "rows.hpp"
#include "texts.hpp"

namespace kelp::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view small_input =
    "# Water.\n#! water.bdf\nB3lyp/def2-svp charge=0\n\nGeometry\n  O  0.0  0.0  0.1173\n"
    "  H  0.0  0.7572  -0.4692\n  H  0.0  -0.7572  -0.4692\nEnd Geometry\n\n$scf\n  grid\n"
    "    fine\n  thrden\n    1.0d-6\n$end\n";

/// A folder that goes when the last row is gone.
class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "kelp-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("no temporary folder");
    }
    path_ = name;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  std::string write(const std::string& name, std::string_view text) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
  }

 private:
  fs::path path_;
};

using SharedFolder = std::shared_ptr<const Folder>;
using Command = std::vector<std::string>;

Command kelp(std::initializer_list<std::string> arguments) {
  Command command = {KELP_PROGRAM};
  command.insert(command.end(), arguments);
  return command;
}

Ratio compare_commands(const Command& floor, const Command& subject, int turns) {
  return compare([&] { return use_of(floor); }, [&] { return use_of(subject); }, turns);
}

Ratio check_small_file(const SharedFolder& folder, int turns) {
  const std::string file = folder->write("small.inp", small_input);
  const std::string empty = folder->write("empty.yaml", "schema_version: 1\n");
  return compare_commands(kelp({"check", "--quiet", "--schema", empty, file}),
                          kelp({"check", "--quiet", file}), 10 * turns);
}

struct Size {
  std::string name;
  std::string text;
};

// With the assignment that changes it.
struct Editable {
  std::string file;
  std::string assignment;
};

Editable editable(const SharedFolder& folder, std::size_t atom_count) {
  if (atom_count == 0) {
    return {folder->write("keywords.inp", keywords(20)), "scf#1.charge=1"};
  }
  return {folder->write(std::to_string(atom_count) + ".inp", atoms(atom_count)), "easy.charge=1"};
}

int turns_of(std::size_t atom_count, int turns) {
  return atom_count == 0 ? 10 * turns : turns;
}

Ratio set(const SharedFolder& folder, std::size_t atom_count, int turns) {
  const Editable input = editable(folder, atom_count);
  return compare_commands(kelp({"check", "--quiet", input.file}),
                          kelp({"set", input.file, input.assignment}), turns_of(atom_count, turns));
}

Ratio format(const SharedFolder& folder, std::size_t atom_count, int turns) {
  const Editable input = editable(folder, atom_count);
  return compare_commands(kelp({"check", "--quiet", input.file}), kelp({"format", input.file}),
                          turns_of(atom_count, turns));
}

Ratio memory_of_set(const SharedFolder& folder, std::size_t atom_count) {
  const Editable input = editable(folder, atom_count);
  const Use use = use_of(kelp({"set", input.file, input.assignment}));
  const auto size = static_cast<double>(fs::file_size(input.file));
  return {use.bytes / size, use.bytes / size, use.bytes / size, {0, size}, use};
}

Ratio check_many_files(const SharedFolder& folder, std::size_t count, int turns) {
  for (std::size_t i = 0; i < count; ++i) {
    folder->write("many/" + std::to_string(i) + ".inp", small_input);
  }
  const std::string many = fs::path(folder->write("many/0.inp", small_input)).parent_path();
  const Command concatenate = {"/bin/sh", "-c", "cd '" + many + "' && ls -U | xargs cat"};
  return compare_commands(concatenate, kelp({"check", "--quiet", many}), turns);
}

}  // namespace

std::vector<Row> program_rows(bool quick) {
  const auto folder = std::make_shared<const Folder>();
  const std::size_t million = quick ? 1000 : 1000000;
  const std::size_t files = quick ? 100 : 10000;
  const std::string check = "`check` of it";
  std::vector<Row> rows = {{"`check` of a small file", "the same with an empty schema", 1.5,
                            [=](int turns) { return check_small_file(folder, turns); }}};
  for (const std::size_t atom_count : {std::size_t{0}, million / 10, million}) {
    const std::string name = atom_count == 0 ? "450 lines" : std::to_string(atom_count) + " atoms";
    rows.push_back(
        {"`set` in " + name, check, 2, [=](int turns) { return set(folder, atom_count, turns); }});
    rows.push_back({"`format` of " + name, check, 2,
                    [=](int turns) { return format(folder, atom_count, turns); }});
  }
  rows.push_back({"memory of `set`, " + std::to_string(million / 10) + " atoms", "the text", 3,
                  [=](int) { return memory_of_set(folder, million / 10); }, true});
  rows.push_back({"memory of `set`, " + std::to_string(million) + " atoms", "the text", 3,
                  [=](int) { return memory_of_set(folder, million); }, true});
  rows.push_back({"`check` of " + std::to_string(files) + " small files", "`cat` of them", 0,
                  [=](int turns) { return check_many_files(folder, files, turns); }});
  return rows;
}

}  // namespace kelp::bench
