// A test runs all of them in a folder with such files.

#include "cli/manual.hpp"

namespace kelp::app {

const std::vector<Example>& examples() {
  static const std::vector<Example> all = {
      {"", "check .", "Check all inputs below the current folder."},
      {"", "help check", "Tell more of a command."},
      {"check", "check water.inp", "Check a file."},
      {"check", "check --strict --deny 'header.*' runs",
       "Let warnings fail, and take all findings about the header for errors."},
      {"check", "check --fix --diff water.inp", "Show what the fixes that are safe would change."},
      {"check", "check --summary --exclude old runs",
       "Count the findings in a folder, without those in folders named old."},
      {"check", "check --files-from list.txt", "Check the files that a list names."},
      {"format", "format --diff water.inp", "Show what would be laid out otherwise."},
      {"format", "format --check runs", "Name the files that are laid out otherwise."},
      {"set", "set -i water.inp scf.charge=2 scf.maxiter=200", "Change two values in the file."},
      {"set", "set --diff water.inp --charge 2 --multiplicity 1",
       "Show how the charge would be changed, wherever the input states it."},
      {"set", "set water.inp --geometry new.xyz -o new.inp", "Write a copy with other atoms."},
      {"set", "set --diff water.inp --unset scf.charge", "Show the input without a value."},
      {"sweep",
       "sweep water.inp scf.charge=0,2 compass.basis=sto-3g,def2-svp --name "
       "'{basis}/{charge}.inp' "
       "-o runs",
       "Write four files, in a folder for each basis set."},
      {"sweep", "sweep water.inp scf.maxiter=50,100 --name 'water-{maxiter}.inp' --dry-run",
       "Show which files would be written."},
      {"get", "get scf.charge water.inp", "Print a value."},
      {"get", "get easy.basis runs", "Print the basis set of each input in a folder."},
      {"get", "get geometry --json water.inp", "Print the atoms with their positions, as JSON."},
      {"show", "show water.inp", "Print what a file computes, and its outline."},
      {"diff", "diff water.inp new.inp", "Tell what differs in meaning, not in layout."},
      {"explain", "explain scf.guess", "Tell what an entry means, and which values it takes."},
      {"explain", "explain bdf.unknown_entry", "Tell what a finding means, and how to mend it."},
      {"config", "config runs", "Print which settings hold in a folder."},
      {"schema path", "schema path", "Print which vocabulary is used."},
      {"schema list", "schema list", "List all modules."},
      {"schema list", "schema list scf", "List the entries of a module."},
      {"schema lint", "schema lint ours.yaml", "Check a vocabulary of one's own."},
      {"schema findings", "schema findings", "Print the JSON Schema of 'check --format json'."},
      {"completion", "completion bash", "Print what makes bash complete words of the command."},
  };
  return all;
}

}  // namespace kelp::app
