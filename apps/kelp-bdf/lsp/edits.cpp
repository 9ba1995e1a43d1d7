// Changes of the text: its layout, and what mends findings.

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "commands/fixes.hpp"
#include "kelp/input/bdf/allowance.hpp"
#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "lsp/features.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::Diagnostic;
using input::bdf::Rewrite;
using input::bdf::TextEdit;
using input::bdf::TextRange;

constexpr const char* quick_fix = "quickfix";
constexpr const char* fix_all = "source.fixAll.kelp-bdf";

Json edits_json(const View& view, const std::vector<TextEdit>& edits) {
  Json list = Json::array();
  for (const TextEdit& edit : edits) {
    list.push_back({{"range", view.range(edit.range)}, {"newText", edit.text}});
  }
  return list;
}

// With the version, so that a client does not make it in a text that is gone.
Json workspace_edit(const View& view, const std::vector<TextEdit>& edits) {
  const std::string& uri = view.document.uri();
  if (view.client.versioned_edits) {
    return {{"documentChanges",
             {{{"textDocument", {{"uri", uri}, {"version", view.document.version()}}},
               {"edits", edits_json(view, edits)}}}}};
  }
  return {{"changes", {{uri, edits_json(view, edits)}}}};
}

std::vector<TextEdit> layout_edits(const View& view) {
  const Rewrite result = format_input(view.input());
  if (!result.error.empty()) {
    throw RequestError(ErrorCode::RequestFailed, result.error);
  }
  if (!result.losses.empty()) {
    throw RequestError(ErrorCode::RequestFailed, result.losses.front().message);
  }
  return result.edits;
}

}  // namespace

Json formatting(const View& view, const Json&) {
  return edits_json(view, layout_edits(view));
}

// Each line is laid out by itself, so that the edits of some lines are as good as all.
Json range_formatting(const View& view, const Json& params) {
  const TextRange wanted = view.document.text_range(member(params, "range"), view.client.unit);
  const input::bdf::SourceText& source = view.input().source();
  const std::size_t begin = source.full_line_range(source.line_at(wanted.begin)).begin;
  const std::size_t end = source.full_line_range(source.line_at(wanted.end)).end;
  std::vector<TextEdit> edits = layout_edits(view);
  std::erase_if(edits, [&](const TextEdit& edit) {
    return edit.range.begin < begin || edit.range.end > end;
  });
  return edits_json(view, edits);
}

namespace {

// All of the lines that a range touches: who asks about a line means what is wrong on it, wherever
// the cursor stands.
TextRange lines_of(const View& view, const Json& params) {
  const TextRange wanted = view.document.text_range(member(params, "range"), view.client.unit);
  const input::bdf::SourceText& source = view.input().source();
  return {source.line_range(source.line_at(wanted.begin)).begin,
          source.line_range(source.line_at(wanted.end)).end};
}

/// The actions for some lines of an input.
class ActionMaker {
 public:
  ActionMaker(const View& view, const Json& params)
      : view_(view),
        range_(lines_of(view, params)),
        only_(find_member(params, {"context", "only"})) {}

  Json run() {
    const std::vector<Diagnostic>& findings = view_.findings();
    for (std::size_t i = 0; i < findings.size(); ++i) {
      if (is_wanted(quick_fix) && is_here(findings[i])) {
        add_actions(findings[i], i);
      }
    }
    if (is_wanted(fix_all)) {
      add_all_safe();
    }
    return std::move(list_);
  }

 private:
  // A kind stands for all that begin with it.
  bool is_wanted(std::string_view kind) const {
    if (!only_.is_array()) {
      return true;
    }
    return std::any_of(only_.begin(), only_.end(), [kind](const Json& wanted) {
      if (!wanted.is_string()) {
        return false;
      }
      const auto name = wanted.get<std::string>();
      return name.empty() || kind == name || kind.starts_with(name + '.');
    });
  }

  bool is_here(const Diagnostic& finding) const {
    const TextRange at = finding.range.value_or(TextRange{});
    return at.begin <= range_.end && at.end >= range_.begin;
  }

  void add_actions(const Diagnostic& finding, std::size_t index) {
    for (const input::bdf::Fix& fix : finding.fixes) {
      Json& action = add(fix.title, quick_fix, finding);
      action["isPreferred"] = fix.is_safe;
      action["edit"] = workspace_edit(view_, fix.edits);
    }
    add_molecule_actions(finding);
    add_allowance(finding, index);
    Json& explanation = add("Explain " + finding.code, quick_fix, finding);
    explanation["command"] = {{"title", "Explain " + finding.code},
                              {"command", explain_command},
                              {"arguments", {finding.code}}};
  }

  Json& add(const std::string& title, const char* kind, const Diagnostic& finding) {
    list_.push_back(
        {{"title", title}, {"kind", kind}, {"diagnostics", {diagnostic_json(view_, finding)}}});
    return list_.back();
  }

  // To try where the comment may stand takes some readings of the input; who can ask for it later,
  // does so when the action is chosen.
  void add_allowance(const Diagnostic& finding, std::size_t index) {
    if (finding.code.starts_with("comment.")) {
      return;
    }
    const std::string title = "Allow " + finding.code + " here";
    if (view_.client.resolves_edits) {
      add(title, quick_fix, finding)["data"] = {
          {"uri", view_.document.uri()}, {"version", view_.document.version()}, {"finding", index}};
    } else if (const auto edit = allowing_edit(view_.input(), finding)) {
      add(title, quick_fix, finding)["edit"] = workspace_edit(view_, {*edit});
    }
  }

  // What would fit, where charge and multiplicity do not.
  void add_molecule_actions(const Diagnostic& finding) {
    constexpr std::string_view codes[] = {"electrons.spin_parity",
                                          "electrons.multiplicity_too_high",
                                          "electrons.multiplicity_not_positive"};
    if (std::find(std::begin(codes), std::end(codes), finding.code) == std::end(codes)) {
      return;
    }
    const input::bdf::Calculation calculation = calculation_of(view_.input());
    if (calculation.scfs.size() != 1 || !calculation.scfs.front().electrons) {
      return;
    }
    const input::bdf::Calculation::Scf& scf = calculation.scfs.front();
    input::bdf::Edit multiplicity;
    multiplicity.multiplicity = *scf.electrons % 2 == 0 ? 1 : 2;
    add_edit("Set the multiplicity to " + std::to_string(*multiplicity.multiplicity), multiplicity,
             finding);
    if (scf.charge && finding.code == codes[0]) {
      for (const int step : {1, -1}) {
        input::bdf::Edit charge;
        charge.charge = static_cast<int>(scf.charge->value) + step;
        add_edit("Set the charge to " + std::to_string(*charge.charge), charge, finding);
      }
    }
  }

  // Only what mends it is offered.
  void add_edit(const std::string& title, const input::bdf::Edit& edit, const Diagnostic& finding) {
    const Rewrite result = edit_input(view_.input(), edit);
    if (!result.error.empty() || !result.losses.empty() || result.edits.empty()) {
      return;
    }
    const std::vector<Diagnostic> left =
        diagnose(input::bdf::ParsedInput(result.text, view_.schema), view_.settings.wanted);
    const bool is_mended = std::none_of(left.begin(), left.end(), [&](const Diagnostic& item) {
      return item.code == finding.code;
    });
    if (is_mended) {
      add(title, quick_fix, finding)["edit"] = workspace_edit(view_, result.edits);
    }
  }

  void add_all_safe() {
    SafeFixes fixes;
    for (const Diagnostic& finding : view_.findings()) {
      fixes.add(finding);
    }
    if (fixes.count() > 0) {
      list_.push_back({{"title", "Apply all fixes that are safe"},
                       {"kind", fix_all},
                       {"edit", workspace_edit(view_, fixes.edits())}});
    }
  }

  const View& view_;
  TextRange range_;
  const Json& only_;
  Json list_ = Json::array();
};

}  // namespace

Json code_actions(const View& view, const Json& params) {
  return ActionMaker(view, params).run();
}

Json resolved_action(const View& view, const Json& action) {
  const Json& data = member(action, "data");
  const std::vector<Diagnostic>& findings = view.findings();
  const std::size_t index = number_member(data, "finding");
  if (member(data, "version") != view.document.version() || index >= findings.size()) {
    throw RequestError(ErrorCode::RequestFailed, "the input was changed in the meantime");
  }
  const auto edit = allowing_edit(view.input(), findings[index]);
  if (!edit) {
    throw RequestError(ErrorCode::RequestFailed, "no comment can allow this finding");
  }
  Json resolved = action;
  resolved["edit"] = workspace_edit(view, {*edit});
  return resolved;
}

}  // namespace kelp::app::lsp
