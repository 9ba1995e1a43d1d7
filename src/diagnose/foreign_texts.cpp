// People give the file beside the one that they mean: the job script, the input of another program
// that they are coming from, the atoms alone. Each kind has lines that no input of BDF has in their
// places; one that has a single trait of BDF is none of them.

#include "diagnose/foreign_texts.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "diagnose/frame_faults.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/method_specification.hpp"
#include "source/atom_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

bool is_shell_name(std::string_view path) {
  constexpr std::array<std::string_view, 9> names = {"sh",  "bash", "csh",    "tcsh", "zsh",
                                                     "ksh", "dash", "python", "perl"};
  path.remove_prefix(std::min(path.rfind('/') + 1, path.size()));
  while (!path.empty() && path.back() >= '.' && path.back() <= '9') {
    path.remove_suffix(1);  // python3
  }
  return std::find(names.begin(), names.end(), path) != names.end();
}

// "#!/bin/bash -l", "#!/usr/bin/env bash"
bool names_shell(std::string_view line) {
  std::string_view rest = core::text::trim_view(line);
  if (!is_script_line(rest)) {
    return false;
  }
  rest.remove_prefix(2);
  std::string_view path = core::text::take_word(rest);
  if (!path.starts_with('/')) {
    return false;
  }
  if (path.ends_with("/env")) {
    path = core::text::take_word(rest);
  }
  return is_shell_name(path);
}

bool is_job_option(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return text.starts_with("#SBATCH ") || text.starts_with("#PBS ") || text.starts_with("#BSUB ") ||
         text.starts_with("#$ ");
}

bool is_shell_command(std::string_view line) {
  constexpr std::array<std::string_view, 16> commands = {
      "export", "module", "source", "cd",     "cat", "set", "setenv", "ulimit",
      "bdf.py", "srun",   "mpirun", "sbatch", "bdf", "cp",  "mkdir",  "echo"};
  std::string_view rest = core::text::trim_view(line);
  const std::string_view word = core::text::take_word(rest);
  return !core::text::trim_view(rest).empty() &&
         std::find(commands.begin(), commands.end(), word) != commands.end();
}

// The line that tells a script, among those before the first module or the geometry; 0 for none.
std::size_t find_script_line(const ParsedInput& input) {
  for (std::size_t number = 1; number <= input.source().line_count(); ++number) {
    const std::string_view line = input.source().line(number);
    switch (input.line(number).role) {
      case LineRole::Blank:
        break;
      case LineRole::Comment:
      case LineRole::ScriptLine:
        if (names_shell(line) || is_job_option(line)) {
          return number;
        }
        break;
      case LineRole::Header:
        if (is_shell_command(line)) {
          return number;
        }
        break;
      default:
        return 0;
    }
  }
  return 0;
}

Diagnostic foreign_text(const ParsedInput& input, std::size_t line, std::string_view code,
                        std::string message, std::string label, std::string help) {
  Diagnostic diagnostic = frame_finding(code, std::move(message));
  diagnostic.range = input.source().content(line);
  diagnostic.label = std::move(label);
  diagnostic.help = {std::move(help)};
  return diagnostic;
}

Diagnostic shell_script(const ParsedInput& input, std::size_t line) {
  return foreign_text(input, line, "frame.shell_script",
                      "The text is a shell script, not an input of BDF.", "for a shell",
                      "keep the input in a file of its own, without the lines for the shell");
}

Diagnostic other_program(const ParsedInput& input, std::size_t line, const std::string& program) {
  Diagnostic diagnostic = foreign_text(
      input, line, "frame.other_program", "The text is an input of " + program + ", not of BDF.",
      "of " + program, "its atoms may be taken over, between 'geometry' and 'end geometry'");
  diagnostic.arguments = {program};
  return diagnostic;
}

Diagnostic atoms_alone(const ParsedInput& input) {
  return foreign_text(input, 1, "frame.atoms_alone",
                      "The text is an XYZ file: it has atoms, but nothing that is to be computed.",
                      "the number of atoms",
                      "write its atoms between 'geometry' and 'end geometry' of an input");
}

/// The lines of a text, each without white space around it.
class Lines {
 public:
  explicit Lines(const SourceText& source) : source_(source) {}

  std::size_t count() const { return source_.line_count(); }
  std::string_view at(std::size_t number) const {
    return number <= count() ? core::text::trim_view(source_.line(number)) : std::string_view();
  }
  bool is_atom(std::size_t number) const { return read_atom_line(at(number)).is_atom(); }
  /// Returns the first line for which a predicate holds, from a line on; 0 for none.
  template <typename Predicate>
  std::size_t find(Predicate holds, std::size_t from = 1) const {
    for (std::size_t number = from; number <= count(); ++number) {
      if (holds(at(number))) {
        return number;
      }
    }
    return 0;
  }

 private:
  const SourceText& source_;
};

bool is_integers(std::string_view line, std::size_t wanted) {
  std::size_t count = 0;
  for (std::string_view word; !(word = core::text::take_word(line)).empty(); ++count) {
    if (!core::number::parse_integer(word)) {
      return false;
    }
  }
  return count == wanted;
}

// "#p b3lyp/6-31g(d) opt", "# HF/3-21G"
bool is_route(std::string_view line) {
  constexpr std::array<std::string_view, 4> marks = {"#", "#p", "#n", "#t"};
  const std::string_view mark = core::text::take_word(line);
  return !core::text::trim_view(line).empty() &&
         std::any_of(marks.begin(), marks.end(), [&](std::string_view each) {
           return core::text::equals_ignoring_case(mark, each);
         });
}

// A route, a title between empty lines, then charge and multiplicity above the first atom.
std::size_t find_gaussian(const Lines& lines) {
  const std::size_t route = lines.find(is_route);
  if (route == 0) {
    return 0;
  }
  const auto is_empty = [](std::string_view line) { return line.empty(); };
  const std::size_t above_title = lines.find(is_empty, route);
  const std::size_t below_title = above_title == 0 ? 0 : lines.find(is_empty, above_title + 1);
  const bool is_molecule = below_title != 0 && is_integers(lines.at(below_title + 1), 2) &&
                           lines.is_atom(below_title + 2);
  return is_molecule ? route : 0;
}

// "! B3LYP def2-SVP", and "* xyz 0 1" above the atoms.
std::size_t find_orca(const Lines& lines) {
  constexpr std::array<std::string_view, 5> forms = {"xyz", "xyzfile", "int", "internal", "gzmt"};
  const std::size_t keywords =
      lines.find([](std::string_view line) { return line.starts_with('!'); });
  const std::size_t atoms = lines.find([&](std::string_view line) {
    if (!line.starts_with('*')) {
      return false;
    }
    line.remove_prefix(1);
    const std::string_view form = core::text::take_word(line);
    return std::any_of(forms.begin(), forms.end(), [&](std::string_view each) {
      return core::text::equals_ignoring_case(form, each);
    });
  });
  return atoms == 0 ? 0 : keywords;
}

// "$molecule" and "$rem".
std::size_t find_q_chem(const Lines& lines) {
  const auto line_of = [&](std::string_view header) {
    return lines.find([&](std::string_view line) {
      return core::text::equals_ignoring_case(core::text::take_word(line), header);
    });
  };
  const std::size_t molecule = line_of("$molecule");
  const std::size_t settings = line_of("$rem");
  return molecule == 0 || settings == 0 ? 0 : std::min(molecule, settings);
}

// The number of atoms, a title, and nothing but atoms.
bool is_xyz(const Lines& lines) {
  if (!is_integers(lines.at(1), 1) || !lines.is_atom(3)) {
    return false;
  }
  return lines.find(
             [](std::string_view line) { return !line.empty() && !read_atom_line(line).is_atom(); },
             3) == 0;
}

bool has_part_of_bdf(const BDFData& data) {
  const auto is_known = [](const Module& module) { return module.known; };
  return data.has_geometry || std::any_of(data.modules.begin(), data.modules.end(), is_known);
}

std::optional<Diagnostic> find_other_program(const ParsedInput& input) {
  const Lines lines(input.source());
  if (const std::size_t line = find_gaussian(lines); line != 0) {
    return other_program(input, line, "Gaussian");
  }
  if (const std::size_t line = find_orca(lines); line != 0) {
    return other_program(input, line, "ORCA");
  }
  if (const std::size_t line = find_q_chem(lines); line != 0) {
    return other_program(input, line, "Q-Chem");
  }
  return is_xyz(lines) ? std::optional(atoms_alone(input)) : std::nullopt;
}

}  // namespace

std::optional<Diagnostic> find_foreign_text(const ParsedInput& input) {
  const BDFData& data = input.data();
  if (!has_part_of_bdf(data)) {
    if (auto other = find_other_program(input)) {
      return other;
    }
  }
  if (data.mode == InputMode::Module || data.has_geometry || has_method_specification(data)) {
    return std::nullopt;
  }
  const std::size_t line = find_script_line(input);
  return line != 0 ? std::optional(shell_script(input, line)) : std::nullopt;
}

}  // namespace kelp::input::bdf
