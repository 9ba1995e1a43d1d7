// Internal coordinates: each row names atoms above it, and values that are numbers or variables.
// The first row has a label alone, the next ones add a bond, an angle and a dihedral in turn.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "schema/name_map.hpp"

namespace kelp::input::bdf {
namespace {

// The words of a row that name atoms, or those that are values; what is missing is passed over.
std::vector<Word> references_of(const std::vector<Word>& row) {
  std::vector<Word> words;
  for (std::size_t i = 1; i < row.size(); i += 2) {
    words.push_back(row[i]);
  }
  return words;
}

std::vector<Word> values_of(const std::vector<Word>& row) {
  std::vector<Word> words;
  for (std::size_t i = 2; i < row.size(); i += 2) {
    words.push_back(row[i]);
  }
  return words;
}

// Lines that are no rows are told of elsewhere; they make the others doubtful.
bool has_rows_alone(const Geometry& geometry) {
  constexpr std::size_t most = 7;
  for (std::size_t i = 0; i < geometry.rows.size(); ++i) {
    const std::vector<Word> references = references_of(geometry.rows[i]);
    const bool are_numbers = std::all_of(references.begin(), references.end(), [](Word word) {
      return core::number::parse_integer(word).has_value();
    });
    if (geometry.rows[i].size() != std::min(2 * i + 1, most) || !are_numbers) {
      return false;
    }
  }
  return true;
}

std::vector<const Geometry*> internal_geometries(const Job& job) {
  std::vector<const Geometry*> all;
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    const bool is_known = std::any_of(all.begin(), all.end(), [&](const Geometry* known) {
      return known->record == geometry.record;
    });
    if (geometry.form == GeometryForm::Internal && geometry.is_certain && !is_known &&
        has_rows_alone(geometry)) {
      all.push_back(&geometry);
    }
  }
  return all;
}

bool is_number(Word word) {
  return core::number::parse_float(word).has_value();
}

// The name of the variable that a value is, without the sign that turns it round.
Word variable_name(Word value) {
  if (!value.empty() && (value.front() == '-' || value.front() == '+')) {
    value.remove_prefix(1);
  }
  return value;
}

void check_reference_invalid(const Job& job, Report& report) {
  for (const Geometry* const geometry : internal_geometries(job)) {
    for (std::size_t i = 0; i < geometry->rows.size(); ++i) {
      for (const Word word : references_of(geometry->rows[i])) {
        const auto atom = core::number::parse_integer(word);
        if (!atom || (*atom >= 1 && *atom <= static_cast<std::int64_t>(i))) {
          continue;
        }
        const bool is_own = *atom == static_cast<std::int64_t>(i) + 1;
        Finding& finding =
            report.add("Atom {} cannot be placed by atom {}.", {std::to_string(i + 1), word})
                .at(word, is_own       ? "the atom itself"
                          : *atom <= 0 ? "atoms are counted from 1"
                                       : "not placed yet");
        finding.help(i == 0 ? "the first row has the atom alone"
                            : "name one of the atoms above, 1 to " + std::to_string(i));
      }
    }
  }
}

void check_reference_repeated(const Job& job, Report& report) {
  for (const Geometry* const geometry : internal_geometries(job)) {
    for (const std::vector<Word>& row : geometry->rows) {
      const std::vector<Word> references = references_of(row);
      for (std::size_t i = 1; i < references.size(); ++i) {
        const auto* const end = references.data() + i;
        const auto* const first = std::find(references.data(), end, references[i]);
        if (first != end) {
          report.add("A row names atom {} twice.", {references[i]})
              .at(references[i], "named before")
              .related(range_of(job.input, *first), "the first time")
              .help("the atoms of a bond, an angle and a dihedral are three different ones");
          break;
        }
      }
    }
  }
}

const Variable* find_variable(const Geometry& geometry, Word name) {
  const auto found = std::find_if(
      geometry.variables.begin(), geometry.variables.end(),
      [&](const Variable& it) { return core::text::equals_ignoring_case(it.name, name); });
  return found == geometry.variables.end() ? nullptr : &*found;
}

// The first use of each name in the rows, and whether it is defined.
NameMap<Word> names_used(const Geometry& geometry) {
  NameMap<Word> names;
  for (const std::vector<Word>& row : geometry.rows) {
    for (const Word value : values_of(row)) {
      if (!is_number(value)) {
        names.try_emplace(std::string(variable_name(value)), value);
      }
    }
  }
  return names;
}

NameMap<Word> names_defined(const Geometry& geometry) {
  NameMap<Word> names;
  for (const Variable& variable : geometry.variables) {
    names.try_emplace(std::string(variable.name), variable.name);
  }
  return names;
}

std::string listed(const Geometry& geometry) {
  constexpr std::size_t most = 8;
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < geometry.variables.size() && i < most; ++i) {
    names.push_back(geometry.variables[i].name);
  }
  return core::text::join(names, ", ") + (geometry.variables.size() > most ? " ..." : "");
}

void check_variable_undefined(const Job& job, Report& report) {
  for (const Geometry* const geometry : internal_geometries(job)) {
    const NameMap<Word> defined = names_defined(*geometry);
    for (const auto& [name, word] : names_used(*geometry)) {
      const bool is_name = !name.empty() && (name[0] < '0' || name[0] > '9') && name[0] != '.';
      if (!is_name || defined.count(name) > 0) {
        continue;
      }
      report.add("'{}' is not defined.", {variable_name(word)})
          .at(word, "no number, and no variable below")
          .help(geometry->variables.empty()
                    ? "define it below the rows, behind a blank line: name and value"
                    : "the variables below are " + listed(*geometry));
    }
  }
}

// A name and one number, or three of a scan; anything else is a line of another kind gone wrong.
bool is_definition(const Variable& variable) {
  constexpr std::size_t scanned = 3;
  return (variable.values.size() == 1 || variable.values.size() == scanned) &&
         std::all_of(variable.values.begin(), variable.values.end(), is_number);
}

void check_variable_unused(const Job& job, Report& report) {
  for (const Geometry* const geometry : internal_geometries(job)) {
    const NameMap<Word> used = names_used(*geometry);
    for (const Variable& variable : geometry->variables) {
      if (is_definition(variable) && !variable.may_be_row() &&
          used.count(std::string(variable.name)) == 0) {
        report.add("No row uses the variable '{}'.", {variable.name})
            .at(variable.name, "not used")
            .help("it may be misspelt here or in a row");
      }
    }
  }
}

void check_blank_line_missing(const Job& job, Report& report) {
  for (const Geometry* const geometry : internal_geometries(job)) {
    if (geometry->record.kind != RecordKind::Geometry || geometry->variables.empty()) {
      continue;
    }
    const Variable& first = geometry->variables.front();
    if (first.after_blank || !is_definition(first)) {
      continue;
    }
    const TextRange name = range_of(job.input, first.name);
    const SourceText& source = job.input.source();
    const std::size_t line = source.position(name.begin).line;
    const std::size_t begin = source.line_range(line).begin;
    Finding& finding =
        report.add("A blank line is missing between the rows and the variables.").at(name);
    const std::string blank(source.line_end(line - 1));
    if (first.may_be_row()) {
      finding.help("or a word of the row of an atom is missing")
          .ask("insert a blank line", {{begin, begin}, blank});
    } else {
      finding.fix("insert a blank line", {{begin, begin}, blank});
    }
  }
}

// The number that a value is, or that its variable has.
std::optional<double> number_of(const Geometry& geometry, Word value) {
  if (const auto number = core::number::parse_float(value)) {
    return number;
  }
  const Variable* const variable = find_variable(geometry, variable_name(value));
  if (variable == nullptr || !is_definition(*variable)) {
    return std::nullopt;
  }
  const auto number = core::number::parse_float(variable->values.front());
  return number && value.front() == '-' ? std::optional<double>(-*number) : number;
}

void report_impossible(const Job& job, const Geometry& geometry, Word value, bool is_bond,
                       Report& report) {
  const Variable* const variable =
      is_number(value) ? nullptr : find_variable(geometry, variable_name(value));
  const Word number = variable == nullptr ? value : variable->values.front();
  Finding& finding = report
                         .add(is_bond ? "A bond cannot have the length {}."  //
                                      : "An angle cannot be {} degrees.",
                              {number})
                         .at(number, is_bond ? "must be above 0" : "must be from 0 to 180");
  if (variable != nullptr) {
    finding.related(range_of(job.input, value), is_bond ? "the bond" : "the angle");
  }
}

void check_value_invalid(const Job& job, Report& report) {
  constexpr double straight = 180;
  for (const Geometry* const geometry : internal_geometries(job)) {
    for (const std::vector<Word>& row : geometry->rows) {
      const std::vector<Word> values = values_of(row);
      for (std::size_t i = 0; i < values.size() && i < 2; ++i) {
        const bool is_bond = i == 0;
        const auto number = number_of(*geometry, values[i]);
        if (number && (is_bond ? *number <= 0 : *number < 0 || *number > straight)) {
          report_impossible(job, *geometry, values[i], is_bond, report);
        }
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"geometry.zmatrix_reference_invalid", check_reference_invalid},
    {"geometry.zmatrix_reference_repeated", check_reference_repeated},
    {"geometry.zmatrix_variable_undefined", check_variable_undefined},
    {"geometry.zmatrix_variable_unused", check_variable_unused},
    {"geometry.zmatrix_blank_line_missing", check_blank_line_missing},
    {"geometry.zmatrix_value_invalid", check_value_invalid},
});

}  // namespace

std::span<const Rule> internal_coordinate_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
