// Prints the molecule of each input as XYZ, with its formula and charge for a comment:
//
//     molecule examples/water-easy.inp > water.xyz

#include <inttypes.h>
#include <kelp/bdf.h>
#include <stdio.h>

static void print_molecule(const kelp_bdf_molecule* molecule, kelp_bdf_error* error) {
  kelp_bdf_molecule_info info = {.struct_size = sizeof info};
  char comment[200];
  kelp_bdf_texts* texts = NULL;
  kelp_bdf_string xyz;
  kelp_bdf_molecule_get(molecule, &info);
  if (info.has_charge) {
    snprintf(comment, sizeof comment, "%s, charge %" PRId64, info.formula.data, info.charge);
  } else {
    snprintf(comment, sizeof comment, "%s", info.formula.data);
  }
  if (kelp_bdf_molecule_xyz(molecule, comment, &texts, error) == KELP_BDF_OK &&
      kelp_bdf_texts_get(texts, 0, &xyz) == KELP_BDF_OK) {
    fwrite(xyz.data, 1, xyz.size, stdout);
  }
  kelp_bdf_texts_free(texts);
}

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    kelp_bdf_error error;
    kelp_bdf_input* input = NULL;
    kelp_bdf_molecule* molecule = NULL;
    if (kelp_bdf_input_read(arguments[i], NULL, &input, &error) == KELP_BDF_OK &&
        kelp_bdf_molecule_of(input, &molecule, &error) == KELP_BDF_OK) {
      print_molecule(molecule, &error);
    }
    kelp_bdf_molecule_free(molecule);
    kelp_bdf_input_free(input);
    if (error.status != KELP_BDF_OK) {
      fprintf(stderr, "%s\n", error.text);
      return 2;
    }
  }
  return 0;
}
