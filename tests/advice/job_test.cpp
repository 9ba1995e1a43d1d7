// The view that advice is drawn from.

#include "advice/job.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "kelp/input/bdf.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;

class JobOf {
 public:
  explicit JobOf(const std::string& text) : input_(text, shipped_schema()), job_(input_) {}
  const Job* operator->() const { return &job_; }

 private:
  ParsedInput input_;
  Job job_;
};

std::string compass(const std::string& geometry, const std::string& basis = "basis\n 6-31g\n") {
  return "$compass\n" + basis + "geometry\n" + geometry + "end geometry\n$end\n";
}

const Geometry& geometry_of(const JobOf& job) {
  return job->systems.front().geometry;
}

TEST(ElementOfLabel, IsASymbolWithDigits) {
  EXPECT_EQ(element_of_label("H"), 1);
  EXPECT_EQ(element_of_label("mg"), 12);
  EXPECT_EQ(element_of_label("C12"), 6);
  EXPECT_EQ(element_of_label("x"), 0);
  EXPECT_EQ(element_of_label("Or"), -1);
  EXPECT_EQ(element_of_label("H_a"), -1);
  EXPECT_EQ(element_of_label("6"), -1);
}

TEST(GeometryOfAJob, KnowsTheNuclearChargeOfAtoms) {
  EXPECT_EQ(
      geometry_of(JobOf(compass("O 0 0 0\n H1 0 0 1 # c\n* c\nX 0 1 0 B\n"))).nuclear_charge(), 9);
  EXPECT_EQ(
      geometry_of(JobOf("#! a\nhf/6-31g\ngeometry\nHe 0 0 0\nend geometry\n")).nuclear_charge(), 2);
}

TEST(GeometryOfAJob, ReadsInternalCoordinates) {
  const JobOf job(
      "#! a\nhf/6-31g\ngeometry\nO\nH 1 R1\nH 1 0.9 2 109.0\n\nR1 0.75 0.05 20\n"
      "A = 1.\nend geometry\n");
  const Geometry& geometry = geometry_of(job);
  EXPECT_EQ(geometry.form, GeometryForm::Internal);
  EXPECT_EQ(geometry.nuclear_charge(), 10);
  ASSERT_EQ(geometry.rows.size(), 3U);
  EXPECT_THAT(geometry.rows[2], ElementsAre("H", "1", "0.9", "2", "109.0"));
  ASSERT_EQ(geometry.variables.size(), 2U);
  EXPECT_EQ(geometry.variables[0].name, "R1");
  EXPECT_THAT(geometry.variables[0].values, ElementsAre("0.75", "0.05", "20"));
  EXPECT_TRUE(geometry.variables[0].after_blank);
  EXPECT_EQ(geometry.variables[1].name, "A");
}

TEST(GeometryOfAJob, ProvesNothingWhenItIsNotCertain) {
  for (const char* const lines :
       {"Or 0 0 0\n", "O 0 0 0\n...\n", "O 0 0\n", "file=a.xyz\n", "", "O 0 0 0\nH 0.1\n"}) {
    EXPECT_EQ(geometry_of(JobOf(compass(lines))).nuclear_charge(), std::nullopt) << lines;
  }
  EXPECT_EQ(geometry_of(JobOf("$compass\ngeometry\nO 0 0 0\n$end\n")).nuclear_charge(),
            std::nullopt);
}

TEST(JobSystems, BeginWithEachCompass) {
  const JobOf job("$autofrag\n$end\n" + compass("O 0 0 0\n") + "$scf\nrhf\n$end\n" +
                  compass("He 0 0 0\n") + "$tddft\n$end\n$scf\nuhf\n$end\n$resp\n$end\n");
  ASSERT_EQ(job->systems.size(), 2U);
  EXPECT_EQ(job->systems[0].blocks.size(), 3U);
  EXPECT_EQ(job->systems[1].geometry.nuclear_charge(), 2);
  EXPECT_EQ(job->scf_of(*job->all("tddft").front()), nullptr);
  EXPECT_EQ(job->scf_of(*job->all("resp").front())->reference, Reference::Uhf);
  EXPECT_EQ(job->last_before(*job->all("scf")[1], "scf"), nullptr);
  EXPECT_NE(job->last_before(*job->all("resp")[0], "tddft"), nullptr);
  EXPECT_EQ(job->all_after(*job->all("tddft")[0], "resp").size(), 1U);
}

TEST(JobSystems, OfAMixedInputTakeTheHeadersGeometry) {
  const JobOf job(
      "#! a\nuks/b3lyp/6-31g* charge 1\ngeometry\nO 0 0 0\nend geometry\n"
      "$compass\nnosymm\n$end\n$scf\ncharge\n -1\n$end\n");
  ASSERT_EQ(job->systems.size(), 1U);
  EXPECT_EQ(job->scfs.front().electrons(), 9);
  EXPECT_EQ(job->header("charge").integer(), 1);
  EXPECT_EQ(job->scfs.front().reference, Reference::Uks);
  EXPECT_EQ(job->scfs.front().functional, "b3lyp");
  EXPECT_EQ(job->systems.front().basis.basis, "6-31gp");
  EXPECT_TRUE(job->is_complete());
}

TEST(JobSystems, GiveEachAtomItsBasisSet) {
  const JobOf job(
      compass("C1 0 0 0\nC2 0 0 1\nN 0 0 2\nFe 0 0 3\nEu 0 0 4\n",
              "basis-block\n 6-31g # c\n C1 = vdz\nN,Fe=lanl2dz\neu=mwb-fic\nend basis\n"));
  const System& system = job->systems.front();
  std::vector<std::string> names;
  for (const Centre& centre : system.geometry.centres) {
    names.push_back(system.basis.of(centre));
  }
  EXPECT_THAT(names, ElementsAre("cc-pvdz", "6-31g", "lanl2dz", "lanl2dz", "mwb-fic"));
  EXPECT_TRUE(job->may_have_odd_core(system));
  EXPECT_FALSE(job->is_all_electron(system));
}

TEST(JobSystems, KnowInlineBasisData) {
  const JobOf job(compass("C 0 0 0\n",
                          "basis-block\n 6-31g\ninline\nC 1\nS=1\nend line\n"
                          "H=vdz\nend basis\n"));
  EXPECT_TRUE(job->systems.front().basis.has_inline);
  EXPECT_EQ(job->systems.front().basis.basis, "6-31g");
  EXPECT_EQ(job->systems.front().basis.assignments.size(), 1U);
}

TEST(Blocks, AnswerByCanonicalNames) {
  const JobOf job(
      "$scf # c\nuhf\nspin 3 # c\nmixorb\n 2\n 1 2, 3 4 0.5\n# c\n 2 2 3 4 0.5\ngrid\n"
      " Ultra Coarse\ndoor\n$end\n%cp a b\n$scf\n...\n$end\n");
  const Block& block = job->blocks.front();
  EXPECT_EQ(block.get("spinmulti").integer(), 3);
  EXPECT_EQ(block.get("spinmulti").name(), "spin");
  EXPECT_THAT(block.get("mixorb").rows(),
              ElementsAre(ElementsAre("2"), ElementsAre("1", "2", "3", "4", "0.5"),
                          ElementsAre("2", "2", "3", "4", "0.5")));
  EXPECT_TRUE(block.get("grid").is("ultra coarse"));
  EXPECT_FALSE(block.get("charge"));
  EXPECT_EQ(block.get("charge").integer(), std::nullopt);
  EXPECT_TRUE(block.has_unknown_words);
  EXPECT_FALSE(block.is_elided);
  EXPECT_TRUE(job->blocks[1].is_elided);
  EXPECT_FALSE(job->is_complete());
  ASSERT_EQ(job->shell_lines.size(), 1U);
  EXPECT_EQ(job->shell_lines.front().text, "%cp a b");
  EXPECT_EQ(job->shell_lines.front().before, 1U);
}

TEST(AJob, ListsAllModulesWhenItHasNothingElse) {
  const std::string water = compass("O 0 0 0\n");
  EXPECT_TRUE(JobOf(water + "$scf\nrhf\n$end\n")->lists_all_modules());
  EXPECT_FALSE(JobOf(water + "$csf\nrhf\n$end\n")->lists_all_modules());
  EXPECT_FALSE(JobOf(water + "...\n")->lists_all_modules());
  EXPECT_FALSE(JobOf("$scf\nrhf\n$end\n")->lists_all_modules());
  EXPECT_FALSE(JobOf("#! a\nhf/6-31g\ngeometry\nHe 0 0 0\nend geometry\n")->lists_all_modules());
}

}  // namespace
}  // namespace kelp::input::bdf
