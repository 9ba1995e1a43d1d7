// Names the variants of an input and tells how many findings each has:
//
//     sweep examples/water-easy.inp '{basis}.inp' easy.basis=def2-svp,def2-tzvp

#include <kelp/bdf.h>
#include <stdio.h>

static kelp_bdf_status count_findings(const kelp_bdf_rewrite* rewrite, size_t* count,
                                      kelp_bdf_error* error) {
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  kelp_bdf_input* changed = NULL;
  kelp_bdf_findings* findings = NULL;
  kelp_bdf_status status = kelp_bdf_rewrite_get(rewrite, &info);
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_input_parse(info.text.data, info.text.size, NULL, &changed, error);
  }
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_check(changed, NULL, &findings, error);
  }
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_findings_count(findings, count);
  }
  kelp_bdf_findings_free(findings);
  kelp_bdf_input_free(changed);
  return status;
}

static kelp_bdf_status print_variant(const kelp_bdf_input* input, const kelp_bdf_sweep* sweep,
                                     size_t index, kelp_bdf_error* error) {
  kelp_bdf_edit* edit = NULL;
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_string name;
  size_t count = 0;
  kelp_bdf_status status = kelp_bdf_sweep_edit(sweep, index, &edit, error);
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_input_edit(input, edit, &rewrite, error);
  }
  if (status == KELP_BDF_OK) {
    status = count_findings(rewrite, &count, error);
  }
  if (status == KELP_BDF_OK && kelp_bdf_sweep_name(sweep, index, &name) == KELP_BDF_OK) {
    printf("%s: %zu findings\n", name.data, count);
  }
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  return status;
}

int main(int count, char** arguments) {
  if (count < 4) {
    fprintf(stderr, "sweep FILE PATTERN PATH=VALUE,VALUE...\n");
    return 2;
  }
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  kelp_bdf_sweep* sweep = NULL;
  size_t variants = 0;
  kelp_bdf_status status = kelp_bdf_input_read(arguments[1], NULL, &input, &error);
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_sweep_plan((const char* const*)arguments + 3, (size_t)count - 3, arguments[2],
                                 NULL, &sweep, &error);
  }
  if (status == KELP_BDF_OK) {
    status = kelp_bdf_sweep_count(sweep, &variants);
  }
  for (size_t i = 0; i < variants && status == KELP_BDF_OK; ++i) {
    status = print_variant(input, sweep, i, &error);
  }
  if (status != KELP_BDF_OK) {
    fprintf(stderr, "%s\n", error.text);
  }
  kelp_bdf_sweep_free(sweep);
  kelp_bdf_input_free(input);
  return status == KELP_BDF_OK ? 0 : 1;
}
