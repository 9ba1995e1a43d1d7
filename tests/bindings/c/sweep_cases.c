// Sweeps.

#include "inputs.h"

static const char* const axes[] = {"scf.maxiter=10,20", "easy.basis=6-31G(d,p),3-21G"};

static kelp_bdf_sweep* planned(const char* pattern) {
  kelp_bdf_sweep* sweep = NULL;
  KELP_CHECK(kelp_bdf_sweep_plan(axes, 2, pattern, NULL, &sweep, NULL) == KELP_BDF_OK);
  return sweep;
}

void SweepsNameAllCombinationsAndMakeThem(void) {
  kelp_bdf_sweep* sweep = planned("{maxiter}/{basis}.inp");
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = NULL;
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  kelp_bdf_string name;
  size_t count = 0;
  KELP_CHECK(kelp_bdf_sweep_count(sweep, &count) == KELP_BDF_OK && count == 4);
  KELP_CHECK(kelp_bdf_sweep_name(sweep, 2, &name) == KELP_BDF_OK && is(name, "20/6-31G(d,p).inp"));
  KELP_CHECK(kelp_bdf_sweep_name(sweep, 4, &name) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_sweep_edit(sweep, 2, &edit, NULL) == KELP_BDF_OK);
  // The changes outlive the list that they were taken from, and may be added to.
  KELP_CHECK(kelp_bdf_sweep_free(sweep) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_charge(edit, 3) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK);
  KELP_CHECK(strstr(info.text.data, "HF/6-31G(d,p) charge=3 spinmulti=2\n") != NULL);
  KELP_CHECK(strstr(info.text.data, "maxiter   # a comment\n  20\n") != NULL);
  KELP_CHECK(kelp_bdf_sweep_count(sweep, &count) == KELP_BDF_INVALID_HANDLE);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
}

void SweepsThatCannotBeNamedAreRefused(void) {
  kelp_bdf_error error;
  kelp_bdf_sweep* sweep = NULL;
  const char* const wrong[] = {"scf.maxiter"};
  KELP_CHECK(kelp_bdf_sweep_plan(axes, 2, "same.inp", NULL, &sweep, &error) == KELP_BDF_REFUSED);
  KELP_CHECK(strstr(error.text, "two variants would be named 'same.inp'") != NULL);
  KELP_CHECK(kelp_bdf_sweep_plan(axes, 0, "a.inp", NULL, &sweep, &error) == KELP_BDF_REFUSED);
  KELP_CHECK(kelp_bdf_sweep_plan(wrong, 1, "a.inp", NULL, &sweep, &error) ==
             KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_sweep_plan(NULL, 1, "a.inp", NULL, &sweep, &error) ==
             KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_sweep_plan(axes, 2, NULL, NULL, &sweep, &error) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(sweep == NULL);
}
