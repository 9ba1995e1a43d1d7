// Tells what keywords and codes mean, as a window beside an input would:
//
//     explain scf.maxiter bdf.missing_entry_value

#include <kelp/bdf.h>
#include <stdio.h>

static void print_quoted(const kelp_bdf_texts* names) {
  size_t count = 0;
  kelp_bdf_texts_count(names, &count);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_string name;
    kelp_bdf_texts_get(names, i, &name);
    printf("%s'%s'", i == 0 ? "" : i + 1 == count ? " or " : ", ", name.data);
  }
}

static void explain(const char* name) {
  kelp_bdf_error error;
  kelp_bdf_texts* meanings = NULL;
  kelp_bdf_texts* similar = NULL;
  size_t count = 0;
  kelp_bdf_explain(NULL, name, KELP_BDF_ENGLISH, &meanings, &error);
  kelp_bdf_texts_count(meanings, &count);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_string text;
    kelp_bdf_texts_get(meanings, i, &text);
    printf("%s\n", text.data);
  }
  if (count == 0 && kelp_bdf_similar_explained(NULL, name, &similar, &error) == KELP_BDF_OK) {
    printf("%s: unknown; similar: ", name);
    print_quoted(similar);
    printf("\n");
  }
  if (error.status != KELP_BDF_OK) {
    fprintf(stderr, "%s\n", error.text);
  }
  kelp_bdf_texts_free(similar);
  kelp_bdf_texts_free(meanings);
}

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    explain(arguments[i]);
  }
  return 0;
}
