// What is taken out takes the comment directly above it along.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "rewrite/edit_parts.hpp"

namespace kelp::input::bdf {
namespace {

std::size_t line_of(const std::optional<SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

bool is_comment(const ModuleEntry& entry) {
  const std::string_view line = core::text::trim_view(entry.raw_line);
  return !entry.known && !line.empty() && (line.front() == '#' || line.front() == '*');
}

bool is_comment(const Statement& statement) {
  return statement.kind == StatementKind::Comment;
}

// The comments whose lines end right above it.
template <typename Record>
void erase_with_comments(std::vector<Record>& records, std::size_t index) {
  std::size_t first = index;
  while (first > 0 && is_comment(records[first - 1]) &&
         line_of(records[first - 1].location) + 1 == line_of(records[first].location)) {
    --first;
  }
  const auto begin = records.begin();
  records.erase(begin + static_cast<std::ptrdiff_t>(first),
                begin + static_cast<std::ptrdiff_t>(index) + 1);
}

Problem miss(const EditContext& context, const ValuePath& path) {
  const auto near = path_hint(context.schema(), path);
  return "nothing at '" + to_string(path) + "' to take out" +
         (near.empty() ? "" : "; did you mean " + quoted_choice(near) + "?");
}

Problem unset_easy(EditContext& context, const ValuePath& path) {
  if (is_specification_part(path)) {
    return refusal(path, "it can be changed, but not taken out");
  }
  const InputSchema& schema = context.schema();
  const std::string wanted = schema.canonical_easy_key(path.name);
  const auto count = std::erase_if(context.data.easy_tokens, [&](const EasyToken& token) {
    return token.category != "method_spec" && schema.canonical_easy_key(token.key) == wanted;
  });
  return count > 0 ? Problem() : miss(context, path);
}

Problem unset_entries(EditContext& context, const ValuePath& path) {
  bool found = false;
  for (RecordId record = context.find(path); record; record = context.find(path)) {
    Module& module = context.data.modules[record.index];
    if (record.kind == RecordKind::Child) {
      erase_with_comments(module.entries[record.entry].children, record.child);
    } else {
      erase_with_comments(module.entries, record.entry);
    }
    found = true;
  }
  return found ? Problem() : miss(context, path);
}

void remove_module(BDFData& data, std::size_t index) {
  std::vector<Statement>& statements = data.statements;
  data.modules.erase(data.modules.begin() + static_cast<std::ptrdiff_t>(index));
  const auto is_of_module = [index](const Statement& statement) {
    return statement.kind == StatementKind::Module && statement.module_index == index;
  };
  const auto found = std::find_if(statements.begin(), statements.end(), is_of_module);
  if (found != statements.end()) {
    erase_with_comments(statements, static_cast<std::size_t>(found - statements.begin()));
  }
  for (Statement& statement : statements) {
    if (statement.kind == StatementKind::Module && statement.module_index > index) {
      --statement.module_index;
    }
  }
}

}  // namespace

Problem unset_values(EditContext& context) {
  for (const ValuePath& path : context.edit.unset) {
    Problem problem;
    if (path.kind == PathKind::Geometry) {
      problem = refusal(path, "the geometry cannot be taken out");
    } else if (path.kind == PathKind::EasyKeyword) {
      problem = unset_easy(context, path);
    } else if (path.kind != PathKind::Module) {
      problem = unset_entries(context, path);
    }
    if (!problem.empty()) {
      return problem;
    }
  }
  return {};
}

// From the last to the first, so that the numbers of those still to go stay right.
Problem unset_modules(EditContext& context) {
  std::vector<ValuePath> paths;
  for (const ValuePath& path : context.edit.unset) {
    if (path.kind == PathKind::Module) {
      paths.push_back(path);
    }
  }
  std::stable_sort(paths.begin(), paths.end(), [](const auto& left, const auto& right) {
    return left.module_index > right.module_index;
  });
  for (const ValuePath& path : paths) {
    const RecordId record = find_record(context.data, context.schema(), path);
    if (!record) {
      return miss(context, path);
    }
    context.finder.reset();
    remove_module(context.data, record.index);
  }
  return {};
}

}  // namespace kelp::input::bdf
