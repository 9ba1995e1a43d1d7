// Prints an input with another charge and one value changed, and nothing else:
//
//     change examples/water-mixed.inp scf.maxiter=77

#include <kelp/bdf.h>
#include <stdio.h>
#include <string.h>

static void print_rewrite(const kelp_bdf_rewrite* rewrite) {
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  if (kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK) {
    fwrite(info.text.data, 1, info.text.size, stdout);
  }
}

int main(int count, char** arguments) {
  char* const equals = count == 3 ? strchr(arguments[2], '=') : NULL;
  if (equals == NULL) {
    fprintf(stderr, "change FILE PATH=VALUE\n");
    return 2;
  }
  *equals = '\0';
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  kelp_bdf_edit* edit = NULL;
  kelp_bdf_rewrite* rewrite = NULL;
  if (kelp_bdf_input_read(arguments[1], NULL, &input, &error) == KELP_BDF_OK &&
      kelp_bdf_edit_new(&edit, &error) == KELP_BDF_OK &&
      kelp_bdf_edit_charge(edit, 1) == KELP_BDF_OK &&
      kelp_bdf_edit_set(edit, arguments[2], equals + 1, &error) == KELP_BDF_OK &&
      kelp_bdf_input_edit(input, edit, &rewrite, &error) == KELP_BDF_OK) {
    print_rewrite(rewrite);
  } else {
    fprintf(stderr, "%s\n", error.text);
  }
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
  return error.status == KELP_BDF_OK ? 0 : 1;
}
