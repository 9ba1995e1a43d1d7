// Atoms that keep their location are the same atoms; atoms without any take the lines of the old
// ones in their order. A geometry that is more than atoms and comments (internal coordinates, a
// scan, a file's name) makes way as a whole, since none of its lines means anything alone.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "rewrite/document_patch.hpp"
#include "rewrite/value_patch.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

bool same_atom(const AtomRecord& left, const AtomRecord& right) {
  return left.element == right.element && left.x == right.x && left.y == right.y &&
         left.z == right.z;
}

class GeometryPatch {
 public:
  GeometryPatch(const ParsedInput& input, const BDFData& edited, TextPatch& patch)
      : input_(input), old_(input.data()), new_(edited), patch_(patch) {}

  void run() {
    const RecordId block = RecordId::of(RecordKind::Geometry, 0);
    if (!old_.geometry_location) {
      if (new_.has_geometry) {
        insert_block();
      }
    } else if (!new_.has_geometry) {
      patch_.remove_lines(input_.first_line(block), input_.last_line(block));
    } else {
      patch_other_lines();
      patch_atoms();
    }
  }

 private:
  void insert_block() {
    const std::size_t behind = last_line_of_easy_section(input_);
    std::vector<std::string> lines;
    if (behind > 0) {
      lines.emplace_back();
    }
    lines.emplace_back("Geometry");
    for (const AtomRecord& atom : new_.atoms) {
      lines.push_back(atom_line(atom, "  "));
    }
    lines.insert(lines.end(), new_.geometry_lines.begin(), new_.geometry_lines.end());
    lines.emplace_back("End Geometry");
    patch_.insert_lines(behind, lines);
  }

  static bool is_comment(std::string_view line) {
    return core::text::trim_view(line).starts_with('#');
  }

  std::size_t line_of_other(std::size_t index) const {
    return input_.first_line(RecordId::of(RecordKind::GeometryLine, index));
  }

  void patch_other_lines() {
    const std::vector<std::string>& before = old_.geometry_lines;
    const std::vector<std::string>& after = new_.geometry_lines;
    // Each line that stays is found behind the one before it; what is not is taken out or added.
    std::size_t at = 0;
    std::vector<std::string> added;
    for (const std::string& line : after) {
      const auto found =
          std::find(before.begin() + static_cast<std::ptrdiff_t>(at), before.end(), line);
      if (found == before.end()) {
        added.push_back(line);
        continue;
      }
      const auto match = static_cast<std::size_t>(found - before.begin());
      remove_others(at, match);
      at = match + 1;
    }
    remove_others(at, before.size());
    patch_.insert_lines(last_content_line(), added);
  }

  void remove_others(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      remove_line(line_of_other(i));
    }
  }

  std::size_t last_content_line() const {
    const RecordId block = RecordId::of(RecordKind::Geometry, 0);
    return input_.last_line(block) - (input_.end_line(block) > 0 ? 1 : 0);
  }

  bool is_replaced_as_a_whole() const {
    const auto tells = [](const std::string& line) {
      return !core::text::trim_view(line).empty() && !is_comment(line);
    };
    const auto has_location = [](const AtomRecord& atom) { return atom.location.has_value(); };
    return std::any_of(old_.geometry_lines.begin(), old_.geometry_lines.end(), tells) &&
           std::none_of(new_.atoms.begin(), new_.atoms.end(), has_location) &&
           std::none_of(new_.geometry_lines.begin(), new_.geometry_lines.end(), tells);
  }

  // Atoms stand in the order of their lines.
  std::size_t atom_at(const AtomRecord& atom) const {
    const std::size_t line = atom.location ? static_cast<std::size_t>(atom.location->line) : 0;
    const LineInfo info = input_.line(line);
    return info.role == LineRole::Atom ? info.record.index : none;
  }

  void patch_atoms() {
    const bool whole = is_replaced_as_a_whole();
    const bool located = std::any_of(new_.atoms.begin(), new_.atoms.end(),
                                     [&](const AtomRecord& atom) { return atom_at(atom) != none; });
    std::vector<std::string> added;
    std::size_t behind =
        whole ? last_content_line() : input_.first_line(RecordId::of(RecordKind::Geometry, 0));
    std::size_t next = 0;
    for (std::size_t i = 0; i < new_.atoms.size(); ++i) {
      const AtomRecord& atom = new_.atoms[i];
      const std::size_t match = located ? atom_at(atom) : i;
      if (whole || match == none || match < next || match >= old_.atoms.size()) {
        added.push_back(atom_line(atom, indentation()));
        continue;
      }
      flush(behind, added);
      remove_atoms(next, match);
      behind = line_of_atom(match);
      next = match + 1;
      if (!same_atom(atom, old_.atoms[match])) {
        const TextRange line = input_.source().line_range(behind);
        const TextRange comment = input_.comment_range(behind);
        patch_atom(input_, input_.source().trimmed({line.begin, comment.begin}), atom, patch_);
      }
    }
    flush(behind, added);
    remove_atoms(next, old_.atoms.size());
  }

  void flush(std::size_t behind, std::vector<std::string>& lines) {
    patch_.insert_lines(behind, lines);
    lines.clear();
  }

  void remove_atoms(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      remove_line(line_of_atom(i));
    }
  }

  void remove_line(std::size_t line) {
    patch_.lose(input_.comment_range(line));
    patch_.remove_lines(line, line);
  }

  std::size_t line_of_atom(std::size_t index) const {
    return input_.first_line(RecordId::of(RecordKind::Atom, index));
  }

  std::string_view indentation() const {
    if (old_.atoms.empty()) {
      return "  ";
    }
    const std::size_t line = line_of_atom(old_.atoms.size() - 1);
    return input_.source().text_of(
        {input_.source().line_range(line).begin, input_.source().content(line).begin});
  }

  const ParsedInput& input_;
  const BDFData& old_;
  const BDFData& new_;
  TextPatch& patch_;
};

}  // namespace

void patch_geometry(const ParsedInput& input, const BDFData& edited, TextPatch& patch) {
  GeometryPatch(input, edited, patch).run();
}

}  // namespace kelp::input::bdf
