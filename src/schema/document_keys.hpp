#pragma once

#include <array>
#include <string_view>

#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

// The keys and words of a schema document, for the reader, which passes over others, and for the
// linter, which reports them.

inline constexpr std::array<std::string_view, 7> document_keys = {
    "program", "schema_kind", "metadata", "easy_input", "methods", "easy_keywords", "modules"};

// The last one is for the linter alone.
inline constexpr std::array<std::string_view, 5> metadata_keys = {
    "bdf_version", "manual_source", "manual_revision", "generated_at", "summaries"};

inline constexpr std::array<std::string_view, 5> easy_input_keys = {
    "methods", "methods_without_functional", "functionals", "basis", "control_keywords"};

inline constexpr std::array<std::string_view, 3> basis_keys = {"known", "extensible", "families"};

inline constexpr std::array<std::string_view, 3> family_keys = {"prefixes", "summary",
                                                                "summary_zh"};

inline constexpr std::array<std::string_view, 5> module_keys = {"repeatable", "aliases", "entries",
                                                                "summary", "summary_zh"};

inline constexpr std::array<std::string_view, 3> listed_name_keys = {"aliases", "summary",
                                                                     "summary_zh"};

inline constexpr std::array<std::string_view, 25> description_keys = {
    "kind",      "terminator", "value_type",      "default",       "allowed",
    "min",       "max",        "min_exclusive",   "max_exclusive", "arity",
    "min_arity", "max_arity",  "allowed_arities", "count_line",    "repeatable",
    "row",       "requires",   "conflicts",       "aliases",       "entries",
    "category",  "summary",    "summary_zh",      "values",        "values_zh"};

inline constexpr std::array<std::string_view, 5> row_keys = {"arity", "min_arity", "max_arity",
                                                             "allowed_arities", "types"};

inline constexpr std::array<std::string_view, 2> requirement_keys = {"entry", "equals"};

/// A word for a kind of value.
struct KindName {
  std::string_view text;
  EntryValueKind kind;
};

/// The words for kinds; the reader takes any other one for a scalar.
inline constexpr std::array<KindName, 16> kind_names = {{
    {"flag", EntryValueKind::Flag},
    {"bool", EntryValueKind::Flag},
    {"boolean", EntryValueKind::Flag},
    {"scalar", EntryValueKind::Scalar},
    {"tuple", EntryValueKind::Tuple},
    {"multiline", EntryValueKind::MultiLine},
    {"multi_line", EntryValueKind::MultiLine},
    {"vector", EntryValueKind::MultiLine},
    {"counted_rows", EntryValueKind::CountedRows},
    {"countedrows", EntryValueKind::CountedRows},
    {"nested_block", EntryValueKind::NestedBlock},
    {"nestedblock", EntryValueKind::NestedBlock},
    {"terminated_block", EntryValueKind::TerminatedBlock},
    {"terminatedblock", EntryValueKind::TerminatedBlock},
    {"block", EntryValueKind::TerminatedBlock},
    {"raw", EntryValueKind::Raw},
}};

/// The words for types of values. The first five are those that a check knows; the arrays are read
/// as their elements, and the last two accept everything and are for the reader of a schema.
inline constexpr std::array<std::string_view, 11> value_type_names = {
    "string",      "any",          "integer",      "float", "number", "integer_array",
    "float_array", "number_array", "string_array", "bool",  "boolean"};

}  // namespace kelp::input::bdf
