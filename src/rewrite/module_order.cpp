// Modules run in the order of the file: what makes orbitals before what needs them. `$bdfopt` is
// the exception. It calls the others itself, and stands either last, so that nothing may follow it,
// or before those that it calls, which then follow it in their usual order.

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "rewrite/edit_parts.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view optimiser = "bdfopt";
constexpr std::array<std::string_view, 5> first_modules = {"autofrag", "compass", "xuanyuan", "scf",
                                                           "tddft"};

std::size_t rank_of(std::string_view name) {
  const auto found = std::find(first_modules.begin(), first_modules.end(), name);
  return static_cast<std::size_t>(found - first_modules.begin());
}

class ModulePosition {
 public:
  ModulePosition(const ParsedInput& input, const BDFData& data, std::string_view name)
      : input_(input), data_(data), name_(name) {}

  /// Returns the index of the statement in front of which the module belongs.
  std::size_t find() const {
    const std::size_t rank = name_ == optimiser ? first_modules.size() + 1 : rank_of(name_);
    std::size_t behind = 0;
    std::size_t first = data_.statements.size();
    for (std::size_t i = 0; i < data_.statements.size(); ++i) {
      const Module* const module = module_at(i);
      if (module == nullptr) {
        continue;
      }
      first = std::min(first, i);
      const bool is_optimiser = module->name == optimiser;
      if ((is_optimiser && name_ == optimiser) ||
          (!is_optimiser && rank_of(module->name) <= rank)) {
        behind = i + 1;
      }
    }
    if (behind > 0) {
      return past_what_belongs_to(behind - 1);
    }
    return first < data_.statements.size() ? first : behind_settings();
  }

 private:
  const Module* module_at(std::size_t index) const {
    const Statement& statement = data_.statements[index];
    return statement.kind == StatementKind::Module && statement.module_index < data_.modules.size()
               ? &data_.modules[statement.module_index]
               : nullptr;
  }

  // A comment or a command of the shell directly below a module belongs to it, but a comment
  // directly above the next one belongs to that.
  std::size_t past_what_belongs_to(std::size_t module) const {
    std::size_t behind = module + 1;
    std::size_t line = last_line(module);
    while (behind < data_.statements.size() && is_aside(data_.statements[behind]) &&
           first_line(behind) == line + 1) {
      line = last_line(behind++);
    }
    if (behind < data_.statements.size() && first_line(behind) == line + 1) {
      while (behind > module + 1 && data_.statements[behind - 1].kind == StatementKind::Comment) {
        --behind;
      }
    }
    return behind;
  }

  static bool is_aside(const Statement& statement) {
    return statement.kind == StatementKind::Comment || statement.kind == StatementKind::Shell;
  }

  // 0 of what is new.
  std::size_t first_line(std::size_t statement) const {
    const Module* const module = module_at(statement);
    const auto& location =
        module == nullptr ? data_.statements[statement].location : module->location;
    return location ? static_cast<std::size_t>(location->line) : 0;
  }

  std::size_t last_line(std::size_t statement) const {
    const std::size_t line = first_line(statement);
    return line == 0 ? static_cast<std::size_t>(-2) : input_.last_line(input_.line(line).record);
  }

  static bool says(const Statement& statement, std::string_view words) {
    if (statement.kind != StatementKind::Raw || statement.lines.size() != 1) {
      return false;
    }
    std::string_view rest = statement.lines.front();
    std::string joined = core::text::to_lower(core::text::take_word(rest));
    joined += ' ';
    joined += core::text::to_lower(core::text::take_word(rest));
    return joined == words;
  }

  // Where there is no module yet: in the wrapper for modules, or behind what is said so far.
  std::size_t behind_settings() const {
    std::size_t behind = 0;
    for (std::size_t i = 0; i < data_.statements.size(); ++i) {
      const Statement& statement = data_.statements[i];
      if (says(statement, "module setting")) {
        return i + 1;
      }
      const bool is_blank =
          std::all_of(statement.lines.begin(), statement.lines.end(),
                      [](const std::string& line) { return core::text::trim_view(line).empty(); });
      if (statement.kind != StatementKind::Database && !is_blank) {
        behind = i + 1;
      }
    }
    return behind;
  }

  const ParsedInput& input_;
  const BDFData& data_;
  std::string_view name_;
};

}  // namespace

std::size_t add_module(EditContext& context, Module module) {
  BDFData& data = context.data;
  context.finder.reset();
  const std::size_t position = ModulePosition(context.input, data, module.name).find();
  std::size_t index = 0;
  for (std::size_t i = 0; i < data.statements.size(); ++i) {
    Statement& statement = data.statements[i];
    if (statement.kind == StatementKind::Module) {
      index += i < position ? 1 : 0;
      statement.module_index += i < position ? 0 : 1;
    }
  }
  data.modules.insert(data.modules.begin() + static_cast<std::ptrdiff_t>(index), std::move(module));
  data.statements.insert(data.statements.begin() + static_cast<std::ptrdiff_t>(position),
                         {StatementKind::Module, index, {}, std::nullopt});
  return index;
}

}  // namespace kelp::input::bdf
