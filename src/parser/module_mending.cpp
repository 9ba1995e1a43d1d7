// Before the lines of a module are read, they are looked over once up to the border behind them.
// Only what is missing is looked for: where the right end is there, no other line is taken for it.
// So each block is known to be closed, or to be closed by a misspelt line, or to have no end; a
// block that has none is left before the next keyword of its module.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "parser/border_words.hpp"
#include "parser/keywords.hpp"
#include "parser/mending.hpp"
#include "schema/lookup.hpp"
#include "source/atom_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view module_end = "$end";

bool is_end_behind_wide_dollar(std::string_view line) {
  const auto word = behind_wide_dollar(line);
  return word && core::text::equals_ignoring_case(*word, module_end.substr(1));
}

bool is_known_header(std::string_view line, const InputSchema& schema) {
  return is_module_header(line) &&
         schema.is_known_module(core::text::trim_view(core::text::trim_view(line).substr(1)));
}

/// Looks over the lines of one module.
class ModuleScan {
 public:
  ModuleScan(LineReader& reader, const ModuleSpec* spec, const InputSchema& schema)
      : reader_(reader), spec_(spec), schema_(schema) {}

  void run() {
    find_border();
    for (std::size_t at = 0; at < border_;) {
      at = look_at(at);
    }
    mend_end();
    std::sort(found_.begin(), found_.end(),
              [](const Found& one, const Found& other) { return one.distance < other.distance; });
    for (const Found& found : found_) {
      reader_.amend(found.distance, found.fault, found.text);
    }
  }

 private:
  using Blocks = KeywordIndex<EntrySpec>::Blocks;
  enum class Border { End, NearEnd, WideEnd, Other };

  struct Found {
    std::size_t distance;
    BorderFault fault;
    std::string text;
  };

  // A module rarely has one block without its end; looking for the ends of any number of them would
  // take the square of their number.
  static constexpr std::size_t most_searches = 32;

  // `End Setting` ends what stands around modules.
  bool stands_between_modules(std::string_view text) const {
    const bool ends_something = is_same_line(first_word(text), "end") && !is_one_word(text);
    return is_shell_line(text) || is_database_start(text) || (ends_something && !ends_block(text));
  }

  bool ends_block_behind_dollar(std::string_view text) const {
    return is_module_border(text) && is_near_module_end(text) &&
           std::any_of(blocks().begin(), blocks().end(), [&](const auto& block) {
             return is_terminator_behind_dollar(text, block.second->terminator);
           });
  }

  bool ends_block(std::string_view text) const {
    return std::any_of(blocks().begin(), blocks().end(), [&](const auto& block) {
      return is_same_line(text, block.second->terminator);
    });
  }

  std::string_view line(std::size_t distance) const { return reader_.line_ahead(distance); }

  void find_border() {
    for (; border_ < reader_.lines_left(); ++border_) {
      const std::string_view text = line(border_);
      const char first = first_byte(text);
      if (first != '$' && first != first_of_wide_dollar) {
        continue;
      }
      if (is_module_end(text)) {
        kind_ = Border::End;
        return;
      }
      if (is_end_behind_wide_dollar(text)) {
        kind_ = Border::WideEnd;
        return;
      }
      if (ends_block_behind_dollar(text)) {
        continue;
      }
      if (is_module_border(text) || is_header_behind_wide_dollar(text, schema_)) {
        const bool is_near = is_near_module_end(text) && !is_known_header(text, schema_);
        kind_ = is_near && !is_module_with_end(border_) ? Border::NearEnd : Border::Other;
        return;
      }
    }
  }

  // Whether a header that is none we know is followed by an end of its own, and not at once by a
  // header that lacks its dollar.
  bool is_module_with_end(std::size_t header) const {
    const std::string_view next = line(reader_.next_telling(header + 1));
    if (is_one_word(next) && schema_.is_known_module(core::text::trim_view(next))) {
      return false;
    }
    for (std::size_t at = header + 1; at < reader_.lines_left(); ++at) {
      if (is_module_border(line(at))) {
        return is_module_end(line(at));
      }
    }
    return false;
  }

  // Looks at a line that stands in no block; returns where to go on.
  std::size_t look_at(std::size_t at) {
    const std::string_view text = line(at);
    if (says_nothing(text)) {
      return at + 1;
    }
    // What stands between modules stands behind the end that is missing.
    if (kind_ == Border::Other && stands_between_modules(text)) {
      if (!end_) {
        reader_.break_before(at);
      }
      return border_;
    }
    const auto known = find_known_entry(spec_, first_word(text));
    if (known.entry != nullptr) {
      end_.reset();
      if (const std::size_t next = look_at_title(at, known); next != at) {
        return next;
      }
      return known.entry->terminator.empty() ? at + 1 : look_at_block(at, *known.entry);
    }
    if (const std::size_t next = look_for_opening(at); next != at) {
      end_.reset();
      return next;
    }
    if (kind_ != Border::Other) {
      return at + 1;
    }
    if (is_end_without_dollar(text)) {
      end_ = at;
      is_end_certain_ = true;
    } else if (is_near_end_without_dollar(text)) {
      end_ = at;
      is_end_certain_ = false;
    } else if (!is_end_certain_) {
      end_.reset();
    }
    return at + 1;
  }

  // Of a title that looks like a keyword's line, nothing is to be looked for.
  std::size_t look_at_title(std::size_t at, const KnownName<EntrySpec>& keyword) const {
    if (!takes_title(keyword.described)) {
      return at;
    }
    std::string_view rest = line(at);
    core::text::take_word(rest);
    if (!is_blank(rest)) {
      return at;
    }
    const std::size_t title = reader_.next_telling(at + 1);
    const std::string_view next = line(reader_.next_telling(title + 1));
    return Keywords(spec_).is_title(*keyword.canonical, line(title), next) ? title + 1 : at;
  }

  std::size_t find_terminator(std::size_t from, const EntrySpec& block) const {
    std::size_t at = from;
    while (at < border_ && !is_same_line(line(at), block.terminator)) {
      ++at;
    }
    return at;
  }

  std::size_t look_at_block(std::size_t opening, const EntrySpec& block) {
    const std::size_t end = find_terminator(opening + 1, block);
    if (end < border_) {
      return end + 1;
    }
    if (++searches_ > most_searches) {
      return border_;
    }
    for (std::size_t at = opening + 1; at < border_; ++at) {
      const std::string_view text = line(at);
      if (says_nothing(text) || find_child_spec(&block, first_word(text)) != nullptr ||
          read_atom_line(text).is_atom()) {
        continue;
      }
      // A second opening is a line of the block, as it is of one that has its end.
      const EntrySpec* const other = find_entry_spec(spec_, first_word(text));
      if (other != nullptr && other->terminator != block.terminator) {
        reader_.break_before(at);
        return at;
      }
      if (is_near_terminator(text, block.terminator, block.name)) {
        found_.push_back({at, BorderFault::MisspeltTerminator, block.terminator});
        return at + 1;
      }
    }
    return border_;
  }

  // A word that is nearly that of a block opens it when the block's end follows, misspelt or not,
  // and no other line opens the block before that. Returns where to go on, `at` for any other line.
  std::size_t look_for_opening(std::size_t at) {
    const EntrySpec* const block = near_block(line(at));
    if (block == nullptr || ++searches_ > most_searches) {
      return at;
    }
    std::optional<std::size_t> near;
    for (std::size_t next = at + 1; next < border_; ++next) {
      const std::string_view text = line(next);
      if (is_same_line(text, block->terminator)) {
        add_opening(at, *block);
        return next + 1;
      }
      const EntrySpec* const other = find_entry_spec(spec_, first_word(text));
      if (other != nullptr && other->terminator == block->terminator) {
        return at;
      }
      // `end` alone may be meant for the module as well.
      if (!near && !is_end_without_dollar(text) && !says_nothing(text) &&
          !read_atom_line(text).is_atom() &&
          is_near_terminator(text, block->terminator, block->name)) {
        near = next;
      }
    }
    if (!near) {
      return at;
    }
    add_opening(at, *block);
    found_.push_back({*near, BorderFault::MisspeltTerminator, block->terminator});
    return *near + 1;
  }

  void add_opening(std::size_t at, const EntrySpec& block) {
    const bool is_geometry = block.name == geometry_entry;
    found_.push_back(
        {at, is_geometry ? BorderFault::MisspeltGeometry : BorderFault::MisspeltBlock, block.name});
  }

  // Of two entries that are as near, neither is certain.
  const EntrySpec* near_block(std::string_view text) const {
    constexpr std::size_t least_letters = 4;
    const std::string_view word = core::text::trim_view(text);
    if (spec_ == nullptr || word.size() < least_letters || !is_one_word(word)) {
      return nullptr;
    }
    for (const auto& [name, block] : blocks()) {
      const auto slips = core::spelling::slips_if_near(word, name);
      if (slips && !is_nearer_to_another(word, *slips, *block)) {
        return block;
      }
    }
    return nullptr;
  }

  bool is_nearer_to_another(std::string_view word, std::size_t slips,
                            const EntrySpec& block) const {
    return std::any_of(spec_->entry_aliases.begin(), spec_->entry_aliases.end(),
                       [&](const auto& name) {
                         const auto others = core::spelling::slips_if_near(word, name.first);
                         return others && *others <= slips && name.second != block.name;
                       });
  }

  // By all their names. Of a module that nothing is known of there are none.
  const Blocks& blocks() const {
    static const Blocks none;
    return spec_ == nullptr ? none : spec_->index.blocks();
  }

  void mend_end() {
    switch (kind_) {
      case Border::End:
        return;
      case Border::NearEnd:
        return found_.push_back({border_, BorderFault::MisspeltEnd, std::string(module_end)});
      case Border::WideEnd:
        return found_.push_back({border_, BorderFault::WideDollar, std::string(module_end)});
      case Border::Other:
        if (end_) {
          found_.push_back({*end_, BorderFault::MisspeltEnd, std::string(module_end)});
        }
        return;
    }
  }

  LineReader& reader_;
  const ModuleSpec* spec_;
  const InputSchema& schema_;
  std::size_t border_ = 0;  ///< distance of the line behind the module's, or of its end
  Border kind_ = Border::Other;
  std::optional<std::size_t> end_;  ///< distance of a line that may be the end
  bool is_end_certain_ = false;     ///< what follows it does not matter, but for a keyword
  std::size_t searches_ = 0;
  std::vector<Found> found_;
};

}  // namespace

void mend_module(LineReader& reader, const ModuleSpec* module, const InputSchema& schema) {
  if (reader.reads_as_program()) {
    ModuleScan(reader, module, schema).run();
  }
}

}  // namespace kelp::input::bdf
