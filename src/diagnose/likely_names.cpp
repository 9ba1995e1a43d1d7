// Which unlisted names are slips. A list of functionals or of basis sets is never complete, and its
// names are so alike that nearness alone tells little. So names that are known elsewhere are no
// slips, and what differs from a listed name by one stroke is one only if it is not how the names
// of a family differ: by a plus or a star, by what stands in parentheses, by a digit or a letter
// for the size where the family has several, by a letter at either end that no finger slips to.
// What has the letters and digits of a listed name, and other marks between or around them, is that
// name: `"def2-svp"`, `cc pvdz`, `6-31g[d,p]`.

#include "diagnose/likely_names.hpp"

#include <algorithm>
#include <cstddef>

#include "kelp/core/text.hpp"
#include "knowledge/knowledge.hpp"

namespace kelp::input::bdf {
namespace {

bool contains(std::string_view letters, char byte) {
  return letters.find(byte) != std::string_view::npos;
}

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

bool is_letter_or_digit(char byte) {
  return is_digit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool is_diffuse_or_polarised(char byte) {
  return contains("+*", byte);
}

// What names tell apart by a single letter: double, triple, quadruple zeta and so on.
bool is_size(char byte) {
  return contains("sdtqp56", byte);
}

// What stands in parentheses: numbers of shells of some angular momentum.
bool is_shell(char byte) {
  return contains("spdfgh0123456789,", byte);
}

bool look_alike(char left, char right) {
  return (contains("1l", left) && contains("1l", right)) ||
         (contains("0o", left) && contains("0o", right));
}

// The bytes by which names differ that are not the same: the others only part them. The Greek
// letter of range-separated functionals is written as the letter that looks like it.
std::string without_marks(std::string_view name) {
  constexpr std::string_view omega = "\xCF\x89";
  std::string bare;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (name.substr(at).starts_with(omega)) {
      bare += 'w';
    } else if (is_letter_or_digit(name[at]) || is_diffuse_or_polarised(name[at])) {
      bare += name[at];
    }
  }
  return bare;
}

bool are_neighbours_on_keyboard(char left, char right) {
  constexpr std::string_view rows = "qwertyuiop asdfghjkl zxcvbnm 1234567890-";
  const std::size_t one = rows.find(left);
  const std::size_t other = rows.find(right);
  return left != ' ' && right != ' ' && one != std::string_view::npos &&
         other != std::string_view::npos && (one + 1 == other || other + 1 == one);
}

/// How two names differ that are alike at both ends: from `begin` on, up to `tail` bytes before the
/// end of either.
struct Difference {
  std::size_t begin = 0;
  std::size_t tail = 0;
};

Difference difference_of(std::string_view name, std::string_view listed) {
  const std::size_t shorter = std::min(name.size(), listed.size());
  Difference found;
  while (found.begin < shorter && name[found.begin] == listed[found.begin]) {
    ++found.begin;
  }
  while (found.tail < shorter - found.begin &&
         name[name.size() - found.tail - 1] == listed[listed.size() - found.tail - 1]) {
    ++found.tail;
  }
  return found;
}

class SlipCheck {
 public:
  SlipCheck(std::string_view name, const std::vector<std::string>& all) : name_(name), all_(all) {}

  bool is_slip_of(std::string_view listed) const {
    constexpr std::size_t shortest = 2;
    const std::size_t shorter = std::min(name_.size(), listed.size());
    const std::size_t longer = std::max(name_.size(), listed.size());
    if (shorter < shortest || longer - shorter > 1) {
      return false;
    }
    const Difference at = difference_of(name_, listed);
    const std::size_t differs = longer - at.begin - at.tail;
    if (differs == 2) {
      return name_.size() == listed.size() && name_[at.begin] == listed[at.begin + 1] &&
             name_[at.begin + 1] == listed[at.begin];
    }
    if (differs != 1) {
      return false;
    }
    if (name_.size() == listed.size()) {
      return is_replaced(listed, at);
    }
    return name_.size() > listed.size() ? is_inserted(listed, at) : is_left_out(listed, at);
  }

 private:
  // Two or three letters are a name for many things, `lda` for one.
  static bool is_short(std::string_view name) { return name.size() < 4; }

  static bool is_in_parentheses(std::string_view name, std::size_t at) {
    const std::size_t open = name.find('(');
    return open != std::string_view::npos && at > open && at <= name.rfind(')');
  }

  static bool is_at_end(const Difference& at) { return at.begin == 0 || at.tail == 0; }

  bool is_replaced(std::string_view listed, const Difference& at) const {
    const char written = name_[at.begin];
    const char wanted = listed[at.begin];
    if (look_alike(written, wanted) && name_.size() > 2) {
      return true;
    }
    if (is_in_parentheses(listed, at.begin)) {
      return !is_shell(written);
    }
    if (is_short(listed) || is_diffuse_or_polarised(written) || is_diffuse_or_polarised(wanted)) {
      return false;
    }
    const bool is_near = are_neighbours_on_keyboard(written, wanted);
    if (is_digit(written) || is_digit(wanted)) {
      return is_near && at.tail > 0 && members_of_family(listed, at.begin) == 1;
    }
    if (is_at_end(at) && !is_near) {
      return false;
    }
    // Of a family that has the usual sizes, another one is no member.
    constexpr std::size_t usual_sizes = 3;
    return !is_size(written) || !is_size(wanted) ||
           members_of_family(listed, at.begin) >= usual_sizes;
  }

  bool is_inserted(std::string_view listed, const Difference& at) const {
    const char surplus = name_[at.begin];
    const auto stands_beside = [&](auto matches) {
      return (at.begin > 0 && matches(name_[at.begin - 1])) ||
             (at.begin + 1 < name_.size() && matches(name_[at.begin + 1]));
    };
    const bool is_doubled = stands_beside([&](char beside) { return beside == surplus; });
    if (is_diffuse_or_polarised(surplus)) {
      return false;
    }
    if (is_in_parentheses(listed, at.begin)) {
      return !is_shell(surplus) || (is_doubled && !is_digit(surplus));
    }
    if (is_doubled || is_short(listed)) {
      return is_doubled && listed.size() > 2;
    }
    const bool is_near =
        stands_beside([&](char beside) { return are_neighbours_on_keyboard(beside, surplus); });
    return is_digit(surplus) ? is_near && at.tail > 0 : is_near || !is_at_end(at);
  }

  static bool is_left_out(std::string_view listed, const Difference& at) {
    const char missing = listed[at.begin];
    if (is_in_parentheses(listed, at.begin) && is_shell(missing)) {
      // A part that is empty now is none: `6-31g(,p)`.
      return missing == ',' ||
             (contains("(,", listed[at.begin - 1]) && contains(",)", listed[at.begin + 1]));
    }
    return !is_diffuse_or_polarised(missing) && !is_short(listed);
  }

  // How many listed names differ from this one by what stands at some position, itself included.
  std::size_t members_of_family(std::string_view listed, std::size_t position) const {
    return static_cast<std::size_t>(
        std::count_if(all_.begin(), all_.end(), [&](const std::string& other) {
          const std::string lower = core::text::to_lower(other);
          const std::string_view view = lower;
          return view.size() == listed.size() &&
                 view.substr(0, position) == listed.substr(0, position) &&
                 view.substr(position + 1) == listed.substr(position + 1);
        }));
  }

  std::string_view name_;
  const std::vector<std::string>& all_;
};

bool is_among(std::string_view name, const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(), [&](const std::string& other) {
    return core::text::equals_ignoring_case(other, name);
  });
}

std::string without_hyphens(std::string name) {
  name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
  return name;
}

// The listed names that differ from a name in lower case by other marks only. Of those that are
// one name, with hyphens and without, the one with them.
std::vector<std::string> names_with_other_marks(std::string_view name,
                                                const std::vector<std::string>& listed) {
  const std::string bare = without_marks(name);
  std::vector<std::string> names;
  for (const std::string& candidate : listed) {
    if (bare.empty() || without_marks(core::text::to_lower(candidate)) != bare) {
      continue;
    }
    const auto same = std::find_if(names.begin(), names.end(), [&](const std::string& other) {
      return without_hyphens(other) == without_hyphens(candidate);
    });
    if (same == names.end()) {
      names.push_back(candidate);
    } else if (same->size() < candidate.size()) {
      *same = candidate;
    }
  }
  return names;
}

std::vector<std::string> likely_names(std::string_view name,
                                      const std::vector<std::string>& listed) {
  constexpr std::size_t most = 3;
  const std::string written = core::text::to_lower(name);
  std::vector<std::string> likely = names_with_other_marks(written, listed);
  if (!likely.empty()) {
    return likely;
  }
  const SlipCheck check(written, listed);
  for (const std::string& candidate : listed) {
    if (likely.size() < most && check.is_slip_of(core::text::to_lower(candidate))) {
      likely.push_back(candidate);
    }
  }
  return likely;
}

bool is_file_beside(std::string_view name, const DiagnoseOptions& options) {
  return options.folder && options.folder->has_file(name);
}

// What other programs write with a functional: `ub3lyp`, `b3lyp-d3`. Here the reference is a
// method, the dispersion a keyword.
std::string_view undecorated(std::string_view name, const std::vector<std::string>& listed) {
  for (const std::string_view prefix : {"ro", "r", "u"}) {
    if (name.starts_with(prefix) && is_among(name.substr(prefix.size()), listed)) {
      return name.substr(prefix.size());
    }
  }
  for (const std::string_view suffix : {"-d", "-d2", "-d3", "-d3bj", "-d3(bj)", "-d4"}) {
    if (name.ends_with(suffix) && is_among(name.substr(0, name.size() - suffix.size()), listed)) {
      return name.substr(0, name.size() - suffix.size());
    }
  }
  return {};
}

}  // namespace

// Where a method may stand, a functional may, too.
std::vector<std::string> likely_methods(std::string_view name, DiagnoseContext& context) {
  const std::vector<std::string>& listed = context.names().methods();
  if (is_among(name, listed) || is_among(name, default_knowledge().functionals_elsewhere())) {
    return {};
  }
  return likely_names(name, listed);
}

bool is_near_to_methods_alone(std::string_view name, DiagnoseContext& context) {
  return !is_among(name, default_knowledge().functionals_elsewhere()) &&
         similar_names(name, context.names().functionals()).empty() &&
         !similar_names(name, context.names().methods()).empty();
}

bool is_method_elsewhere(std::string_view name) {
  return is_among(name, default_knowledge().methods_elsewhere());
}

bool can_be_functional(std::string_view name) {
  return std::all_of(name.begin(), name.end(), [](char byte) {
    return is_letter_or_digit(byte) || contains("+-_*().", byte);
  });
}

bool can_be_basis_set(std::string_view name) {
  constexpr std::string_view marks = "\"'`[]{}<>;:!=";
  return name.find_first_of(marks) == std::string_view::npos && !name.starts_with(',') &&
         !name.ends_with(',');
}

std::vector<std::string> likely_functionals(std::string_view name, DiagnoseContext& context) {
  const std::vector<std::string>& listed = context.names().functionals();
  if (is_among(name, listed) || is_among(name, default_knowledge().functionals_elsewhere())) {
    return {};
  }
  const std::string lower = core::text::to_lower(name);
  if (const std::string_view base = undecorated(lower, listed); !base.empty()) {
    return {std::string(base)};
  }
  return likely_names(name, listed);
}

std::vector<std::string> likely_basis_sets(std::string_view name, DiagnoseContext& context,
                                           const DiagnoseOptions& options) {
  const std::vector<std::string>& listed = context.names().basis_sets();
  if (is_among(name, listed) || is_among(name, default_knowledge().basis_sets_elsewhere()) ||
      is_file_beside(name, options)) {
    return {};
  }
  return likely_names(name, listed);
}

std::vector<std::string> basis_sets_with_other_marks(std::string_view name,
                                                     DiagnoseContext& context,
                                                     const DiagnoseOptions& options) {
  if (context.input.schema().is_known_basis(name) || is_file_beside(name, options)) {
    return {};
  }
  return names_with_other_marks(core::text::to_lower(name), context.names().basis_sets());
}

}  // namespace kelp::input::bdf
