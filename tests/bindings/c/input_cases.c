// Versions, schemas, inputs, values.

#include <stdio.h>

#include "inputs.h"

void VersionsAreThoseOfTheHeader(void) {
  unsigned major = 0;
  unsigned minor = 0;
  KELP_CHECK(sscanf(kelp_bdf_version(), "%u.%u", &major, &minor) == 2);
  KELP_CHECK(kelp_bdf_interface_version() ==
             (uint32_t)KELP_BDF_INTERFACE_MAJOR * 65536 + KELP_BDF_INTERFACE_MINOR);
}

void StatusesHaveTexts(void) {
  for (kelp_bdf_status status = KELP_BDF_OK; status <= KELP_BDF_INTERNAL_ERROR; ++status) {
    KELP_CHECK(strcmp(kelp_bdf_status_text(status), "unknown status") != 0);
  }
  KELP_CHECK(strcmp(kelp_bdf_status_text(99), "unknown status") == 0);
}

void TextsMayHoldNulBytes(void) {
  static const char bytes[] = "$scf\ncharge\n 1\0x\n$end\n";
  kelp_bdf_input* input = NULL;
  kelp_bdf_string text;
  KELP_CHECK(kelp_bdf_input_parse(bytes, sizeof bytes - 1, NULL, &input, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_text(input, &text) == KELP_BDF_OK);
  KELP_CHECK(text.size == sizeof bytes - 1 && memcmp(text.data, bytes, sizeof bytes) == 0);
  kelp_bdf_input_free(input);

  KELP_CHECK(kelp_bdf_input_parse(NULL, 0, NULL, &input, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_text(input, &text) == KELP_BDF_OK);
  KELP_CHECK(text.size == 0 && text.data[0] == '\0');
  kelp_bdf_input_free(input);
}

void FilesAreReadAndMissingOnesAreErrors(void) {
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  int32_t mode = -1;
  KELP_CHECK(kelp_bdf_input_read(KELP_EXAMPLES "/water-mixed.inp", NULL, &input, &error) ==
             KELP_BDF_OK);
  KELP_CHECK(error.status == KELP_BDF_OK && error.text[0] == '\0');
  KELP_CHECK(kelp_bdf_input_mode(input, &mode) == KELP_BDF_OK && mode == KELP_BDF_MIXED);
  kelp_bdf_input_free(input);

  input = NULL;
  KELP_CHECK(kelp_bdf_input_read(KELP_EXAMPLES "/none.inp", NULL, &input, &error) ==
             KELP_BDF_FILE_ERROR);
  KELP_CHECK(error.status == KELP_BDF_FILE_ERROR && strstr(error.text, "none.inp") != NULL);
  KELP_CHECK(input == NULL);
}

void LongErrorTextsAreCut(void) {
  char path[2000];
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  // Letters of two bytes, so that a cut at any byte would leave half of one at the end.
  for (size_t shift = 0; shift < 2; ++shift) {
    memset(path, 'x', shift);
    for (size_t i = shift; i + 2 < sizeof path; i += 2) {
      memcpy(path + i, "\xc3\xa4", 2);
    }
    path[sizeof path - 2 + shift % 2] = '\0';
    path[sizeof path - 1] = '\0';
    KELP_CHECK(kelp_bdf_input_read(path, NULL, &input, &error) == KELP_BDF_FILE_ERROR);
    const size_t size = strlen(error.text);
    KELP_CHECK(size > sizeof error.text - 4 && size < sizeof error.text);
    KELP_CHECK(error.text[size - 1] == '\xa4');
  }
}

void SchemasAreReadAndBrokenOnesAreErrors(void) {
  static const char broken[] = "modules: [";
  kelp_bdf_error error;
  kelp_bdf_schema* schema = NULL;
  KELP_CHECK(kelp_bdf_schema_default(&schema, &error) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_schema_free(schema) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_schema_read(KELP_SCHEMA, &schema, &error) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_schema_free(schema) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_schema_read("none.yaml", &schema, &error) == KELP_BDF_SCHEMA_ERROR);
  KELP_CHECK(strstr(error.text, "none.yaml") != NULL);
  KELP_CHECK(kelp_bdf_schema_parse(broken, sizeof broken - 1, &schema, &error) ==
             KELP_BDF_SCHEMA_ERROR);
}

void AnInputKeepsTheSchemaItWasReadWith(void) {
  static const char yaml[] =
      "schema_version: 1\nmodules:\n  only:\n    entries:\n      one: {kind: flag}\n";
  kelp_bdf_schema* schema = NULL;
  kelp_bdf_input* input = NULL;
  kelp_bdf_findings* findings = NULL;
  size_t count = 9;
  KELP_CHECK(kelp_bdf_schema_parse(yaml, sizeof yaml - 1, &schema, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_parse("$only\none\n$end\n", 15, schema, &input, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_schema_free(schema) == KELP_BDF_OK);
  const kelp_bdf_check_options options = {sizeof options, KELP_BDF_UNKNOWN_ERROR, 0, NULL, 0};
  KELP_CHECK(kelp_bdf_check(input, &options, &findings, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_findings_count(findings, &count) == KELP_BDF_OK && count == 0);
  kelp_bdf_findings_free(findings);
  kelp_bdf_input_free(input);
}

void PositionsAndBytesAreEachOthersInverse(void) {
  kelp_bdf_input* input = parsed("# \xc3\xa4\xc3\xb6\n$scf\n$end\n");
  for (int32_t unit = KELP_BDF_BYTES; unit <= KELP_BDF_UTF16; ++unit) {
    kelp_bdf_position position = {0, 0};
    size_t byte = 0;
    KELP_CHECK(kelp_bdf_input_position(input, 4, unit, &position) == KELP_BDF_OK);
    KELP_CHECK(position.line == 1 && position.column == (unit == KELP_BDF_BYTES ? 5U : 4U));
    KELP_CHECK(kelp_bdf_input_byte(input, position, unit, &byte) == KELP_BDF_OK && byte == 4);
  }
  kelp_bdf_input_free(input);
}

void RecordsHaveLinesRangesAndPaths(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_record record;
  kelp_bdf_range range;
  kelp_bdf_texts* path = NULL;
  size_t first = 0;
  size_t last = 0;
  const size_t byte = (size_t)(strstr(water, "60") - water);
  KELP_CHECK(kelp_bdf_record_at(input, byte, &record) == KELP_BDF_OK && record.kind != 0);
  KELP_CHECK(kelp_bdf_record_lines(input, record, &first, &last) == KELP_BDF_OK);
  KELP_CHECK(first == 11 && last == 12);
  KELP_CHECK(kelp_bdf_record_range(input, record, &range) == KELP_BDF_OK);
  KELP_CHECK(strncmp(water + range.begin, "maxiter", 7) == 0);
  KELP_CHECK(strncmp(water + range.end, "$end", 4) == 0);
  KELP_CHECK(kelp_bdf_record_path(input, record, &path, NULL) == KELP_BDF_OK);
  KELP_CHECK(is_one(path, "scf.maxiter"));
  kelp_bdf_texts_free(path);
  kelp_bdf_input_free(input);
}

void ValuesAreFoundByTheirPaths(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_texts* lines = NULL;
  kelp_bdf_record record;
  KELP_CHECK(kelp_bdf_get(input, "SCF.MaxIter", &lines, NULL) == KELP_BDF_OK);
  KELP_CHECK(is_one(lines, "60"));
  kelp_bdf_texts_free(lines);
  KELP_CHECK(kelp_bdf_get(input, "easy.charge", &lines, NULL) == KELP_BDF_OK);
  KELP_CHECK(is_one(lines, "1"));
  kelp_bdf_texts_free(lines);
  KELP_CHECK(kelp_bdf_get(input, "geometry", &lines, NULL) == KELP_BDF_OK);
  KELP_CHECK(count_of(lines) == 3);
  kelp_bdf_texts_free(lines);
  KELP_CHECK(kelp_bdf_find(input, "scf", &record, NULL) == KELP_BDF_OK && record.index == 0);
  kelp_bdf_input_free(input);
}

void WhatIsNotThereIsNotFoundAndNearNamesAreTold(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_error error;
  kelp_bdf_texts* lines = NULL;
  kelp_bdf_record record;
  KELP_CHECK(kelp_bdf_get(input, "scf.chrage", &lines, &error) == KELP_BDF_NOT_FOUND);
  KELP_CHECK(strcmp(error.text, "nothing at 'scf.chrage'; did you mean 'charge'?") == 0);
  KELP_CHECK(kelp_bdf_find(input, "tddft#2", &record, &error) == KELP_BDF_NOT_FOUND);
  KELP_CHECK(kelp_bdf_get(input, "scf..", &lines, &error) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(error.text[0] != '\0' && lines == NULL);
  KELP_CHECK(kelp_bdf_path_hint(NULL, "scf.chrage", &lines, &error) == KELP_BDF_OK);
  KELP_CHECK(is_one(lines, "charge"));
  kelp_bdf_texts_free(lines);
  kelp_bdf_input_free(input);
}

void NamesAreListedAndNearOnesFound(void) {
  kelp_bdf_texts* names = NULL;
  kelp_bdf_texts* near_names = NULL;
  for (int32_t list = KELP_BDF_MODULES; list <= KELP_BDF_BASIS_SETS; ++list) {
    const char* within = list == KELP_BDF_ENTRIES          ? "scf"
                         : list == KELP_BDF_NESTED_ENTRIES ? "scf.secondorderconfig"
                                                           : NULL;
    KELP_CHECK(kelp_bdf_names(NULL, list, within, &names, NULL) == KELP_BDF_OK);
    KELP_CHECK(count_of(names) > 0);
    kelp_bdf_texts_free(names);
  }
  KELP_CHECK(kelp_bdf_names(NULL, KELP_BDF_ENTRIES, "scf", &names, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_similar_names("chrage", names, &near_names, NULL) == KELP_BDF_OK);
  KELP_CHECK(is_one(near_names, "charge"));
  kelp_bdf_texts_free(near_names);
  kelp_bdf_texts_free(names);
}

void ExplanationsAreTexts(void) {
  kelp_bdf_texts* texts = NULL;
  kelp_bdf_string text;
  KELP_CHECK(kelp_bdf_explain(NULL, "scf.charge", KELP_BDF_ENGLISH, &texts, NULL) == KELP_BDF_OK);
  KELP_CHECK(count_of(texts) == 1);
  KELP_CHECK(kelp_bdf_texts_get(texts, 0, &text) == KELP_BDF_OK);
  KELP_CHECK(strstr(text.data, "scf.charge") != NULL);
  kelp_bdf_texts_free(texts);
  KELP_CHECK(kelp_bdf_explain(NULL, "scf.chrage", KELP_BDF_CHINESE, &texts, NULL) == KELP_BDF_OK);
  KELP_CHECK(count_of(texts) == 0);
  kelp_bdf_texts_free(texts);
  KELP_CHECK(kelp_bdf_similar_explained(NULL, "scf.chrage", &texts, NULL) == KELP_BDF_OK);
  KELP_CHECK(is_one(texts, "scf.charge"));
  kelp_bdf_texts_free(texts);
}
