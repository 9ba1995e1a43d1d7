// Findings, outlines, molecules, calculations.

#include <math.h>

#include "inputs.h"

static const char faulty[] =
    "$scf\n"
    "chrage\n"
    "  1\n"
    "guess\n"
    "  atoms\n"
    "$end\n";

static kelp_bdf_findings* checked(const char* text, const kelp_bdf_check_options* options) {
  kelp_bdf_input* input = parsed(text);
  kelp_bdf_findings* findings = NULL;
  KELP_CHECK(kelp_bdf_check(input, options, &findings, NULL) == KELP_BDF_OK);
  kelp_bdf_input_free(input);
  return findings;
}

/// Finds a finding by its code.
static size_t index_of(const kelp_bdf_findings* findings, const char* code) {
  size_t count = 0;
  kelp_bdf_findings_count(findings, &count);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_finding finding = {.struct_size = sizeof finding};
    kelp_bdf_findings_get(findings, i, &finding);
    if (is(finding.code, code)) {
      return i;
    }
  }
  return count;
}

void FindingsTellAllThatACheckKnows(void) {
  kelp_bdf_findings* findings = checked(faulty, NULL);
  kelp_bdf_finding finding = {.struct_size = sizeof finding};
  kelp_bdf_string text;
  kelp_bdf_texts* line = NULL;
  const size_t unknown = index_of(findings, "bdf.unknown_entry");
  KELP_CHECK(kelp_bdf_findings_get(findings, unknown, &finding) == KELP_BDF_OK);
  KELP_CHECK(finding.severity == KELP_BDF_SEVERITY_WARNING && finding.has_range == 1);
  KELP_CHECK(finding.range.begin == 5 && finding.range.end == 11);
  KELP_CHECK(finding.start.line == 2 && finding.start.column == 1 && finding.end.column == 7);
  KELP_CHECK(strstr(finding.message.data, "scf.chrage") != NULL && finding.label.size > 0);
  KELP_CHECK(finding.record.kind != 0 && finding.suggestion_count == 1);
  KELP_CHECK(finding.argument_count > 0 && finding.help_count > 0);
  KELP_CHECK(kelp_bdf_finding_text(findings, unknown, KELP_BDF_SUGGESTIONS, 0, &text) ==
             KELP_BDF_OK);
  KELP_CHECK(is(text, "charge"));
  KELP_CHECK(kelp_bdf_finding_concise(findings, unknown, "a.inp", &line, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_texts_get(line, 0, &text) == KELP_BDF_OK);
  KELP_CHECK(strstr(text.data, "a.inp:2:1: warning: ") == text.data);
  kelp_bdf_texts_free(line);

  KELP_CHECK(kelp_bdf_findings_get(findings, index_of(findings, "bdf.invalid_module_value"),
                                   &finding) == KELP_BDF_OK);
  KELP_CHECK(finding.severity == KELP_BDF_SEVERITY_ERROR && is(finding.path, "scf.guess"));
  KELP_CHECK(kelp_bdf_findings_free(findings) == KELP_BDF_OK);

  findings = checked("$scf\ncharge\n 1\ncharge\n 2\n$end\n", NULL);
  const size_t twice = index_of(findings, "bdf.duplicate_entry");
  kelp_bdf_related related = {.struct_size = sizeof related};
  KELP_CHECK(kelp_bdf_finding_related(findings, twice, 0, &related) == KELP_BDF_OK);
  KELP_CHECK(related.range.begin == 5 && related.message.size > 0);
  kelp_bdf_findings_free(findings);
}

void OptionsOfACheckCount(void) {
  const kelp_bdf_rule rules[] = {{"bdf.*", KELP_BDF_ALLOW}, {"bdf.unknown_entry", KELP_BDF_DENY}};
  kelp_bdf_check_options options = {sizeof options, KELP_BDF_UNKNOWN_WARN, 0, rules, 2};
  kelp_bdf_findings* findings = checked(faulty, &options);
  kelp_bdf_finding finding = {.struct_size = sizeof finding};
  size_t count = 0;
  KELP_CHECK(kelp_bdf_findings_count(findings, &count) == KELP_BDF_OK && count == 1);
  KELP_CHECK(kelp_bdf_findings_get(findings, 0, &finding) == KELP_BDF_OK);
  KELP_CHECK(finding.severity == KELP_BDF_SEVERITY_ERROR);
  kelp_bdf_findings_free(findings);

  options.unknown = KELP_BDF_UNKNOWN_IGNORE;
  options.rule_count = 0;
  findings = checked(faulty, &options);
  kelp_bdf_findings_count(findings, &count);
  KELP_CHECK(count == 1 && index_of(findings, "bdf.invalid_module_value") == 0);
  kelp_bdf_findings_free(findings);

  options.unknown = 7;
  kelp_bdf_input* input = parsed(faulty);
  KELP_CHECK(kelp_bdf_check(input, &options, &findings, NULL) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_input_free(input);
}

void FixesMendTheText(void) {
  kelp_bdf_findings* findings = checked("$scf\ncharge\n 1\n$edn\n", NULL);
  kelp_bdf_fix fix = {.struct_size = sizeof fix};
  kelp_bdf_text_edit edit;
  kelp_bdf_finding finding = {.struct_size = sizeof finding};
  size_t found = 0;
  size_t count = 0;
  kelp_bdf_findings_count(findings, &count);
  for (size_t i = 0; i < count; ++i) {
    kelp_bdf_findings_get(findings, i, &finding);
    found = finding.fix_count > 0 ? i : found;
  }
  KELP_CHECK(kelp_bdf_finding_fix(findings, found, 0, &fix) == KELP_BDF_OK);
  KELP_CHECK(fix.title.size > 0 && fix.is_safe != 0 && fix.edit_count == 1);
  KELP_CHECK(kelp_bdf_finding_edit(findings, found, 0, 0, &edit) == KELP_BDF_OK);
  KELP_CHECK(is(edit.text, "$end") && edit.range.begin == 15 && edit.range.end == 19);
  KELP_CHECK(kelp_bdf_finding_edit(findings, found, 0, 1, &edit) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_findings_free(findings);
}

void AnOutlineListsWhatStandsWhere(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_outline* outline = NULL;
  kelp_bdf_outline_item item = {.struct_size = sizeof item};
  kelp_bdf_string text;
  size_t count = 0;
  KELP_CHECK(kelp_bdf_outline_of(input, KELP_BDF_ENGLISH, &outline, NULL) == KELP_BDF_OK);
  kelp_bdf_input_free(input);
  KELP_CHECK(kelp_bdf_outline_count(outline, &count) == KELP_BDF_OK && count == 6);
  kelp_bdf_outline_get(outline, 1, &item);
  KELP_CHECK(item.kind == KELP_BDF_ITEM_WORD && is(item.name, "charge=1") && item.line == 2);
  kelp_bdf_outline_get(outline, 3, &item);
  KELP_CHECK(item.kind == KELP_BDF_ITEM_GEOMETRY && is(item.name, "H2O") && item.value_count == 3);
  kelp_bdf_outline_get(outline, 4, &item);
  KELP_CHECK(item.kind == KELP_BDF_ITEM_MODULE && is(item.path, "scf") && item.line == 10);
  kelp_bdf_outline_get(outline, 5, &item);
  KELP_CHECK(item.kind == KELP_BDF_ITEM_ENTRY && is(item.path, "scf.maxiter") && item.known == 1);
  KELP_CHECK(item.summary.size > 0 && item.value_count == 1);
  KELP_CHECK(kelp_bdf_outline_value(outline, 5, 0, &text) == KELP_BDF_OK && is(text, "60"));
  KELP_CHECK(kelp_bdf_outline_value(outline, 5, 1, &text) == KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_outline_get(outline, 6, &item) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_outline_free(outline);
}

void MoleculesGiveTheirCoordinatesAsOneArray(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_molecule* molecule = NULL;
  kelp_bdf_molecule_info info = {.struct_size = sizeof info};
  kelp_bdf_string text;
  KELP_CHECK(kelp_bdf_molecule_of(input, &molecule, NULL) == KELP_BDF_OK);
  kelp_bdf_input_free(input);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, &info) == KELP_BDF_OK);
  KELP_CHECK(info.atom_count == 3 && info.unit == KELP_BDF_ANGSTROM && is(info.formula, "H2O"));
  KELP_CHECK(info.has_charge == 1 && info.charge == 1);
  KELP_CHECK(info.has_multiplicity == 1 && info.multiplicity == 2);
  KELP_CHECK(info.coordinates[2] == 0.1173 && info.coordinates[3 * 2 + 1] == -0.7572);
  KELP_CHECK(kelp_bdf_molecule_element(molecule, 1, &text) == KELP_BDF_OK && is(text, "H"));
  KELP_CHECK(kelp_bdf_molecule_label(molecule, 3, &text) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_molecule_free(molecule);

  input = parsed("$scf\n$end\n");
  KELP_CHECK(kelp_bdf_molecule_of(input, &molecule, NULL) == KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, &info) == KELP_BDF_OK);
  KELP_CHECK(info.atom_count == 0 && info.coordinates == NULL && info.has_charge == 0);
  kelp_bdf_molecule_free(molecule);
  kelp_bdf_input_free(input);
}

void MoleculesAreMadeOfArraysAndOfXyz(void) {
  static const char* const labels[] = {"O1", "H"};
  static const char* const wrong[] = {"O 1", "H"};
  const double xyz[] = {0, 0, 0, 0, 0, 0.97};
  const double no_number[] = {0, 0, 0, 0, 0, NAN};
  kelp_bdf_error error;
  kelp_bdf_molecule* molecule = NULL;
  kelp_bdf_texts* text = NULL;
  kelp_bdf_molecule_info info = {.struct_size = sizeof info};
  kelp_bdf_string label;
  KELP_CHECK(kelp_bdf_molecule_new(labels, xyz, 2, KELP_BDF_ANGSTROM, &molecule, &error) ==
             KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_molecule_xyz(molecule, "hydroxyl", &text, &error) == KELP_BDF_OK);
  KELP_CHECK(is_one(text, "2\nhydroxyl\nO 0 0 0\nH 0 0 0.97\n"));
  KELP_CHECK(kelp_bdf_molecule_label(molecule, 0, &label) == KELP_BDF_OK && is(label, "O1"));
  kelp_bdf_texts_free(text);
  kelp_bdf_molecule_free(molecule);

  KELP_CHECK(kelp_bdf_molecule_new(wrong, xyz, 2, KELP_BDF_ANGSTROM, &molecule, &error) ==
             KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(kelp_bdf_molecule_new(labels, no_number, 2, 0, &molecule, &error) ==
             KELP_BDF_INVALID_ARGUMENT);

  KELP_CHECK(kelp_bdf_molecule_parse_xyz("1\n\nHe 0 0 1.5\n", 14, &molecule, &error) ==
             KELP_BDF_OK);
  KELP_CHECK(kelp_bdf_molecule_get(molecule, &info) == KELP_BDF_OK && info.coordinates[2] == 1.5);
  kelp_bdf_molecule_free(molecule);
  KELP_CHECK(kelp_bdf_molecule_parse_xyz("1\n\nHe 0 0\n", 10, &molecule, &error) ==
             KELP_BDF_INVALID_ARGUMENT);
  KELP_CHECK(strncmp(error.text, "line 3: ", 8) == 0);
}

void CalculationsTellWhatIsComputed(void) {
  kelp_bdf_input* input = parsed(water);
  kelp_bdf_calculation* calculation = NULL;
  kelp_bdf_scf scf = {.struct_size = sizeof scf};
  kelp_bdf_system system = {.struct_size = sizeof system};
  kelp_bdf_task task = {.struct_size = sizeof task};
  kelp_bdf_string name;
  size_t systems = 0;
  size_t scfs = 0;
  size_t tasks = 0;
  KELP_CHECK(kelp_bdf_calculation_of(input, &calculation, NULL) == KELP_BDF_OK);
  kelp_bdf_input_free(input);
  KELP_CHECK(kelp_bdf_calculation_counts(calculation, &systems, &scfs, &tasks) == KELP_BDF_OK);
  KELP_CHECK(systems == 1 && scfs == 1 && tasks == 1);
  KELP_CHECK(kelp_bdf_calculation_system(calculation, 0, &system) == KELP_BDF_OK);
  KELP_CHECK(is(system.formula, "H2O") && system.atom_count == 3 && system.basis_count == 1);
  KELP_CHECK(kelp_bdf_calculation_basis(calculation, 0, 0, &name) == KELP_BDF_OK);
  KELP_CHECK(is(name, "3-21g"));
  KELP_CHECK(kelp_bdf_calculation_scf(calculation, 0, &scf) == KELP_BDF_OK);
  KELP_CHECK(scf.charge.is_known == 1 && scf.charge.value == 1 && scf.charge.line == 2);
  KELP_CHECK(scf.has_electrons == 1 && scf.electrons == 9 && scf.functional.size == 0);
  KELP_CHECK(kelp_bdf_calculation_task(calculation, 0, &task) == KELP_BDF_OK);
  KELP_CHECK(is(task.name, "SCF") && task.line == 10);
  KELP_CHECK(kelp_bdf_calculation_task(calculation, 1, &task) == KELP_BDF_INVALID_ARGUMENT);
  kelp_bdf_calculation_free(calculation);
}
