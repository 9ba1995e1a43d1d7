#include "departures.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "kelp/input/bdf/value_path.hpp"
#include "line_diff.hpp"
#include "reading.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::ParsedInput;
using input::bdf::PathIndex;
using input::bdf::RecordId;
using input::bdf::Severity;
using Meanings = std::vector<std::string_view>;

Meanings meanings_of(const std::vector<Piece>& pieces) {
  Meanings meanings;
  meanings.reserve(pieces.size());
  for (const Piece& piece : pieces) {
    meanings.emplace_back(piece.meaning);
  }
  return meanings;
}

bool touches(const Departure& departure, const LinePart& part) {
  return departure.part.line == part.line;
}

/// Finds what no rule foresaw: pieces that the new text has not, or has elsewhere.
class Comparison {
 public:
  Comparison(const CheckedInput& before, const Reading& old_reading, const Reading& new_reading)
      : before_(before), old_(old_reading.pieces), new_(new_reading.pieces) {}

  std::vector<Departure> run() {
    const std::vector<Change> changes = find_changes(meanings_of(old_), meanings_of(new_));
    for (const Change& change : changes) {
      for (std::size_t i = change.new_begin; i < change.new_end; ++i) {
        ++added_[new_[i].meaning];
      }
    }
    for (const Change& change : changes) {
      for (std::size_t i = change.old_begin; i < change.old_end; ++i) {
        miss(old_[i]);
      }
    }
    return std::move(departures_);
  }

 private:
  void miss(const Piece& piece) {
    const auto elsewhere = added_.find(piece.meaning);
    const bool moves = elsewhere != added_.end() && elsewhere->second > 0;
    if (moves) {
      --elsewhere->second;
    }
    const DepartureKind kind = moves ? DepartureKind::Move : DepartureKind::Loss;
    if (!departures_.empty() && departures_.back().kind == kind &&
        touches(departures_.back(), piece.part)) {
      departures_.back().part.end = piece.part.end;
    } else {
      departures_.push_back({kind, piece.part, {}, moves ? "would move" : "would be lost", {}});
    }
    Departure& departure = departures_.back();
    const std::string_view text = before_.source.text_of(departure.part);
    departure.message = moves ? fmt::format("The canonical form has '{}' at another place.", text)
                              : fmt::format("The canonical form does not carry '{}'.", text);
  }

  const CheckedInput& before_;
  const std::vector<Piece>& old_;
  const std::vector<Piece>& new_;
  std::map<std::string_view, std::size_t> added_;
  std::vector<Departure> departures_;
};

std::string_view code_of(DepartureKind kind) {
  switch (kind) {
    case DepartureKind::Move:
      return "bdf.format_move";
    case DepartureKind::Addition:
      return "bdf.format_addition";
    default:
      return "bdf.format_loss";
  }
}

Diagnostic diagnostic_of(const Departure& departure, const SourceText& source) {
  Diagnostic diagnostic;
  diagnostic.code = code_of(departure.kind);
  diagnostic.severity = Severity::Error;
  diagnostic.message = departure.message;
  diagnostic.range = source.range(departure.part);
  diagnostic.label = departure.label;
  if (!departure.help.empty()) {
    diagnostic.help.push_back(departure.help);
  }
  return diagnostic;
}

}  // namespace

std::vector<Finding> find_departures(const CheckedInput& before, const CheckedInput& after) {
  Reading reading = read_pieces(before);
  std::vector<Departure> departures = Comparison(before, reading, read_pieces(after)).run();
  departures.insert(departures.end(), std::make_move_iterator(reading.departures.begin()),
                    std::make_move_iterator(reading.departures.end()));
  std::stable_sort(departures.begin(), departures.end(), [](const auto& left, const auto& right) {
    return std::pair(left.part.line, left.part.begin) <
           std::pair(right.part.line, right.part.begin);
  });
  const ParsedInput input(std::string(before.source.text()), before.schema);
  const PathIndex paths(input.data());
  std::vector<Finding> findings;
  findings.reserve(departures.size());
  for (const Departure& departure : departures) {
    Diagnostic diagnostic = diagnostic_of(departure, before.source);
    const RecordId record = input.line(departure.part.line).record;
    // Only what stands where a record of a module begins is about that record.
    if (module_of(input.data(), record) != nullptr &&
        input.first_line(record) == departure.part.line) {
      diagnostic.record = record;
      diagnostic.path = paths.path_of(record);
    }
    findings.push_back({before.name, before.source.source(), std::move(diagnostic)});
  }
  return findings;
}

std::vector<Finding> find_added_errors(const CheckedInput& before, const CheckedInput& after) {
  const input::bdf::DiagnoseOptions options{input::bdf::UnknownNames::Ignore};
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  const ParsedInput old_input(std::string(before.source.text()), before.schema);
  diagnose(old_input, options, [&](const Diagnostic& diagnostic) {
    ++known[{diagnostic.code, diagnostic.message}];
  });
  const ParsedInput new_input(std::string(after.source.text()), after.schema);
  std::vector<Finding> findings;
  diagnose(new_input, options, [&](const Diagnostic& diagnostic) {
    std::size_t& count = known[{diagnostic.code, diagnostic.message}];
    if (diagnostic.severity != Severity::Error) {
      return;
    }
    if (count > 0) {
      --count;
    } else {
      findings.push_back({after.name, new_input.source(), diagnostic});
    }
  });
  return findings;
}

}  // namespace kelp::app
