// The document knows where its records begin; what the lines between them are follows from how many
// lines a record holds.

#include "line_roles.hpp"

#include <algorithm>
#include <limits>

#include "kelp/core/text.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::AtomRecord;
using input::bdf::BDFData;
using input::bdf::EasyToken;
using input::bdf::EntryValueKind;
using input::bdf::InputMode;
using input::bdf::Module;
using input::bdf::ModuleEntry;

bool is_block(const ModuleEntry& entry) {
  return entry.kind == EntryValueKind::NestedBlock || entry.kind == EntryValueKind::TerminatedBlock;
}

bool has_end_line(const ModuleEntry& entry) {
  return is_block(entry) && entry.terminated && !entry.terminator.empty();
}

// Returns the line behind the values or children of an entry.
std::size_t line_behind_content(const ModuleEntry& entry) {
  if (entry.children.empty()) {
    return line_of(entry) + 1 + entry.values.size();
  }
  const ModuleEntry& last = entry.children.back();
  return line_behind_content(last) + (has_end_line(last) ? 1 : 0);
}

class Roles {
 public:
  explicit Roles(const CheckedInput& input)
      : input_(input), data_(input.result.data), uses_(input.source.line_count() + 1) {}

  std::vector<LineUse> run() {
    if (data_.mode != InputMode::Module) {
      assign_preamble();
      assign_geometry();
    }
    for (const Module& module : data_.modules) {
      LineUse& header = use(line_of(module), LineRole::ModuleHeader);
      header.module = &module;
      assign_entries(module.entries);
    }
    return std::move(uses_);
  }

 private:
  // A line beyond the text takes a use that nobody reads.
  LineUse& use(std::size_t line, LineRole role) {
    LineUse& found = uses_[line < uses_.size() ? line : 0];
    found.role = role;
    return found;
  }

  bool is_blank(std::size_t line) const {
    return core::text::trim_view(input_.source.line(line)).empty();
  }

  // Returns 0 if there is no script line: the first line that is no comment is another.
  std::size_t script_line() const {
    for (std::size_t line = 1; line < uses_.size(); ++line) {
      const std::string_view text = core::text::trim_view(input_.source.line(line));
      if (text.starts_with("#!")) {
        return line;
      }
      if (!text.empty() && text.front() != '#' && text.front() != '*') {
        break;
      }
    }
    return 0;
  }

  std::size_t preamble_end() const {
    std::size_t end = uses_.size();
    if (data_.geometry_location) {
      end = std::min(end, line_of(data_.geometry_location));
    }
    if (!data_.statements.empty() && data_.statements.front().location) {
      end = std::min(end, line_of(data_.statements.front()));
    }
    return end;
  }

  // Comments are written between the script line and the header.
  void assign_preamble() {
    const std::size_t script = script_line();
    const std::size_t end = preamble_end();
    std::size_t first_header = std::numeric_limits<std::size_t>::max();
    for (const EasyToken& token : data_.easy_tokens) {
      use(line_of(token), LineRole::Header);
      first_header = std::min(first_header, line_of(token));
    }
    for (std::size_t line = 1; line < end; ++line) {
      if (line == script) {
        use(line, LineRole::ScriptLine);
      } else if (!is_blank(line) && uses_[line].role != LineRole::Header) {
        use(line, LineRole::LeadingComment).moves = line < script || line > first_header;
      }
    }
  }

  // Atoms are written before all other lines of the geometry.
  void assign_geometry() {
    if (!data_.geometry_location) {
      return;
    }
    const auto start = line_of(data_.geometry_location);
    const std::size_t last = last_geometry_line(input_);
    use(start, LineRole::GeometryStart);
    for (std::size_t line = start + 1; line <= last; ++line) {
      use(line, LineRole::GeometryLine).moves =
          !data_.atoms.empty() && line < line_of(data_.atoms.back());
    }
    for (const AtomRecord& atom : data_.atoms) {
      use(line_of(atom), LineRole::Atom).atom = &atom;
    }
    if (data_.geometry_terminated) {
      use(last, LineRole::GeometryEnd);
    }
  }

  void assign_entries(const std::vector<ModuleEntry>& entries) {
    for (const ModuleEntry& entry : entries) {
      if (!entry.known || entry.kind == EntryValueKind::Raw) {
        continue;
      }
      use(line_of(entry), LineRole::Keyword).entry = &entry;
      assign_entries(entry.children);
      if (has_end_line(entry)) {
        use(line_behind_content(entry), LineRole::BlockEnd);
      }
    }
  }

  const CheckedInput& input_;
  const BDFData& data_;
  std::vector<LineUse> uses_;
};

}  // namespace

std::vector<LineUse> line_uses(const CheckedInput& input) {
  return Roles(input).run();
}

std::size_t last_geometry_line(const CheckedInput& input) {
  const BDFData& data = input.result.data;
  return line_of(data.geometry_location) + data.atoms.size() + data.geometry_lines.size() +
         (data.geometry_terminated ? 1 : 0);
}

}  // namespace kelp::app
