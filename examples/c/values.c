// Prints the value at a path of an input, and the line that it begins on:
//
//     values scf.maxiter examples/water-mixed.inp

#include <kelp/bdf.h>
#include <stdio.h>

static void print_where(const kelp_bdf_input* input, const char* path) {
  kelp_bdf_record record;
  kelp_bdf_texts* paths = NULL;
  kelp_bdf_string canonical;
  size_t first = 0;
  size_t last = 0;
  kelp_bdf_find(input, path, &record, NULL);
  kelp_bdf_record_lines(input, record, &first, &last);
  kelp_bdf_record_path(input, record, &paths, NULL);
  if (kelp_bdf_texts_get(paths, 0, &canonical) == KELP_BDF_OK) {
    printf("%s, line %zu\n", canonical.data, first);
  }
  kelp_bdf_texts_free(paths);
}

int main(int count, char** arguments) {
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  kelp_bdf_texts* lines = NULL;
  size_t number = 0;
  if (count != 3) {
    fprintf(stderr, "values PATH FILE\n");
    return 2;
  }
  if (kelp_bdf_input_read(arguments[2], NULL, &input, &error) == KELP_BDF_OK &&
      kelp_bdf_get(input, arguments[1], &lines, &error) == KELP_BDF_OK) {
    print_where(input, arguments[1]);
    kelp_bdf_texts_count(lines, &number);
  } else {
    fprintf(stderr, "%s\n", error.text);
  }
  for (size_t i = 0; i < number; ++i) {
    kelp_bdf_string line;
    kelp_bdf_texts_get(lines, i, &line);
    printf("  %s\n", line.data);
  }
  kelp_bdf_texts_free(lines);
  kelp_bdf_input_free(input);
  return error.status == KELP_BDF_OK ? 0 : error.status == KELP_BDF_NOT_FOUND ? 1 : 2;
}
