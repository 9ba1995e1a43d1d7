// What is wrong with an input.

#include <string>
#include <utility>
#include <vector>

#include "objects.hpp"

namespace kelp::c_interface {
namespace {

bdf::DiagnoseOptions options_from(const kelp_bdf_check_options* given) {
  bdf::DiagnoseOptions options;
  if (given == nullptr) {
    return options;
  }
  if (given->struct_size < sizeof(kelp_bdf_check_options)) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, "struct_size is not set, or too small");
  }
  options.unknown = enumerator_of(given->unknown, bdf::UnknownNames::Error);
  options.advice = given->advice != 0;
  for (std::size_t i = 0; i < given->rule_count; ++i) {
    const kelp_bdf_rule& rule = needed(given->rules)[i];
    options.rules.push_back(
        {needed(rule.pattern), enumerator_of(rule.action, bdf::SeverityAction::Deny)});
  }
  return options;
}

const std::vector<std::string>& texts_of(const bdf::Diagnostic& finding, std::int32_t list) {
  switch (list) {
    case KELP_BDF_ARGUMENTS:
      return finding.arguments;
    case KELP_BDF_HELP:
      return finding.help;
    case KELP_BDF_SUGGESTIONS:
      return finding.suggestions;
    default:
      throw Failure(KELP_BDF_INVALID_ARGUMENT,
                    "there is no list of the number " + std::to_string(list));
  }
}

kelp_bdf_finding filled(const bdf::Diagnostic& finding, const bdf::SourceText& source) {
  kelp_bdf_finding record = {};
  record.severity = static_cast<std::int32_t>(finding.severity);
  record.has_range = finding.range ? 1 : 0;
  record.start = record.end = {1, 1};
  if (finding.range) {
    record.range = range_of(*finding.range);
    record.start = position_of(source.position(finding.range->begin));
    record.end = position_of(source.position(finding.range->end));
  }
  record.code = string_of(finding.code);
  record.message = string_of(finding.message);
  record.label = string_of(finding.label);
  record.path = string_of(finding.path);
  record.record = record_of(finding.record);
  record.argument_count = finding.arguments.size();
  record.help_count = finding.help.size();
  record.suggestion_count = finding.suggestions.size();
  record.related_count = finding.related.size();
  record.fix_count = finding.fixes.size();
  return record;
}

}  // namespace
}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_check(const kelp_bdf_input* input, const kelp_bdf_check_options* options,
                               kelp_bdf_findings** findings, kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(input);
    bdf::DiagnoseOptions wanted = options_from(options);
    if (!object->path.empty()) {
      wanted.folder = bdf::input_folder_of(object->path);
    }
    hand_out(findings,
             std::make_shared<Findings>(diagnose(object->input, wanted), object->input.source()));
  });
}

kelp_bdf_status kelp_bdf_findings_count(const kelp_bdf_findings* findings, size_t* count) {
  return call([=] { *needed(count) = object_of(findings)->findings.size(); });
}

kelp_bdf_status kelp_bdf_findings_get(const kelp_bdf_findings* findings, size_t index,
                                      kelp_bdf_finding* finding) {
  return call([=] {
    const auto object = object_of(findings);
    fill(finding, filled(item_of(object->findings, index), object->source));
  });
}

kelp_bdf_status kelp_bdf_finding_text(const kelp_bdf_findings* findings, size_t index, int32_t list,
                                      size_t item, kelp_bdf_string* text) {
  return call([=] {
    const auto object = object_of(findings);
    const auto& texts = texts_of(item_of(object->findings, index), list);
    *needed(text) = string_of(item_of(texts, item));
  });
}

kelp_bdf_status kelp_bdf_finding_related(const kelp_bdf_findings* findings, size_t index,
                                         size_t item, kelp_bdf_related* related) {
  return call([=] {
    const auto object = object_of(findings);
    const auto& found = item_of(item_of(object->findings, index).related, item);
    fill(related, kelp_bdf_related{0, range_of(found.range), string_of(found.message)});
  });
}

kelp_bdf_status kelp_bdf_finding_fix(const kelp_bdf_findings* findings, size_t index, size_t item,
                                     kelp_bdf_fix* fix) {
  return call([=] {
    const auto object = object_of(findings);
    const bdf::Fix& found = item_of(item_of(object->findings, index).fixes, item);
    fill(fix, kelp_bdf_fix{0, string_of(found.title), found.is_safe ? 1 : 0, found.edits.size()});
  });
}

kelp_bdf_status kelp_bdf_finding_edit(const kelp_bdf_findings* findings, size_t index, size_t fix,
                                      size_t item, kelp_bdf_text_edit* edit) {
  return call([=] {
    const auto object = object_of(findings);
    const bdf::Fix& found = item_of(item_of(object->findings, index).fixes, fix);
    *needed(edit) = edit_of(item_of(found.edits, item));
  });
}

kelp_bdf_status kelp_bdf_finding_concise(const kelp_bdf_findings* findings, size_t index,
                                         const char* file, kelp_bdf_texts** line,
                                         kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(findings);
    hand_out_texts(line,
                   {concise_text(item_of(object->findings, index), object->source, needed(file))});
  });
}

kelp_bdf_status kelp_bdf_findings_free(kelp_bdf_findings* findings) {
  return free_handle(findings);
}
