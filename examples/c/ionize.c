// Reads an input, makes it a cation with more SCF iterations, and prints the new input in the
// canonical layout.

#include <kelp/bdf.h>
#include <stdio.h>

/// Changes an input and reads the new text; null when the change cannot be made. Charge and
/// multiplicity are set where the input states them, and then in `$scf`, too.
static kelp_bdf_input* ionized(const kelp_bdf_input* input, kelp_bdf_error* error) {
  kelp_bdf_edit* edit = NULL;
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_input* result = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  if (kelp_bdf_edit_new(&edit, error) == KELP_BDF_OK &&
      kelp_bdf_edit_charge(edit, 1) == KELP_BDF_OK &&
      kelp_bdf_edit_multiplicity(edit, 2) == KELP_BDF_OK &&
      kelp_bdf_edit_set(edit, "scf.maxiter", "200", error) == KELP_BDF_OK &&
      kelp_bdf_edit_set(edit, "scf.charge", "1", error) == KELP_BDF_OK &&
      kelp_bdf_edit_set(edit, "scf.spinmulti", "2", error) == KELP_BDF_OK &&
      kelp_bdf_input_edit(input, edit, &rewrite, error) == KELP_BDF_OK &&
      kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK) {
    kelp_bdf_input_parse(info.text.data, info.text.size, NULL, &result, error);
  }
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  return result;
}

int main(int count, char** arguments) {
  kelp_bdf_error error = {.status = KELP_BDF_OK};
  for (int i = 1; i < count && error.status == KELP_BDF_OK; ++i) {
    kelp_bdf_input* input = NULL;
    kelp_bdf_input* cation = NULL;
    kelp_bdf_texts* text = NULL;
    kelp_bdf_string rendered;
    if (kelp_bdf_input_read(arguments[i], NULL, &input, &error) == KELP_BDF_OK &&
        (cation = ionized(input, &error)) != NULL &&
        kelp_bdf_render(cation, &text, &error) == KELP_BDF_OK &&
        kelp_bdf_texts_get(text, 0, &rendered) == KELP_BDF_OK) {
      fwrite(rendered.data, 1, rendered.size, stdout);
    } else {
      fprintf(stderr, "%s\n", error.text);
    }
    kelp_bdf_texts_free(text);
    kelp_bdf_input_free(cation);
    kelp_bdf_input_free(input);
  }
  return error.status == KELP_BDF_OK ? 0 : 1;
}
