#include "floors.hpp"

#include <charconv>
#include <cstring>
#include <optional>

namespace kelp::bench {
namespace {

template <typename Take>
void for_each_line(std::string_view text, Take take) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const void* const found = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
    const char* const stop = found == nullptr ? end : static_cast<const char*>(found);
    take(std::string_view(at, static_cast<std::size_t>(stop - at)));
    at = stop == end ? end : stop + 1;
  }
}

const char* skip(const char* at, const char* end, bool blanks) {
  while (at != end && (*at == ' ') == blanks) {
    ++at;
  }
  return at;
}

std::optional<StoredAtom> read_atom(std::string_view line) {
  const char* const end = line.data() + line.size();
  const char* const begin = skip(line.data(), end, true);
  const char* at = skip(begin, end, false);
  StoredAtom atom = {{begin, at}, {}};
  for (double& coordinate : atom.position) {
    const auto read = std::from_chars(skip(at, end, true), end, coordinate);
    if (read.ec != std::errc()) {
      return std::nullopt;
    }
    at = read.ptr;
  }
  return atom;
}

}  // namespace

std::vector<std::string> cut_lines(std::string_view text) {
  std::vector<std::string> lines;
  for_each_line(text, [&](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

StoredAtoms cut_atoms(std::string_view text) {
  StoredAtoms stored;
  for_each_line(text, [&](std::string_view line) {
    stored.lines.emplace_back(line);
    if (auto atom = read_atom(line)) {
      stored.atoms.push_back(*std::move(atom));
    }
  });
  return stored;
}

std::string copy_lines(std::string_view text) {
  std::string copy;
  copy.reserve(text.size());
  for_each_line(text, [&](std::string_view line) {
    copy += line;
    copy += '\n';
  });
  return copy;
}

std::string write_coordinates(const std::vector<input::bdf::AtomRecord>& atoms) {
  constexpr std::size_t room = 64;
  constexpr int decimals = 10;
  std::string text(atoms.size() * room, ' ');
  char* at = text.data();
  char* const end = at + text.size();
  for (const input::bdf::AtomRecord& atom : atoms) {
    for (const double coordinate : {atom.x, atom.y, atom.z}) {
      at = std::to_chars(at, end, coordinate, std::chars_format::fixed, decimals).ptr;
    }
  }
  text.resize(static_cast<std::size_t>(at - text.data()));
  return text;
}

}  // namespace kelp::bench
