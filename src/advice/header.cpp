// The header of an easy input: its script line, its specification, its tasks, and the scan that
// a task and a line of the geometry ask for together. Names that are not known are found elsewhere.

#include <algorithm>
#include <array>
#include <cmath>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {
namespace {

// The number of the script line; 0 when there is none before the header.
std::size_t script_line_of(const ParsedInput& input) {
  for (std::size_t line = 1; line <= input.source().line_count(); ++line) {
    const LineRole role = input.line(line).role;
    if (role == LineRole::ScriptLine) {
      return line;
    }
    if (role != LineRole::Blank && role != LineRole::Comment) {
      return 0;
    }
  }
  return 0;
}

// `# name.bdf` on the first line: the name of an input behind the mark of comments.
TextRange name_in_comment(const ParsedInput& input) {
  const TextRange line = input.source().content(1);
  const std::string_view text = input.source().text_of(line);
  if (!text.starts_with('#')) {
    return {};
  }
  const std::string_view name = core::text::trim_view(text.substr(1));
  const bool is_name = name.find_first_of(" \t/") == std::string_view::npos &&
                       (name.ends_with(".bdf") || name.ends_with(".inp") || name.ends_with(".sh"));
  return is_name ? line : TextRange{};
}

// A first line that was to be '#! name': `! name`, `!# name`, `# ! name`, in wide letters. Returns
// where what comes before the name stands; empty for any other line.
TextRange misspelt_shebang(const SourceText& source) {
  constexpr std::array<std::string_view, 4> signs = {"#", "!", "\xEF\xBC\x83", "\xEF\xBC\x81"};
  const TextRange content = source.content(1);
  std::string_view rest = source.text_of(content);
  const std::size_t size = rest.size();
  const auto is_sign_before = [&rest](std::string_view sign) { return rest.starts_with(sign); };
  for (auto sign = signs.begin(); sign != signs.end();) {
    sign = std::find_if(signs.begin(), signs.end(), is_sign_before);
    rest.remove_prefix(sign == signs.end() ? 0 : sign->size());
  }
  return {content.begin, content.begin + size - core::text::trim_view(rest).size()};
}

void check_shebang_missing(const Job& job, Report& report) {
  const ParsedInput& input = job.input;
  if (!job.specification() || !job.data().has_geometry || !job.data().geometry_terminated ||
      script_line_of(input) != 0) {
    return;
  }
  // Who begins with comments has cut the input out of something else, or lost one byte.
  if (!job.data().leading_lines.empty()) {
    if (const TextRange name = name_in_comment(input); !name.empty()) {
      report.add("The line '#!' is missing, without which the header is not read.")
          .at(name, "a comment")
          .fix("write '#!'", {{name.begin, name.begin + 1}, "#!"});
    }
    return;
  }
  const std::size_t begin = input.source().full_line_range(1).begin;
  const std::string_view line_end = input.source().line_end(1);
  const std::string name = job.folder == nullptr ? "job" : job.folder->job_name;
  Finding& finding = report.add("The line '#!' is missing, without which the header is not read.");
  const TextRange sign = misspelt_shebang(input.source());
  if (!sign.empty() && input.line(1).role == LineRole::Header) {
    finding.at(sign, "meant to be '#!'?").fix("write '#!'", {sign, "#! "});
    return;
  }
  finding.at(input.token_ranges(job.specification().value_or(0)).whole, "passed over")
      .fix("insert '#! " + name + ".bdf'",
           {{begin, begin}, "#! " + name + ".bdf" + std::string(line_end)});
}

void check_shebang_indented(const Job& job, Report& report) {
  const SourceText& source = job.input.source();
  const std::size_t line = script_line_of(job.input);
  if (line == 0 || !job.specification()) {
    return;
  }
  const TextRange blanks = {source.line_range(line).begin, source.content(line).begin};
  if (!blanks.empty()) {
    report.add("The line '#!' must begin in the first column.")
        .at(source.content(line), "passed over")
        .fix("take the blanks before it away", {blanks, {}});
  }
}

void check_too_many_parts(const Job& job, Report& report) {
  constexpr int most = 2;
  const std::size_t end = tokens_before_comment(job.data());
  for (std::size_t i = 0; i < end; ++i) {
    const std::string& text = job.data().easy_tokens[i].text;
    const bool is_other = text.find_first_of("=[(") != std::string::npos;
    if (!is_other && std::count(text.begin(), text.end(), '/') > most) {
      report.add("The method specification '{}' has more than three parts.", {text})
          .at(job.input.token_ranges(i).whole, "method/functional/basis")
          .help("write the method, the functional and the basis set; or the last two of them");
    }
  }
}

// Tells whether a flag of the header is set.
bool is_on(const Setting& setting) {
  return setting && !setting.is("false");
}

/// A task word of the header.
struct Task {
  std::string name;  ///< canonical
  Setting setting;
};

std::vector<Task> tasks_of(const Job& job) {
  std::vector<Task> tasks;
  const std::size_t end = tokens_before_comment(job.data());
  for (std::size_t i = 0; i < end; ++i) {
    const EasyToken& token = job.data().easy_tokens[i];
    const std::string name = job.schema().canonical_easy_token(token.key);
    const bool is_known = std::any_of(tasks.begin(), tasks.end(),
                                      [&](const Task& task) { return task.name == name; });
    if (token.category == "task" && !is_known && is_on(job.header(name))) {
      tasks.push_back({name, job.header(name)});
    }
  }
  return tasks;
}

// The words for two tasks together, in releases up to 2026 and from then on.
std::vector<std::string> joint_tasks(const Task& left, const Task& right) {
  for (const char* const task : {"freq", "opt"}) {
    const std::string other = task == std::string_view("freq") ? "opt" : "scan";
    if ((left.name == task && right.name == other) || (left.name == other && right.name == task)) {
      return {other + "+" + task, other + task};
    }
  }
  return {};
}

void check_task_twice(const Job& job, Report& report) {
  const std::vector<Task> tasks = tasks_of(job);
  if (tasks.size() < 2) {
    return;
  }
  Finding& finding =
      report.add("The header has two tasks, '{}' and '{}'.", {tasks[0].name, tasks[1].name})
          .at_keyword(tasks[1].setting, "a second task")
          .related(tasks[0].setting.keyword(), "the first one");
  const std::vector<std::string> names = joint_tasks(tasks[0], tasks[1]);
  for (const std::string& name : names) {
    finding.offer({"write '" + name + "'",
                   {{tasks[0].setting.keyword(), name}, removed(job, tasks[1].setting)},
                   false});
  }
  finding.help(names.empty() ? "keep one of them"
                             : "two tasks are one word; which one depends on the release");
}

bool needs_functional(const Job& job) {
  constexpr std::array<std::string_view, 4> kohn_sham = {"ks", "rks", "uks", "roks"};
  return has_excited_method(job) ||
         std::find(kohn_sham.begin(), kohn_sham.end(), job.method()) != kohn_sham.end();
}

void check_method_needs_functional(const Job& job, Report& report) {
  const bool has_own = std::any_of(job.blocks.begin(), job.blocks.end(),
                                   [](const Block& block) { return block.has("dft"); });
  if (!job.specification() || !job.functional().empty() || has_own || !needs_functional(job)) {
    return;
  }
  const SpecificationRanges ranges =
      job.input.specification_ranges(job.specification().value_or(0));
  const Word method = job.input.source().text_of(ranges.method);
  report.add("'{}' needs a functional.", {method})
      .at(ranges.method, "of which functional?")
      .help("write it between method and basis set: " + std::string(method) + "/b3lyp/" +
            std::string(job.input.source().text_of(ranges.basis)));
}

void check_spinadapt_closed_shell(const Job& job, Report& report) {
  if (job.scfs.empty()) {
    return;
  }
  const Scf& scf = job.scfs.front();
  const auto electrons = scf.electrons();
  const bool is_even =
      electrons && *electrons > 0 && *electrons % 2 == 0 && !job.may_have_odd_core(*scf.system);
  if (!is_even || shell_of(job, &scf) != Shell::Closed) {
    return;
  }
  const bool is_method = job.method().starts_with("x-");
  const Setting keyword = job.header("spinadapt");
  if (is_method || is_on(keyword)) {
    report
        .add("Spin adaptation is for open shells, and {} electrons are paired.",
             {text_of(*electrons)})
        .at(is_method ? job.input.specification_ranges(job.specification().value_or(0)).method
                      : keyword.keyword(),
            "for open shells")
        .related(scf.multiplicity, "a singlet")
        .help("state the multiplicity of an open shell, or take spin adaptation away");
  }
}

// The header's task that scans a variable of the geometry.
Setting scan_task_of(const Job& job) {
  for (const char* const name : {"scan", "scan+opt", "scanopt"}) {
    if (const Setting setting = job.header(name); is_on(setting)) {
      return setting;
    }
  }
  return {};
}

// Scans of `$bdfopt` name atoms, not variables.
bool has_own_scan(const Job& job) {
  return std::any_of(job.blocks.begin(), job.blocks.end(), [](const Block& block) {
    return block.name == "bdfopt" && block.has("scan");
  });
}

std::vector<const Variable*> scanned_in(const Geometry& geometry) {
  constexpr std::size_t words = 3;
  std::vector<const Variable*> scanned;
  for (const Variable& variable : geometry.variables) {
    const bool is_scan = variable.values.size() == words &&
                         std::all_of(variable.values.begin(), variable.values.end(), [](Word word) {
                           return core::number::parse_float(word).has_value();
                         });
    if (is_scan && !variable.may_be_row() && geometry.form == GeometryForm::Internal) {
      scanned.push_back(&variable);
    }
  }
  return scanned;
}

void check_scan_needs_internal(const Job& job, Report& report) {
  const Geometry& geometry = job.systems.front().geometry;
  const Setting task = scan_task_of(job);
  if (task && geometry.form == GeometryForm::Cartesian && geometry.is_certain &&
      !has_own_scan(job)) {
    report.add("The task '{}' needs internal coordinates with a variable to scan.", {task.name()})
        .at_keyword(task, "nothing to scan")
        .related(job.input.keyword_range(geometry.record), "Cartesian coordinates")
        .help(
            "write a Z-matrix with variables, and the scan as a line 'name start step points'; or "
            "scan with $bdfopt");
  }
}

void check_scan_without_line(const Job& job, Report& report) {
  const Geometry& geometry = job.systems.front().geometry;
  const Setting task = scan_task_of(job);
  if (task && geometry.form == GeometryForm::Internal && geometry.is_certain &&
      scanned_in(geometry).empty() && !has_own_scan(job)) {
    report.add("The task '{}' has no variable to scan.", {task.name()})
        .at_keyword(task, "nothing to scan")
        .related(job.input.keyword_range(geometry.record), "no line with start, step and points")
        .help("give a variable of the geometry a line 'name start step points'");
  }
}

void check_scan_line_without_task(const Job& job, Report& report) {
  const Geometry& geometry = job.systems.front().geometry;
  const std::vector<const Variable*> scanned = scanned_in(geometry);
  if (scanned.empty() || geometry.record.kind != RecordKind::Geometry || scan_task_of(job) ||
      has_own_scan(job) || !job.specification()) {
    return;
  }
  const TextRange specification = job.input.token_ranges(job.specification().value_or(0)).whole;
  report
      .add("'{}' has start, step and points of a scan, and no task scans.", {scanned.front()->name})
      .at(TextRange{range_of(job.input, scanned.front()->name).begin,
                    range_of(job.input, scanned.front()->values.back()).end},
          "a scan")
      .related(specification, "no task 'scan' here")
      .ask("add the task 'scan'", {{specification.end, specification.end}, " scan"});
}

void check_scan_step_invalid(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    for (const Variable* const variable : scanned_in(system.geometry)) {
      const Word step = variable->values[1];
      const Word points = variable->values[2];
      const double number = *core::number::parse_float(points);
      if (core::number::parse_float(step) == 0.0) {
        report.add("The step of the scan of '{}' is 0.", {variable->name})
            .at(step, "goes nowhere")
            .help("a scan is start, step and number of points");
      }
      if (number < 1 || std::floor(number) != number) {
        report.add("The scan of '{}' cannot have {} points.", {variable->name, points})
            .at(points, "a whole number from 1 on")
            .help("a scan is start, step and number of points");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"header.shebang_missing", check_shebang_missing},
    {"header.shebang_indented", check_shebang_indented},
    {"header.spec_too_many_parts", check_too_many_parts},
    {"header.task_twice", check_task_twice},
    {"header.method_needs_functional", check_method_needs_functional},
    {"header.spinadapt_closed_shell", check_spinadapt_closed_shell},
    {"header.scan_needs_internal_coordinates", check_scan_needs_internal},
    {"header.scan_without_scan_line", check_scan_without_line},
    {"header.scan_line_without_scan_task", check_scan_line_without_task},
    {"header.scan_step_invalid", check_scan_step_invalid},
});

}  // namespace

std::span<const Rule> header_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
