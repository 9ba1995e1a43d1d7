#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "diagnose/directives.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

/// What the comments of an input allow, and whether anything needed it.
class Allowances {
 public:
  /// `input` must outlive this.
  explicit Allowances(const ParsedInput& input);

  /// Tells whether a finding is allowed, and notes which comment was needed for that.
  bool allow(const Diagnostic& diagnostic);

  /// Finds what is wrong with the comments themselves, and which of them nothing needed. To be
  /// called when all findings of the input went through `allow`; `use` may call it again.
  void report(const DiagnoseOptions& options, const std::function<void(const Diagnostic&)>& use);

 private:
  /// One code of one directive.
  struct Grant {
    std::size_t directive;
    std::size_t code;
    bool is_for_record;  ///< all that the record which begins on the line holds
  };

  void add(std::size_t line, std::size_t directive, bool is_for_record);
  bool allow_at(std::size_t line, std::string_view code, bool as_record);
  bool allow_record(const RecordId& record, std::string_view code);

  const ParsedInput& input_;
  std::vector<Directive> directives_;
  std::unordered_map<std::size_t, std::vector<Grant>> grants_;  // by line; those of the input at 0
};

}  // namespace kelp::input::bdf
