#include "report/findings_report.hpp"

#include <array>
#include <utility>

namespace kelp::app {
namespace {

/// The line at fault and what to do about it, and at last how much there was.
class HumanForm : public FindingsReport {
 public:
  explicit HumanForm(ReportForm form) : form_(std::move(form)) {}

  WrittenFinding write(const Finding& finding) const override {
    ReportForm form = form_;
    form.width = finding.width;
    return {report_text(finding.diagnostic, finding.source, finding.file, form), {}, {}, false};
  }

  std::string end(const Totals& totals) override { return human_summary(totals); }

  bool tells_what_is_not_shown() const override { return true; }

 private:
  ReportForm form_;
};

/// One line for each finding.
class ConciseForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    return {report_text(finding.diagnostic, finding.source, finding.file, {.human = false}),
            {},
            {},
            false};
  }
};

std::unique_ptr<FindingsReport> make_concise_report() {
  return std::make_unique<ConciseForm>();
}

constexpr std::string_view human = "human";

constexpr auto makers =
    std::to_array<std::pair<std::string_view, std::unique_ptr<FindingsReport> (*)()>>({
        {"concise", make_concise_report},
        {"json", make_json_report},
        {"jsonl", make_json_lines_report},
        {"sarif", make_sarif_report},
        {"github", make_github_report},
        {"junit", make_junit_report},
    });

std::vector<std::string> names_of_forms() {
  std::vector<std::string> names = {std::string(human)};
  for (const auto& [name, make] : makers) {
    names.emplace_back(name);
  }
  return names;
}

}  // namespace

const std::vector<std::string>& findings_forms() {
  static const std::vector<std::string> names = names_of_forms();
  return names;
}

std::unique_ptr<FindingsReport> make_findings_report(std::string_view form,
                                                     const ReportForm& human_form) {
  for (const auto& [name, make] : makers) {
    if (name == form) {
      return make();
    }
  }
  return std::make_unique<HumanForm>(human_form);
}

}  // namespace kelp::app
