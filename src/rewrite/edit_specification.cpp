// The method specification. Its parts are changed all at once and then looked at together: whether
// a functional belongs there is the method's say.

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/from_schema.hpp"
#include "rewrite/edit_parts.hpp"
#include "rewrite/method_specification.hpp"
#include "schema/easy_token_syntax.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view method_part = "method";
constexpr std::string_view functional_part = "functional";
constexpr std::string_view basis_part = "basis";

bool names(const ValuePath& path, std::string_view part) {
  return core::text::equals_ignoring_case(path.name, part);
}

bool is_listed(const InputSchema& schema, std::string_view part, const std::string& name) {
  if (part == method_part) {
    return schema.is_known_method(name);
  }
  return part == functional_part
             ? schema.is_known_functional(name)
             : schema.is_known_easy_token("hf/" + name) || schema.is_known_basis(name);
}

Texts listed_names(const InputSchema& schema, std::string_view part) {
  if (part == method_part) {
    return schema.known_methods();
  }
  return part == functional_part ? schema.known_functionals() : schema.known_basis_sets();
}

// An open list takes a name that is not near any of it.
std::string refuse_unknown(const InputSchema& schema, std::string_view part,
                           const std::string& name) {
  const Texts near = similar_names(name, listed_names(schema, part));
  if (schema.is_known_basis(name) || (is_listed(schema, part, name) && near.empty()) ||
      (is_listed(schema, part, name) && part != basis_part)) {
    return {};
  }
  std::string problem = "there is no " + std::string(part) + " '" + name + "'";
  if (!near.empty()) {
    problem += "; did you mean " + quoted_choice(near) + "?";
  }
  return problem + " (--force writes it)";
}

std::string canonical_part(const InputSchema& schema, std::string_view part,
                           const std::string& name) {
  if (part == method_part) {
    return schema.canonical_method(name);
  }
  return part == functional_part ? schema.canonical_functional(name) : schema.canonical_basis(name);
}

/// A part of the method specification, and whether the edit is about it.
struct Part {
  std::string_view name;
  std::string text;
  const Assignment* assignment = nullptr;
  bool is_changed = false;
};

class SpecificationEdit {
 public:
  SpecificationEdit(EditContext& context, EasyToken& token)
      : context_(context), schema_(context.schema()), token_(token) {
    const SpecificationParts parts = specification_parts(token);
    method_.text = parts.method;
    functional_.text = parts.functional;
    basis_.text = parts.basis;
    old_use_ = use_of(method_.text);
  }

  Problem run(const std::vector<const Assignment*>& assignments) {
    for (const Assignment* const assignment : assignments) {
      Problem problem = put(*assignment);
      if (!problem.empty()) {
        return problem;
      }
    }
    Problem problem = context_.edit.allow_unknown_names ? Problem() : settle_functional();
    if (problem.empty() && (method_.is_changed || functional_.is_changed || basis_.is_changed)) {
      const auto location = token_.location;
      token_ = easy_token_from_text(text(), schema_);
      token_.location = location;
    }
    return problem;
  }

 private:
  FunctionalUse use_of(std::string_view method) const {
    return functional_use(SchemaAccess::impl(schema_), method);
  }

  Problem put(const Assignment& assignment) {
    const ValuePath& path = assignment.path;
    const std::string value = assignment.values.empty() ? "" : assignment.values.front();
    const bool is_name = assignment.values.size() == 1 && !value.empty() &&
                         value.find_first_of("/#=") == std::string::npos &&
                         std::none_of(value.begin(), value.end(), core::text::is_space);
    if (!is_name) {
      return refusal(path, "it takes one name, a single word without '/', '=' or '#'");
    }
    Part& part = names(path, method_part)       ? method_
                 : names(path, functional_part) ? functional_
                                                : basis_;
    const std::string problem =
        context_.edit.allow_unknown_names ? "" : refuse_unknown(schema_, part.name, value);
    if (!problem.empty()) {
      return refusal(path, problem);
    }
    const bool is_there =
        canonical_part(schema_, part.name, part.text) == canonical_part(schema_, part.name, value);
    part.assignment = &assignment;
    if (!is_there || part.text.empty()) {
      part.text = value;
      part.is_changed = true;
    }
    return {};
  }

  // What was wrong before is nobody's fault now.
  Problem settle_functional() {
    const FunctionalUse use = method_.text.empty() ? FunctionalUse::Untold : use_of(method_.text);
    if (use == FunctionalUse::None && !functional_.text.empty()) {
      if (functional_.is_changed) {
        return refusal(functional_.assignment->path,
                       "'" + method_.text + "' takes no functional" +
                           (method_.assignment != nullptr
                                ? std::string()
                                : "; name a method that needs one with it: easy.method=METHOD"));
      }
      if (method_.is_changed && old_use_ != FunctionalUse::None) {
        context_.notes.push_back("'" + method_.text + "' takes no functional: '" +
                                 functional_.text + "' goes");
        functional_.text.clear();
      }
    }
    if (use == FunctionalUse::Needed && functional_.text.empty() && method_.is_changed &&
        old_use_ != FunctionalUse::Needed) {
      return refusal(method_.assignment->path, "'" + method_.text +
                                                   "' needs a functional; name it with it: "
                                                   "easy.functional=NAME");
    }
    return {};
  }

  std::string text() const {
    std::string joined;
    for (const Part* const part : {&method_, &functional_, &basis_}) {
      if (!part->text.empty()) {
        joined += (joined.empty() ? "" : "/") + part->text;
      }
    }
    return joined;
  }

  EditContext& context_;
  const InputSchema& schema_;
  EasyToken& token_;
  Part method_ = {method_part, {}};
  Part functional_ = {functional_part, {}};
  Part basis_ = {basis_part, {}};
  FunctionalUse old_use_ = FunctionalUse::Untold;
};

}  // namespace

SpecificationParts specification_parts(const EasyToken& token) {
  if (token.category != "method_spec") {
    return {};
  }
  std::vector<std::string_view> parts = split_at_slashes(prepare_easy_token(token.text));
  for (std::string_view& part : parts) {
    part = core::text::trim_view(part);
  }
  if (parts.size() == 3) {
    return {parts[0], parts[1], parts[2]};
  }
  if (parts.size() != 2) {
    return {};
  }
  return token.method.empty() ? SpecificationParts{{}, parts[0], parts[1]}
                              : SpecificationParts{parts[0], {}, parts[1]};
}

bool is_specification_part(const ValuePath& path) {
  return path.kind == PathKind::EasyKeyword &&
         (names(path, method_part) || names(path, functional_part) || names(path, basis_part));
}

Problem set_specification(EditContext& context, const std::vector<const Assignment*>& parts) {
  const ValuePath& path = parts.front()->path;
  if (context.data.mode == InputMode::Module) {
    return refusal(path, "an input of modules alone has no header");
  }
  std::vector<EasyToken>& tokens = context.data.easy_tokens;
  const auto token = std::find_if(tokens.begin(), tokens.end(), [](const EasyToken& candidate) {
    return candidate.category == "method_spec";
  });
  if (token == tokens.end()) {
    return refusal(path, "the header has no method specification");
  }
  if (specification_parts(*token).basis.empty()) {
    return refusal(path, "'" + token->text +
                             "' is no method specification, which has two parts or three: "
                             "METHOD/FUNCTIONAL/BASIS");
  }
  return SpecificationEdit(context, *token).run(parts);
}

}  // namespace kelp::input::bdf
