// Keywords of the header and their values.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/from_schema.hpp"
#include "model/same_value.hpp"
#include "model/value_lines.hpp"
#include "rewrite/edit_parts.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view switched_on = "true";

// Numbers of one keyword may stand side by side.
bool is_header_value(const std::string& value, const std::optional<EntrySchemaInfo>& info) {
  const bool may_be_several = info && info->kind == EntryValueKind::Tuple;
  return value.find('#') == std::string::npos &&
         (may_be_several || std::none_of(value.begin(), value.end(), core::text::is_space));
}

// A keyword that can be true may stand alone, which says just that.
bool may_stand_alone(const EntrySchemaInfo& info) {
  return info.kind == EntryValueKind::Flag ||
         std::find(info.allowed.begin(), info.allowed.end(), switched_on) != info.allowed.end();
}

bool is_empty(const Assignment& assignment) {
  return assignment.values.empty() || (assignment.values.size() == 1 &&
                                       core::text::trim_view(assignment.values.front()).empty());
}

Problem check_value(const EditContext& context, const Assignment& assignment, bool is_there_bare) {
  const ValuePath& path = assignment.path;
  const auto info = context.schema().easy_keyword_info(path.name);
  if (is_empty(assignment)) {
    return !info || may_stand_alone(*info) || is_there_bare || context.edit.allow_unknown_names
               ? Problem()
               : refusal(path, "it needs a value; --unset takes it out");
  }
  return assignment.values.size() == 1 && is_header_value(assignment.values.front(), info)
             ? Problem()
             : refusal(path, "a value of the header is a single word without '#'");
}

// Commas stand between several values, unless the header has blanks there already.
std::string behind_key(const std::optional<std::string>& value, std::string_view old) {
  if (!value) {
    return {};
  }
  if (old.find(' ') != std::string_view::npos) {
    return '=' + *value;
  }
  std::vector<std::string_view> fields;
  split_value_tokens(*value, fields);
  return '=' + (fields.size() < 2 ? *value : core::text::join(fields, ","));
}

}  // namespace

Problem set_easy(EditContext& context, const Assignment& assignment) {
  const ValuePath& path = assignment.path;
  if (context.data.mode == InputMode::Module) {
    return refusal(path, "an input of modules alone has no header");
  }
  if (path.name.find('/') != std::string::npos) {
    return refusal(path,
                   "method, functional and basis are easy.method, easy.functional and easy.basis");
  }
  const RecordId found = find_record(context.data, context.schema(), path);
  Problem problem = found ? Problem() : check_known(context, path);
  if (problem.empty()) {
    const bool is_bare = found && value_lines(context.data, context.schema(), found).empty();
    problem = check_value(context, assignment, is_bare);
  }
  if (problem.empty()) {
    put_keyword(context, path.name,
                is_empty(assignment) ? std::nullopt : std::optional(assignment.values.front()));
  }
  return problem;
}

void put_keyword(EditContext& context, const std::string& key,
                 const std::optional<std::string>& value) {
  const InputSchema& schema = context.schema();
  const std::string wanted = schema.canonical_easy_key(key);
  bool is_there = false;
  // A header that says it twice must not say two things.
  for (EasyToken& token : context.data.easy_tokens) {
    if (token.category == "method_spec" || schema.canonical_easy_key(token.key) != wanted) {
      continue;
    }
    is_there = true;
    if (value ? !same_value_line(token.value, *value) : !token.value.empty()) {
      const auto location = token.location;
      token = easy_token_from_text(
          token.text.substr(0, token.text.find('=')) + behind_key(value, token.value), schema);
      token.location = location;
    }
  }
  if (!is_there) {
    context.data.easy_tokens.push_back(
        easy_token_from_text(wanted + behind_key(value, {}), schema));
  }
}

}  // namespace kelp::input::bdf
