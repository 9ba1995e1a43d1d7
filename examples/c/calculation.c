// Prints what inputs compute, a line for each SCF and one for each task:
//
//     calculation examples/water-easy.inp

#include <inttypes.h>
#include <kelp/bdf.h>
#include <stdio.h>

static void print_scf(const char* file, const kelp_bdf_calculation* calculation, size_t index) {
  kelp_bdf_scf scf = {.struct_size = sizeof scf};
  kelp_bdf_system system = {.struct_size = sizeof system};
  kelp_bdf_calculation_scf(calculation, index, &scf);
  kelp_bdf_calculation_system(calculation, scf.system, &system);
  printf("%s: %s", file, system.formula.data);
  if (scf.charge.is_known) {
    printf(", charge %" PRId64, scf.charge.value);
  }
  if (scf.multiplicity.is_known) {
    printf(", multiplicity %" PRId64, scf.multiplicity.value);
  }
  if (scf.reference.size > 0) {
    printf(", %s", scf.reference.data);
  }
  printf("\n");
}

static void print_calculation(const char* file, const kelp_bdf_calculation* calculation) {
  size_t scfs = 0;
  size_t tasks = 0;
  kelp_bdf_calculation_counts(calculation, NULL, &scfs, &tasks);
  for (size_t i = 0; i < scfs; ++i) {
    print_scf(file, calculation, i);
  }
  for (size_t i = 0; i < tasks; ++i) {
    kelp_bdf_task task = {.struct_size = sizeof task};
    kelp_bdf_calculation_task(calculation, i, &task);
    printf("  line %zu: %s\n", task.line, task.name.data);
  }
}

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    kelp_bdf_error error;
    kelp_bdf_input* input = NULL;
    kelp_bdf_calculation* calculation = NULL;
    if (kelp_bdf_input_read(arguments[i], NULL, &input, &error) == KELP_BDF_OK &&
        kelp_bdf_calculation_of(input, &calculation, &error) == KELP_BDF_OK) {
      print_calculation(arguments[i], calculation);
    } else {
      fprintf(stderr, "%s\n", error.text);
    }
    kelp_bdf_calculation_free(calculation);
    kelp_bdf_input_free(input);
    if (error.status != KELP_BDF_OK) {
      return 2;
    }
  }
  return 0;
}
