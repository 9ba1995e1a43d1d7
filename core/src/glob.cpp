// All ways to read the pattern are followed at once: what is kept is the set of its pieces that may
// stand for the rest of the path. So the time is that of pattern times path, whatever they hold.

#include "kelp/core/glob.hpp"

#include <cstddef>
#include <vector>

#include "kelp/core/unicode.hpp"

namespace kelp::core::glob {
namespace {

enum class Kind { Character, AnyCharacter, OneOf, NoneOf, Characters, Folders, Anything };

struct Piece {
  Kind kind = Kind::Character;
  std::string_view text;  // the character, or what stands between the brackets
};

std::string_view first_character(std::string_view text) {
  return text.substr(0, unicode::character_length(text));
}

Piece bracket(std::string_view pattern) {
  const bool is_negated = pattern.size() > 1 && (pattern[1] == '!' || pattern[1] == '^');
  const std::size_t begin = is_negated ? 2 : 1;
  // A bracket that comes first is one of the characters.
  const std::size_t end = pattern.find(']', begin + 1);
  if (end == std::string_view::npos) {
    return {Kind::Character, pattern.substr(0, 1)};
  }
  return {is_negated ? Kind::NoneOf : Kind::OneOf, pattern.substr(begin, end - begin)};
}

Piece stars(std::string_view pattern) {
  if (!pattern.starts_with("**")) {
    return {Kind::Characters, pattern.substr(0, 1)};
  }
  return pattern.starts_with("**/") ? Piece{Kind::Folders, pattern.substr(0, 3)}
                                    : Piece{Kind::Anything, pattern.substr(0, 2)};
}

// Cuts the first piece off.
Piece take_piece(std::string_view& pattern) {
  Piece piece;
  switch (pattern.front()) {
    case '*':
      piece = stars(pattern);
      break;
    case '?':
      piece = {Kind::AnyCharacter, pattern.substr(0, 1)};
      break;
    case '[':
      piece = bracket(pattern);
      break;
    default:
      piece = {Kind::Character, first_character(pattern)};
      break;
  }
  const char* const end = piece.text.data() + piece.text.size();
  const bool has_end = piece.kind == Kind::OneOf || piece.kind == Kind::NoneOf;
  pattern.remove_prefix(static_cast<std::size_t>(end - pattern.data()) + (has_end ? 1 : 0));
  return piece;
}

// UTF-8 keeps the order of code points.
bool is_one_of(std::string_view list, std::string_view character) {
  while (!list.empty()) {
    const std::string_view from = first_character(list);
    list.remove_prefix(from.size());
    if (list.size() > 1 && list.front() == '-') {
      const std::string_view to = first_character(list.substr(1));
      list.remove_prefix(1 + to.size());
      if (from <= character && character <= to) {
        return true;
      }
    } else if (from == character) {
      return true;
    }
  }
  return false;
}

bool takes(const Piece& piece, std::string_view character) {
  const bool is_slash = character == "/";
  switch (piece.kind) {
    case Kind::Character:
      return piece.text == character;
    case Kind::OneOf:
      return !is_slash && is_one_of(piece.text, character);
    case Kind::NoneOf:
      return !is_slash && !is_one_of(piece.text, character);
    case Kind::AnyCharacter:
    case Kind::Characters:
      return !is_slash;
    case Kind::Folders:
    case Kind::Anything:
      return true;
  }
  return false;
}

bool may_be_nothing(Kind kind) {
  return kind == Kind::Characters || kind == Kind::Folders || kind == Kind::Anything;
}

using Reached = std::vector<bool>;  // which pieces may stand for what comes next; last, none

void skip_what_may_be_nothing(const std::vector<Piece>& pieces, Reached& reached) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    // In the middle of a folder's name the slash is still to come.
    if (reached[i] && may_be_nothing(pieces[i].kind) && pieces[i].kind != Kind::Folders) {
      reached[i + 1] = true;
    }
  }
}

// Names of folders end at a slash, and there may be none.
void begin_names(const std::vector<Piece>& pieces, Reached& reached) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (reached[i] && may_be_nothing(pieces[i].kind)) {
      reached[i + 1] = true;
    }
  }
}

Reached step(const std::vector<Piece>& pieces, const Reached& reached, std::string_view character) {
  Reached next(reached.size(), false);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!reached[i] || !takes(pieces[i], character)) {
      continue;
    }
    next[may_be_nothing(pieces[i].kind) ? i : i + 1] = true;
  }
  return next;
}

}  // namespace

bool matches(std::string_view pattern, std::string_view path) {
  std::vector<Piece> pieces;
  while (!pattern.empty()) {
    pieces.push_back(take_piece(pattern));
  }
  Reached reached(pieces.size() + 1, false);
  reached.front() = true;
  begin_names(pieces, reached);
  while (!path.empty()) {
    const std::string_view character = first_character(path);
    reached = step(pieces, reached, character);
    if (character == "/") {
      begin_names(pieces, reached);
    } else {
      skip_what_may_be_nothing(pieces, reached);
    }
    path.remove_prefix(character.size());
  }
  return reached.back();
}

}  // namespace kelp::core::glob
