#ifndef KELP_TESTS_BINDINGS_C_INPUTS_H
#define KELP_TESTS_BINDINGS_C_INPUTS_H

// What the cases share.

#include <kelp/bdf.h>
#include <string.h>

#include "cases.h"

static const char water[] =
    "#! water.bdf\n"
    "HF/3-21G charge=1 spinmulti=2\n"
    "\n"
    "Geometry\n"
    " O   0.000000   0.000000   0.117300\n"
    " H   0.000000   0.757200  -0.469200\n"
    " H   0.000000  -0.757200  -0.469200\n"
    "End Geometry\n"
    "\n"
    "$scf\n"
    "maxiter   # a comment\n"
    "  60\n"
    "$end\n";

/// Reads a text with the schema of the library.
static inline kelp_bdf_input* parsed(const char* text) {
  kelp_bdf_input* input = NULL;
  KELP_CHECK(kelp_bdf_input_parse(text, strlen(text), NULL, &input, NULL) == KELP_BDF_OK);
  return input;
}

static inline int is(kelp_bdf_string text, const char* expected) {
  return text.data != NULL && text.size == strlen(expected) && strcmp(text.data, expected) == 0;
}

/// Tells whether a list is one text, which is the one expected.
static inline int is_one(const kelp_bdf_texts* texts, const char* expected) {
  size_t count = 0;
  kelp_bdf_string text = {NULL, 0};
  return kelp_bdf_texts_count(texts, &count) == KELP_BDF_OK && count == 1 &&
         kelp_bdf_texts_get(texts, 0, &text) == KELP_BDF_OK && is(text, expected);
}

static inline size_t count_of(const kelp_bdf_texts* texts) {
  size_t count = 0;
  KELP_CHECK(kelp_bdf_texts_count(texts, &count) == KELP_BDF_OK);
  return count;
}

#endif
