// Prints what stands at each word that is looked for: positions FILE WORD...

#include <kelp/bdf.h>
#include <stdio.h>
#include <string.h>

static void print_position(const kelp_bdf_input* input, const char* word) {
  kelp_bdf_string text;
  kelp_bdf_string path;
  kelp_bdf_record record;
  kelp_bdf_position position;
  kelp_bdf_texts* paths = NULL;
  size_t first = 0;
  size_t last = 0;
  kelp_bdf_input_text(input, &text);
  const char* const found = strstr(text.data, word);
  if (found == NULL) {
    printf("%s: nowhere\n", word);
    return;
  }
  const size_t byte = (size_t)(found - text.data);
  kelp_bdf_record_at(input, byte, &record);
  kelp_bdf_input_position(input, byte, KELP_BDF_CODE_POINTS, &position);
  kelp_bdf_record_lines(input, record, &first, &last);
  if (kelp_bdf_record_path(input, record, &paths, NULL) == KELP_BDF_OK &&
      kelp_bdf_texts_get(paths, 0, &path) == KELP_BDF_OK) {
    printf("%s: line %zu, column %zu, %s, lines %zu to %zu\n", word, position.line, position.column,
           path.data, first, last);
  }
  kelp_bdf_texts_free(paths);
}

int main(int count, char** arguments) {
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  if (count < 2) {
    return 2;
  }
  if (kelp_bdf_input_read(arguments[1], NULL, &input, &error) != KELP_BDF_OK) {
    fprintf(stderr, "%s\n", error.text);
    return 2;
  }
  for (int i = 2; i < count; ++i) {
    print_position(input, arguments[i]);
  }
  kelp_bdf_input_free(input);
  return 0;
}
