// What an input computes, as hosts are told.

#include "kelp/input/bdf/calculation.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Calculation calculated(const std::string& text) {
  return calculation_of(ParsedInput(text, shipped_schema()));
}

std::string easy(const std::string& header, const std::string& atoms,
                 const std::string& rest = {}) {
  return "#! a\n" + header + "\ngeometry\n" + atoms + "end geometry\n" + rest;
}

std::string compass(const std::string& atoms, const std::string& basis = "basis\n 6-31g\n") {
  return "$compass\n" + basis + "geometry\n" + atoms + "end geometry\n$end\n";
}

std::string scf(const std::string& entries) {
  return "$scf\n" + entries + "$end\n";
}

const std::string helium = "He 0 0 0\n";
const std::string lithium = "Li 0 0 0\n";

// What is known of an SCF, in one line; an asterisk stands behind a default.
std::string told(const Calculation::Scf& it) {
  const auto name = [](const auto& given) {
    return given ? given->name + (given->is_default ? "*" : "") : std::string("-");
  };
  const auto number = [](const auto& given) {
    return given ? std::to_string(given->value) + (given->is_default ? "*" : "") : std::string("-");
  };
  return name(it.reference) + " " + name(it.functional) + " q=" + number(it.charge) +
         " m=" + number(it.multiplicity) +
         " n=" + (it.electrons ? std::to_string(*it.electrons) : "-");
}

std::vector<std::string> scfs_of(const std::string& text) {
  std::vector<std::string> all;
  for (const Calculation::Scf& it : calculated(text).scfs) {
    all.push_back(told(it));
  }
  return all;
}

std::vector<std::string> tasks_of(const std::string& text) {
  std::vector<std::string> all;
  for (const Calculation::Task& task : calculated(text).tasks) {
    all.push_back(std::string(to_string(task.kind)) + " " + std::to_string(task.origin.line));
  }
  return all;
}

TEST(CalculationScf, IsToldWithWhereItIsStated) {
  const std::string text =
      compass("O 0 0 0\nH1 0 0 1\nX 0 1 1\n") + scf("UKS\ndft\n B3LYP\ncharge\n  +1\nspin\n 2\n");
  const Calculation calculation = calculated(text);
  ASSERT_THAT(scfs_of(text), ElementsAre("uks b3lyp q=1 m=2 n=8"));
  const Calculation::Scf& it = calculation.scfs.front();
  EXPECT_EQ(it.origin.line, 10U);
  EXPECT_EQ(it.charge->origin.line, 14U);
  EXPECT_EQ(text.substr(it.charge->origin.range.begin, it.charge->origin.range.size()), "+1");
  EXPECT_EQ(it.multiplicity->origin.line, 16U);
  EXPECT_EQ(it.reference->origin.line, 11U);
  EXPECT_EQ(it.functional->origin.line, 12U);
  EXPECT_TRUE(calculation.is_complete);
  EXPECT_FALSE(calculation.method);
}

TEST(CalculationScf, TakesTheDefaultsOfTheProgram) {
  EXPECT_THAT(scfs_of(compass(helium) + scf("rhf\n")), ElementsAre("rhf - q=0* m=1* n=2"));
  EXPECT_THAT(scfs_of(compass(lithium) + scf("uhf\n")), ElementsAre("uhf - q=0* m=2* n=3"));
  const Calculation calculation = calculated(compass(helium) + scf("rhf\n"));
  EXPECT_EQ(calculation.scfs.front().charge->origin.line, 0U);
  EXPECT_FALSE(calculation.scfs.front().charge->origin.record);
}

TEST(CalculationScf, OfAHeaderChoosesItsReferenceByTheMultiplicity) {
  EXPECT_THAT(scfs_of(easy("hf/6-31g", helium)), ElementsAre("rhf* - q=0* m=1* n=2"));
  EXPECT_THAT(scfs_of(easy("b3lyp/6-31g spinmulti=3", helium)),
              ElementsAre("uks* b3lyp q=0* m=3 n=2"));
  EXPECT_THAT(scfs_of(easy("ks/pbe0/6-31g charge=1", helium)),
              ElementsAre("uks* pbe0 q=1 m=2* n=1"));
  EXPECT_THAT(scfs_of(easy("roks/b3lyp/6-31g\ncharge 1 # c", helium)),
              ElementsAre("roks b3lyp q=1 m=2* n=1"));
  // Excited states may start from another one.
  EXPECT_THAT(scfs_of(easy("tddft/b3lyp/6-31g", helium)), ElementsAre("- b3lyp q=0* m=1* n=2"));
  EXPECT_EQ(calculated(easy("tdft/b3lyp/6-31g", helium)).method->name, "tddft");
}

TEST(CalculationScf, OfAModuleCountsBeforeTheHeader) {
  EXPECT_THAT(scfs_of(easy("uks/b3lyp/6-31g charge=1", helium, scf("charge\n 0\nrks\n"))),
              ElementsAre("rks b3lyp q=0 m=1* n=2"));
  EXPECT_THAT(scfs_of(easy("b3lyp/6-31g", helium, scf("rhf\n"))),
              ElementsAre("rhf - q=0* m=1* n=2"));
  EXPECT_THAT(scfs_of(easy("b3lyp/6-31g charge=1", helium, scf("...\n"))),
              ElementsAre("- - q=- m=- n=-"));
}

TEST(CalculationScf, LeavesOutWhatIsNotCertain) {
  const std::string molecule = compass(helium);
  EXPECT_THAT(scfs_of(molecule + scf("rhf\ncharge\n 1.0\n")), ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(molecule + scf("rhf\nuks\n")), ElementsAre("- - q=0* m=1* n=2"));
  EXPECT_THAT(scfs_of(molecule + scf("rhf\ncharge\n 1\ncharge\n 2\n")),
              ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(molecule + scf("rhf\nchrage\n 1\n")), ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(molecule + scf("rhf\n...\n")), ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(molecule + "...\n" + scf("rhf\n")), ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(scf("rhf\n")), ElementsAre("rhf - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(molecule + scf("uhf\nalpha\n 2\nbeta\n 0\n")),
              ElementsAre("uhf - q=0* m=- n=2"));
  EXPECT_THAT(scfs_of(compass(lithium) + scf("rhf\n")), ElementsAre("rhf - q=0* m=- n=3"));
  EXPECT_THAT(scfs_of(easy("hf/6-31g chrage=1", helium)), ElementsAre("- - q=- m=- n=-"));
  EXPECT_THAT(scfs_of(easy("nosuch/6-31g", helium)), IsEmpty());
  EXPECT_THAT(scfs_of(easy("nosuch/b3lyp/6-31g", helium)), IsEmpty());
}

TEST(CalculationSystems, AreToldWithTheirNucleiAndBasisSets) {
  const std::string text =
      compass("C1 0 0 0\nH 0 0 1\nFe 0 0 3\nX 1 1 1\nH 0 0 2\n",
              "basis-block\n 6-31g # c\n C1,H = vdz\nfe=lanl2dz\nend basis\n") +
      scf("rhf\n") + compass(helium, "") + scf("rhf\n") + scf("uhf\n");
  const Calculation calculation = calculated(text);
  ASSERT_EQ(calculation.systems.size(), 2U);
  const Calculation::System& first = calculation.systems[0];
  EXPECT_EQ(first.formula, "CH2Fe");
  EXPECT_EQ(first.atoms, 4U);
  EXPECT_EQ(first.origin.line, 1U);
  ASSERT_EQ(first.basis_sets.size(), 3U);
  EXPECT_EQ(first.basis_sets[0].name.name, "6-31g");
  EXPECT_THAT(first.basis_sets[0].labels, IsEmpty());
  EXPECT_EQ(first.basis_sets[0].name.origin.line, 2U);
  EXPECT_EQ(first.basis_sets[1].name.name, "cc-pvdz");
  EXPECT_THAT(first.basis_sets[1].labels, ElementsAre("C1", "H"));
  EXPECT_EQ(text.substr(first.basis_sets[2].name.origin.range.begin, 7), "lanl2dz");
  EXPECT_FALSE(first.has_inline_basis);
  EXPECT_EQ(calculation.systems[1].formula, "He");
  EXPECT_THAT(calculation.systems[1].basis_sets, IsEmpty());
  ASSERT_EQ(calculation.scfs.size(), 3U);
  EXPECT_EQ(calculation.scfs[0].system, 0U);
  EXPECT_EQ(calculation.scfs[2].system, 1U);
  EXPECT_EQ(calculation.tasks.back().system, 1U);
}

TEST(CalculationSystems, HaveNoFormulaWhenItIsNotCertain) {
  for (const char* const atoms :
       {"Or 0 0 0\n", "O 0 0 0\n...\n", "O 0 0\n", "file=a.xyz\n", "file=a.xyz\nO 0 0 0\n", ""}) {
    const Calculation calculation = calculated(compass(atoms) + scf("rhf\n"));
    EXPECT_EQ(calculation.systems.front().formula, "") << atoms;
    EXPECT_FALSE(calculation.systems.front().atoms) << atoms;
    EXPECT_FALSE(calculation.scfs.front().electrons) << atoms;
    EXPECT_FALSE(calculation.scfs.front().multiplicity) << atoms;
  }
  const Calculation twice = calculated(easy("hf/6-31g", helium, compass(lithium, "")));
  EXPECT_EQ(twice.systems.front().formula, "");
  EXPECT_FALSE(twice.scfs.front().electrons);
}

TEST(CalculationSystems, TakeTheBasisSetOfTheHeaderUnlessLinesAreMissing) {
  const auto basis = [](const std::string& text) {
    const Calculation calculation = calculated(text);
    const std::vector<Calculation::Basis>& sets = calculation.systems.front().basis_sets;
    return sets.empty() ? "" : sets.front().name.name;
  };
  EXPECT_EQ(basis(easy("hf/6-31g*", helium)), "6-31gp");
  EXPECT_EQ(basis(easy("hf/mine", helium)), "mine");
  EXPECT_EQ(basis(easy("hf/6-31g", helium, "$compass\nnosymm\n$end\n")), "6-31g");
  EXPECT_EQ(basis(easy("hf/6-31g", helium, "$compass\n...\n$end\n")), "");
  EXPECT_EQ(basis(easy("nosuch/6-31g", helium)), "");
  EXPECT_EQ(basis(compass(helium, "basis\n 6-31g\nbasis\n vdz\n")), "");
}

TEST(CalculationTasks, AreInTheOrderOfTheModules) {
  EXPECT_THAT(tasks_of(compass(helium) + "$xuanyuan\n$end\n" + scf("rks\n") +
                       "$tddft\nistore\n 1\n$end\n$tddft\nisoc\n 2\nnfiles\n 1\n$end\n"
                       "$resp\ngeom\n$end\n$resp\nquad\nfnac\n$end\n$resp\nnorder\n 0\ngeom\n$end\n"
                       "$nmr\n$end\n$nosuch\n$end\n$mp2\n$end\n"),
              ElementsAre("SCF 10", "TDDFT 13", "spin-orbit coupling 17", "gradient 23",
                          "non-adiabatic couplings 26", "response properties 30",
                          "NMR shieldings 35", "MP2 39"));
}

TEST(CalculationTasks, OfAnOptimiserDependOnItsEntries) {
  struct Row {
    const char* entries;
    std::vector<std::string> tasks;
  };
  const std::vector<Row> rows = {
      {"", {"geometry optimisation 1"}},
      {"iopt\n 3\nhess\n init\n", {"geometry optimisation 1"}},
      {"iopt\n 10\nhess\n init+final\n", {"transition state search 1", "frequencies 1"}},
      {"hess\n final\n", {"geometry optimisation 1", "frequencies 1"}},
      {"hess\n only\n...\n", {"frequencies 1"}},
      {"dimer\n", {"transition state search 1"}},
      {"neb\n", {"reaction path 1"}},
      {"solver\n 1\nscan\n 1\n 1 2 = 1 2 0.1\n", {"relaxed scan 1"}},
      {"...\n", {}},
      {"hse\n only\n", {}},
      {"hess\n nosuch\n", {}}};
  for (const Row& row : rows) {
    EXPECT_EQ(tasks_of("$bdfopt\n" + std::string(row.entries) + "$end\n"), row.tasks)
        << row.entries;
  }
}

TEST(CalculationTasks, OfTheHeaderBeginWithTheEnergy) {
  EXPECT_THAT(tasks_of(easy("b3lyp/6-31g freq opt", helium)),
              ElementsAre("SCF 2", "frequencies 2", "geometry optimisation 2"));
  EXPECT_THAT(
      tasks_of(easy("x-tda-soc/b3lyp/6-31g\nnac", helium)),
      ElementsAre("SCF 2", "TDDFT 2", "spin-orbit coupling 2", "non-adiabatic couplings 3"));
  EXPECT_THAT(tasks_of(easy("ri-mp2/6-31g opt=false ts+freq scan scan+opt irc", helium)),
              ElementsAre("SCF 2", "MP2 2", "transition state search 2", "frequencies 2",
                          "rigid scan 2", "relaxed scan 2", "reaction path 2"));
  EXPECT_THAT(tasks_of(easy("nosuch/6-31g opt", helium)), ElementsAre("geometry optimisation 2"));
  EXPECT_THAT(tasks_of(easy("hf/6-31g # opt", helium)), ElementsAre("SCF 2"));
}

TEST(CalculationTasks, OfTheHeaderAndAModuleAreOne) {
  EXPECT_THAT(
      tasks_of(easy("tddft/b3lyp/6-31g opt", helium,
                    "$bdfopt\nhess\n final\n$end\n$tddft\n$end\n$resp\ngeom\n$end\n")),
      ElementsAre("SCF 2", "TDDFT 10", "geometry optimisation 6", "frequencies 6", "gradient 12"));
}

TEST(TaskKinds, HaveNames) {
  EXPECT_EQ(to_string(TaskKind::Scf), "SCF");
  EXPECT_EQ(to_string(TaskKind::VibronicStates), "vibronic states");
  EXPECT_EQ(to_string(static_cast<TaskKind>(20)), "unknown");
  EXPECT_EQ(to_string(static_cast<TaskKind>(-1)), "unknown");
}

TEST(CalculationOf, NothingIsEmpty) {
  const Calculation calculation = calculated("");
  EXPECT_FALSE(calculation.is_complete);
  EXPECT_EQ(calculation.systems.size(), 1U);
  EXPECT_EQ(calculation.systems.front().origin.line, 0U);
  EXPECT_THAT(calculation.scfs, IsEmpty());
  EXPECT_THAT(calculation.tasks, IsEmpty());
}

TEST(CalculationOf, AnExcerptIsNotComplete) {
  EXPECT_TRUE(calculated(easy("hf/6-31g", helium)).is_complete);
  EXPECT_FALSE(calculated(easy("hf/6-31g", helium + "...\n")).is_complete);
  EXPECT_FALSE(calculated(compass(helium) + scf("rhf\n...\n")).is_complete);
  EXPECT_FALSE(calculated(compass(helium) + "...\n").is_complete);
  EXPECT_FALSE(calculated(scf("rhf\n")).is_complete);
}

// The published inputs are right, so that the parts must fit each other.
TEST(CalculationOf, PublishedInputsFitTogether) {
  const std::vector<std::filesystem::path> paths = test::published_inputs();
  if (paths.empty()) {
    GTEST_SKIP() << "no published inputs at " << test::corpus_folder();
  }
  std::size_t counted = 0;
  for (const std::filesystem::path& path : paths) {
    const Calculation calculation = calculated(test::file_bytes(path));
    for (const Calculation::Scf& it : calculation.scfs) {
      ASSERT_LT(it.system, calculation.systems.size()) << path;
      if (it.electrons && it.multiplicity) {
        ++counted;
        EXPECT_EQ((*it.electrons - it.multiplicity->value + 1) % 2, 0)
            << path << ": " << told(it) << " at line " << it.origin.line;
      }
    }
  }
  EXPECT_GT(counted, 100U);
}

}  // namespace
}  // namespace kelp::input::bdf
