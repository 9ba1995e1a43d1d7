// Findings as JSON: one document, or a record on each line. Both hold the same records, so that a
// reader of one reads the other; a record on a line of its own says its version itself.

#include "report/findings_report.hpp"
#include "report/json.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::SourceText;

Json fix_json(const input::bdf::Fix& fix, const SourceText& source) {
  return {{"title", fix.title},
          {"safe", fix.is_safe},
          {"edits", list_of(fix.edits, [&](const input::bdf::TextEdit& edit) {
             return Json{{"range", range_json(edit.range, source)}, {"text", edit.text}};
           })}};
}

void add_members(Json& record, const Finding& finding) {
  const Diagnostic& diagnostic = finding.diagnostic;
  const SourceText& source = finding.source;
  record["code"] = diagnostic.code;
  record["severity"] = to_string(diagnostic.severity);
  record["message"] = diagnostic.message;
  record["arguments"] = diagnostic.arguments;
  record["file"] = finding.file;
  record["range"] = diagnostic.range ? range_json(*diagnostic.range, source) : Json();
  record["label"] = text_or_null(diagnostic.label);
  record["path"] = text_or_null(diagnostic.path);
  record["help"] = diagnostic.help;
  record["suggestions"] = diagnostic.suggestions;
  record["fixes"] =
      list_of(diagnostic.fixes, [&](const input::bdf::Fix& fix) { return fix_json(fix, source); });
  record["related"] = list_of(diagnostic.related, [&](const input::bdf::RelatedRange& related) {
    return Json{{"message", related.message}, {"range", range_json(related.range, source)}};
  });
}

/// A record on each line.
class JsonLinesForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    Json record = {{"version", record_version}};
    add_members(record, finding);
    return {json_line(record) + '\n', {}, {}, false};
  }

  bool is_data() const override { return true; }
};

/// One document. Its findings stand on a line each, and are printed as they come.
class JsonForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    Json record = Json::object();
    add_members(record, finding);
    return {json_line(record), {}, {}, false};
  }

  std::string begin() override { return list_.begin(); }

  std::string add(const WrittenFinding& finding) override { return list_.add(finding.text); }

  std::string fail(const std::string& reason) override {
    failures_.push_back({{"message", reason}});
    return {};
  }

  std::string end(const Totals& totals) override {
    const Json summary = {{"files", totals.files_checked}, {"errors", totals.errors},
                          {"warnings", totals.warnings},   {"notes", totals.notes},
                          {"not_shown", totals.not_shown}, {"fixed", totals.fixed}};
    return list_.end({{"failures", failures_}, {"summary", summary}});
  }

  bool tells_what_is_not_shown() const override { return true; }
  bool is_data() const override { return true; }

 private:
  JsonList list_{"findings"};
  Json failures_ = Json::array();
};

}  // namespace

std::unique_ptr<FindingsReport> make_json_report() {
  return std::make_unique<JsonForm>();
}

std::unique_ptr<FindingsReport> make_json_lines_report() {
  return std::make_unique<JsonLinesForm>();
}

}  // namespace kelp::app
