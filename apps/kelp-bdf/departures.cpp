#include "departures.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "line_diff.hpp"
#include "line_index.hpp"
#include "make_finding.hpp"
#include "reading.hpp"

namespace kelp::app {
namespace {

using input::bdf::ValidationIssue;
using input::bdf::ValidationSeverity;
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

Finding finding_of(const Departure& departure, const CheckedInput& input, const LineIndex& lines) {
  Finding finding;
  finding.file = input.name;
  finding.code = code_of(departure.kind);
  finding.severity = ValidationSeverity::Error;
  finding.message = departure.message;
  place_finding(finding, input.source, departure.part);
  finding.label = departure.label;
  if (!departure.help.empty()) {
    finding.help.push_back(departure.help);
  }
  finding.path = lines.path(lines.place(departure.part.line));
  return finding;
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
  const LineIndex lines(before.result.data);
  std::vector<Finding> findings;
  findings.reserve(departures.size());
  for (const Departure& departure : departures) {
    findings.push_back(finding_of(departure, before, lines));
  }
  return findings;
}

std::vector<Finding> find_added_errors(const CheckedInput& before, const CheckedInput& after) {
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  for (const ValidationIssue& issue : before.schema.validate(before.result.data, {})) {
    ++known[{issue.code, issue.message}];
  }
  FindingMaker maker(after);
  std::vector<Finding> findings;
  for (const ValidationIssue& issue : after.schema.validate(after.result.data, {})) {
    if (issue.severity != ValidationSeverity::Error) {
      continue;
    }
    Finding finding = maker.make(issue);
    std::size_t& count = known[{issue.code, issue.message}];
    if (count > 0) {
      --count;
    } else {
      findings.push_back(std::move(finding));
    }
  }
  return findings;
}

}  // namespace kelp::app
