// Prints what is wrong with each input, a line for each finding.

#include <kelp/bdf.h>
#include <stdio.h>

static int check(const char* file) {
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  kelp_bdf_findings* findings = NULL;
  size_t count = 0;
  if (kelp_bdf_input_read(file, NULL, &input, &error) == KELP_BDF_OK &&
      kelp_bdf_check(input, NULL, &findings, &error) == KELP_BDF_OK) {
    kelp_bdf_findings_count(findings, &count);
  }
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_texts* lines = NULL;
    kelp_bdf_string line;
    if (kelp_bdf_finding_concise(findings, i, file, &lines, &error) == KELP_BDF_OK &&
        kelp_bdf_texts_get(lines, 0, &line) == KELP_BDF_OK) {
      printf("%s\n", line.data);
    }
    kelp_bdf_texts_free(lines);
  }
  kelp_bdf_findings_free(findings);
  kelp_bdf_input_free(input);
  if (error.status != KELP_BDF_OK) {
    fprintf(stderr, "%s\n", error.text);
    return 2;
  }
  return 0;
}

int main(int count, char** arguments) {
  int status = 0;
  for (int i = 1; i < count; ++i) {
    status |= check(arguments[i]);
  }
  return status;
}
