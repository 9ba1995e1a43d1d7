#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"guess.readmo_without_orbitals",
     "The first $scf reads its orbitals from a file that nothing in the input makes. Without the "
     "file BDF takes the guess 'atom'.",
     "An input that goes on with an earlier one, or a part of a longer input.",
     "Have NAME.scforb beside NAME.inp, or copy it with a line such as "
     "'% cp $BDF_WORKDIR/old.scforb $BDF_TMPDIR/inporb'.",
     "", "", note},
    {"guess.readmo_other_molecule",
     "Orbitals are read for a molecule with other atoms, or other atoms in their order, than the "
     "one "
     "that they were made for.",
     "The guess was kept when the geometry was changed, or the line that copies the right orbitals "
     "is "
     "missing.",
     "Copy orbitals of the same atoms in the same order, or take another guess.", "", "", warning},
    {"guess.readmo_other_basis", "Orbitals are read that are of another basis set.",
     "A second $compass with a larger basis set, and no projection between.",
     "Project the orbitals with $expandmo, or take another guess.", "", "", warning},
    {"guess.readmo_other_group", "Orbitals are read that are of another point group.",
     "Only one of two $compass has group or nosymm.", "Give both the same.", "", "", warning},
    {"guess.mixorb_without_readmo",
     "mixorb mixes orbitals that it names by number. Before a calculation their numbers are known "
     "only of orbitals that are read.",
     "guess was forgotten.", "Read orbitals of an earlier run: guess readmo.",
     "$scf\nuhf\nmixorb\n  1\n  1 1 5 6 45.\n$end\n",
     "$scf\nuhf\nguess\n  readmo\nmixorb\n  1\n  1 1 5 6 45.\n$end\n", warning},
    {"guess.mixorb_spin",
     "The first number of a row of mixorb is the spin, 1 for alpha and 2 for beta. rhf and rks do "
     "not "
     "tell them apart.",
     "The method was changed and the rows were not.", "Write 1.",
     "$scf\nrhf\nguess\n  readmo\nmixorb\n  1\n  2 1 5 6 45.\n$end\n",
     "$scf\nrhf\nguess\n  readmo\nmixorb\n  1\n  1 1 5 6 45.\n$end\n", error},
    {"guess.hp_line_count",
     "hpalpha and hpbeta have the number of pairs, then for each pair a line for the hole and one "
     "for "
     "the particle.",
     "A line was forgotten, or the number counts lines.", "Correct the number or the lines.",
     "$scf\nuhf\nifpair\niaufbau\n  2\nhpalpha\n  2\n  5 0 0 0\n  6 0 0 0\n$end\n",
     "$scf\nuhf\nifpair\niaufbau\n  2\nhpalpha\n  1\n  5 0 0 0\n  6 0 0 0\n$end\n", error},
    {"guess.hp_line_length",
     "Each line of hpalpha and hpbeta has one number for each irreducible representation.",
     "A number was forgotten.", "Give all lines the same length.",
     "$scf\nuhf\nifpair\niaufbau\n  2\nhpalpha\n  1\n  5 0 0 0\n  6 0 0\n$end\n",
     "$scf\nuhf\nifpair\niaufbau\n  2\nhpalpha\n  1\n  5 0 0 0\n  6 0 0 0\n$end\n", error},
    {"guess.hp_needs_mom",
     "hpalpha and hpbeta move electrons before the first iteration. With the usual way to occupy "
     "orbitals, the lowest first, they may go back.",
     "iaufbau was forgotten.",
     "Set iaufbau to 2, so that the occupation follows the orbitals (MOM).",
     "$scf\nuhf\nifpair\nhpalpha\n  1\n  5 0 0 0\n  6 0 0 0\n$end\n",
     "$scf\nuhf\nifpair\niaufbau\n  2\nhpalpha\n  1\n  5 0 0 0\n  6 0 0 0\n$end\n", note},
    {"guess.mom_without_target",
     "iaufbau 2 keeps the occupation of the orbitals that the calculation began with, and nothing "
     "says which state that is.",
     "The entries that choose the state were left out.",
     "Give the state: ifpair with hpalpha or hpbeta, or occupations; or read its orbitals.", "", "",
     note},
});

}  // namespace

std::span<const FindingText> guess_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
