// Changes, files, handles.

#include <stdio.h>
#include <stdlib.h>

#include "inputs.h"

static kelp_bdf_edit* new_edit(void) {
  kelp_bdf_edit* edit = NULL;
  KELP_CHECK(kelp_bdf_edit_new(&edit, NULL) == KELP_BDF_OK);
  return edit;
}

/// The text with one part of it replaced; to be freed.
static char* with(const char* text, const char* part, const char* other) {
  const char* const found = strstr(text, part);
  char* const result = malloc(strlen(text) + strlen(other) + 1);
  KELP_CHECK(found != NULL && result != NULL);
  sprintf(result, "%.*s%s%s", (int)(found - text), text, other, found + strlen(part));
  return result;
}

void ChangesLeaveAllElseAsItIs(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  kelp_bdf_text_edit change;
  char* const expected = with(water, "  60\n", "  200\n");
  KELP_CHECK(kelp_bdf_edit_set(edit, "scf.maxiter", "200", NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK);
  KELP_CHECK(is(info.text, expected) && info.edit_count == 1 && info.loss_count == 0);
  KELP_CHECK(kelp_bdf_rewrite_edit(rewrite, 0, &change) == KELP_BDF_OK);
  KELP_CHECK(strstr(change.text.data, "200") != NULL);
  KELP_CHECK(kelp_bdf_rewrite_edit(rewrite, 1, &change) == KELP_BDF_INVALID_ARGUMENT);
  free(expected);
  kelp_bdf_rewrite_free(rewrite);

  KELP_CHECK(kelp_bdf_edit_charge(edit, -1) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_multiplicity(edit, 4) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_multiplicity(edit, 0) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_edit_script_name(edit, "anion.bdf", NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_script_name(edit, "a\nb", NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_edit_unset(edit, "scf.maxiter", NULL) == KELP_BDF_OK);
  kelp_bdf_edit_free(edit);
  edit = new_edit();
  KELP_CHECK(kelp_bdf_edit_charge(edit, -1) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_unset(edit, "scf.maxiter", NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_set(edit, "scf.uhf", NULL, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK);
  KELP_CHECK(strstr(info.text.data, "charge=-1") != NULL);
  KELP_CHECK(strstr(info.text.data, "maxiter") == NULL && strstr(info.text.data, "uhf\n") != NULL);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
}

void ChangesThatCannotBeMadeAreRefused(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_error error;
  kelp_bdf_rewrite* rewrite = NULL;
  KELP_CHECK(kelp_bdf_edit_set(edit, "scf", "1", &error) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, &error) == KELP_BDF_REFUSED);
  KELP_CHECK(error.text[0] != '\0' && rewrite == NULL);
  KELP_CHECK(kelp_bdf_edit_set(edit, "", "1", &error) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_edit_free(edit);

  // A name that nobody knows is written only when that is asked for.
  edit = new_edit();
  kelp_bdf_edit_set(edit, "scf.nonsense", "1", NULL);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, &error) == KELP_BDF_REFUSED);
  KELP_CHECK(kelp_bdf_edit_allow_unknown(edit, 1) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, &error) == KELP_BDF_OK);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
}

void LossesAreFindingsAboutTheNewText(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  kelp_bdf_findings* losses = NULL;
  kelp_bdf_finding loss = {.struct_size = sizeof loss};
  kelp_bdf_edit_set(edit, "scf.maxiter", "many", NULL);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK && info.loss_count == 1);
  KELP_CHECK(kelp_bdf_rewrite_losses(rewrite, &losses, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_findings_get(losses, 0, &loss) == KELP_BDF_OK);
  KELP_CHECK(is(loss.code, "bdf.invalid_module_value") && loss.start.line == 12);
  KELP_CHECK(strncmp(info.text.data + loss.range.begin, "many", 4) == 0);
  kelp_bdf_findings_free(losses);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
}

void GeometriesArePutIn(void) {
  static const char* const labels[] = {"He"};
  const double xyz[] = {0, 0, 0.529177210903};
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_molecule* helium = NULL;
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  KELP_CHECK(kelp_bdf_molecule_new(labels, xyz, 1, KELP_BDF_ANGSTROM, &helium, NULL) ==
             KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_geometry(edit, helium, NULL, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_molecule_free(helium) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_edit(input, edit, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK);
  KELP_CHECK(strstr(info.text.data, "He") != NULL && strstr(info.text.data, "0.7572") == NULL);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
}

void InputsAreLaidOutAndRendered(void) {
  kelp_bdf_input* input = parsed("$scf\n   MAXITER\n60\n$end\n");
  kelp_bdf_rewrite* rewrite = NULL;
  kelp_bdf_rewrite_info info = {.struct_size = sizeof info};
  kelp_bdf_texts* text = NULL;
  KELP_CHECK(kelp_bdf_input_format(input, &rewrite, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_rewrite_get(rewrite, &info) == KELP_BDF_OK);
  KELP_CHECK(is(info.text, "$scf\n  maxiter\n    60\n$end\n"));
  KELP_CHECK(kelp_bdf_render(input, &text, NULL) == KELP_BDF_OK && count_of(text) == 1);
  kelp_bdf_texts_free(text);
  kelp_bdf_rewrite_free(rewrite);
  kelp_bdf_input_free(input);
}

void FilesAreWrittenAndReplacedUnlessTheyWereChanged(void) {
  const char* const path = "kelp-c-interface.inp";
  kelp_bdf_error error;
  kelp_bdf_input* input = NULL;
  kelp_bdf_string text;
  KELP_CHECK(kelp_bdf_write_file(path, water, sizeof water - 1, &error) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_replace_file(path, "other", 5, "", 0, &error) == KELP_BDF_FILE_CHANGED);
  KELP_CHECK(kelp_bdf_replace_file(path, water, sizeof water - 1, "$scf\n$end\n", 10, &error) ==
             KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_read(path, NULL, &input, &error) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_text(input, &text) == KELP_BDF_OK && is(text, "$scf\n$end\n"));
  kelp_bdf_input_free(input);
  KELP_CHECK(remove(path) == 0);
  KELP_CHECK(kelp_bdf_write_file("none/none/a.inp", "", 0, &error) == KELP_BDF_FILE_ERROR);
  KELP_CHECK(strstr(error.text, "a.inp") != NULL);
}

// One function for each kind of handle is enough where all of a kind look it up in the same way; of
// inputs, every one is asked.
void HandlesThatWereFreedAreRefusedByEveryFunction(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_texts* texts = NULL;
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_findings* findings = NULL;
  kelp_bdf_error error;
  kelp_bdf_string text;
  kelp_bdf_record record = {0, 0, 0, 0};
  size_t number = 77;
  KELP_CHECK(kelp_bdf_get(input, "geometry", &texts, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_texts_free(texts) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_texts_count(texts, &number) == KELP_BDF_INVALID_HANDLE && number == 77);
  KELP_CHECK(kelp_bdf_texts_free(texts) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_edit_free(edit) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_edit_charge(edit, 1) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_input_free(input) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_free(input) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_input_text(input, &text) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_get(input, "geometry", &texts, &error) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(error.status == KELP_BDF_INVALID_HANDLE && error.text[0] != '\0');
  KELP_CHECK(kelp_bdf_find(input, "scf", &record, NULL) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_record_at(input, 0, &record) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_record_path(input, record, &texts, NULL) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_check(input, NULL, &findings, NULL) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_render(input, &texts, NULL) == KELP_BDF_INVALID_HANDLE);

  // The number of a handle is not given again.
  kelp_bdf_input* const other = parsed(water);
  KELP_CHECK(other != input);
  KELP_CHECK(kelp_bdf_input_text(input, &text) == KELP_BDF_INVALID_HANDLE);
  kelp_bdf_input_free(other);
}

void HandlesOfAnotherKindAreRefused(void) {
  kelp_bdf_edit* edit = new_edit();
  kelp_bdf_string text;
  kelp_bdf_record record = {0, 0, 0, 0};
  KELP_CHECK(kelp_bdf_input_text((kelp_bdf_input*)(void*)edit, &text) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_input_free((kelp_bdf_input*)(void*)edit) == KELP_BDF_INVALID_HANDLE);
  // A pointer to something else is none at all, and is not looked at.
  KELP_CHECK(kelp_bdf_input_text((kelp_bdf_input*)(void*)&record, &text) ==
             KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_edit_free(edit) == KELP_BDF_OK);
}

void NullPointersAndWrongNumbersAreRefused(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_outline* outline = NULL;
  kelp_bdf_texts* texts = NULL;
  kelp_bdf_position position;
  kelp_bdf_record record = {99, 0, 0, 0};
  kelp_bdf_range range;
  KELP_CHECK(kelp_bdf_input_parse(NULL, 3, NULL, &input, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_input_read(NULL, NULL, &input, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_input_parse("", 0, NULL, NULL, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_input_text(input, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_get(input, NULL, &texts, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_get(NULL, "scf", &texts, NULL) == KELP_BDF_INVALID_HANDLE);
  KELP_CHECK(kelp_bdf_input_position(input, 0, 3, &position) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_record_range(input, record, &range) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_outline_of(input, -1, &outline, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_names(NULL, 7, NULL, &texts, NULL) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_names(NULL, KELP_BDF_ENTRIES, NULL, &texts, NULL) ==
             KELP_BDF_INVALID_ARGUMENT);
  // A record that no document has is no record, and harmless.
  record.kind = 6;
  record.index = 1000;
  KELP_CHECK(kelp_bdf_record_range(input, record, &range) == KELP_BDF_OK &&
             range.begin == range.end);
  KELP_CHECK(kelp_bdf_input_free(NULL) == KELP_BDF_OK);
  kelp_bdf_input_free(input);
}

void RecordsOfAnOlderVersionAreFilledAsFarAsTheyGo(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_molecule* molecule = NULL;
  // As a program sees the record that was compiled with a later header, and one that forgot.
  struct {
    kelp_bdf_molecule_info known;
    int64_t later;
  } info = {{.struct_size = sizeof info}, 42};
  kelp_bdf_molecule_info forgotten = {.struct_size = 0};
  KELP_CHECK(kelp_bdf_molecule_of(input, &molecule, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, &info.known) == KELP_BDF_OK);
  KELP_CHECK(info.known.atom_count == 3 && info.later == 42);
  KELP_CHECK(info.known.struct_size == sizeof info);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, &forgotten) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, NULL) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_molecule_free(molecule);
  kelp_bdf_input_free(input);
}

void WhatWasMadeOfAnInputOutlivesIt(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_texts* lines = NULL;
  kelp_bdf_findings* findings = NULL;
  size_t count = 0;
  KELP_CHECK(kelp_bdf_get(input, "scf.maxiter", &lines, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_check(input, NULL, &findings, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_input_free(input) == KELP_BDF_OK);
  KELP_CHECK(is_one(lines, "60"));
  KELP_CHECK(kelp_bdf_findings_count(findings, &count) == KELP_BDF_OK);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_finding finding = {.struct_size = sizeof finding};
    KELP_CHECK(kelp_bdf_findings_get(findings, i, &finding) == KELP_BDF_OK);
  }
  kelp_bdf_findings_free(findings);
  kelp_bdf_texts_free(lines);
}

void NoHandleIsLeftWhenAllAreFreed(void) {
  size_t before = 0;
  size_t during = 0;
  size_t after = 0;
  KELP_CHECK(kelp_bdf_live_handles(&before) == KELP_BDF_OK);
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_edit* edit = new_edit();
  KELP_CHECK(kelp_bdf_live_handles(&during) == KELP_BDF_OK && during == before + 2);
  kelp_bdf_edit_free(edit);
  kelp_bdf_input_free(input);
  KELP_CHECK(kelp_bdf_live_handles(&after) == KELP_BDF_OK && after == before);
}
