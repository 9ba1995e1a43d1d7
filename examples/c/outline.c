// Prints what stands where in an input, as a tree beside an editor would show it:
//
//     outline examples/water-mixed.inp

#include <kelp/bdf.h>
#include <stdio.h>

static void print_item(const kelp_bdf_outline_item* item) {
  switch (item->kind) {
    case KELP_BDF_ITEM_GEOMETRY:
      printf("%zu: %s\n", item->line, item->name.data);
      break;
    case KELP_BDF_ITEM_MODULE:
      printf("%zu: $%s\n", item->line, item->name.data);
      break;
    case KELP_BDF_ITEM_ENTRY:
      printf("%zu:   %s\n", item->line, item->path.data);
      break;
    default:
      break;
  }
}

static void print_outline(const char* file, const kelp_bdf_input* input,
                          const kelp_bdf_outline* outline) {
  static const char* const modes[] = {"easy", "module", "mixed"};
  int32_t mode = 0;
  size_t count = 0;
  kelp_bdf_input_mode(input, &mode);
  kelp_bdf_outline_count(outline, &count);
  printf("%s: %s input\n", file, modes[mode]);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_outline_item item = {.struct_size = sizeof item};
    kelp_bdf_outline_get(outline, i, &item);
    print_item(&item);
  }
}

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    kelp_bdf_error error;
    kelp_bdf_input* input = NULL;
    kelp_bdf_outline* outline = NULL;
    if (kelp_bdf_input_read(arguments[i], NULL, &input, &error) == KELP_BDF_OK &&
        kelp_bdf_outline_of(input, KELP_BDF_ENGLISH, &outline, &error) == KELP_BDF_OK) {
      print_outline(arguments[i], input, outline);
    } else {
      fprintf(stderr, "%s\n", error.text);
    }
    kelp_bdf_outline_free(outline);
    kelp_bdf_input_free(input);
    if (error.status != KELP_BDF_OK) {
      return 2;
    }
  }
  return 0;
}
