// Prints the entries of a module that begin with what was typed, or else those that it may be a
// slip of:
//
//     complete scf max

#include <kelp/bdf.h>
#include <stdio.h>
#include <string.h>

/// Prints the texts that begin with some letters, and returns how many these are.
static int print_beginning_with(const kelp_bdf_texts* texts, const char* letters) {
  size_t count = 0;
  int printed = 0;
  kelp_bdf_texts_count(texts, &count);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_string text;
    kelp_bdf_texts_get(texts, i, &text);
    if (strncmp(text.data, letters, strlen(letters)) == 0) {
      printf("%s\n", text.data);
      ++printed;
    }
  }
  return printed;
}

int main(int count, char** arguments) {
  if (count != 3) {
    fprintf(stderr, "usage: complete MODULE LETTERS\n");
    return 2;
  }
  kelp_bdf_error error;
  kelp_bdf_texts* entries = NULL;
  kelp_bdf_texts* similar = NULL;
  if (kelp_bdf_names(NULL, KELP_BDF_ENTRIES, arguments[1], &entries, &error) != KELP_BDF_OK) {
    fprintf(stderr, "%s\n", error.text);
    return 2;
  }
  if (print_beginning_with(entries, arguments[2]) == 0 &&
      kelp_bdf_similar_names(arguments[2], entries, &similar, &error) == KELP_BDF_OK) {
    print_beginning_with(similar, "");
  }
  kelp_bdf_texts_free(similar);
  kelp_bdf_texts_free(entries);
  return 0;
}
