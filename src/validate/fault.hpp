#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/validation.hpp"

namespace kelp::input::bdf {

/// Every finding there is; the table of texts in `issues.cpp` is in this order.
enum class IssueId : std::int32_t {
  InvalidEasyValue,
  MissingMethod,
  MissingGeometry,
  UnterminatedGeometry,
  UnknownModule,
  UnknownModuleKept,
  UnterminatedModule,
  UnknownEntry,
  UnknownEntryKept,
  MissingRequiredEntry,
  MissingRequiredValue,
  ConflictingEntries,
  DuplicateEntry,
  DuplicateModule,
  MissingEntryValue,
  UnterminatedEntryBlock,
  InvalidModuleValue,
  UnknownNestedEntry,
  UnknownNestedEntryKept,
  MissingRequiredNestedEntry,
  MissingRequiredNestedValue,
  ConflictingNestedEntries,
  DuplicateNestedEntry,
};

/// What is wrong about a value.
enum class ValueReason : std::int32_t {
  None,             ///< nothing
  WrongType,        ///< a field is not of the type
  BelowMinimum,     ///< a field is less than the lower bound, or equal to one that is excluded
  AboveMaximum,     ///< a field is greater than the upper bound, or equal to one that is excluded
  TooFewFields,     ///< less fields than the least number
  TooManyFields,    ///< more fields than the greatest number
  WrongFieldCount,  ///< a number of fields that is not among those allowed
  NotAllowed,       ///< none of the values allowed
  WrongCount,       ///< the line that tells the number of rows holds no such number
  WrongRowCount,    ///< another number of rows than told, or none at all
};

/// Which part of a value a reason is about.
enum class ValuePart : std::int32_t { All, Field, Row, CountLine };

/// What makes a value invalid, and where.
struct ValueFault {
  ValueReason reason = ValueReason::None;
  ValuePart part = ValuePart::All;
  /// Index of the value line; of all values, that of the first line that holds any. Unset when
  /// there is no such line.
  std::optional<std::size_t> line;
  std::size_t begin = 0;  ///< first byte, from where that line's words begin
  std::size_t end = 0;    ///< byte behind the last one
};

/// One finding, as data. Views and pointers are good until the sink returns.
struct Fault {
  IssueId id;
  std::span<const std::string_view> arguments;  ///< fill the placeholders of the message
  RecordId record;   ///< at fault; of a repeated name, the second record that bears it
  RecordId related;  ///< the other entry of a conflict; the first record of a repeated name
  const std::optional<SourceSpan>* location;  ///< as the published finding has it; never null
  const ValueFault* value;                    ///< of an invalid value, else null
};

/// Takes the findings as they are made, so that any number of them needs no memory.
using FaultSink = std::function<void(const Fault&)>;

/// Checks a document, and hands the findings over in the order of the document. What the sink
/// throws is passed on.
void find_faults(const BDFData& data, const InputSchema& schema, const ValidationOptions& options,
                 const FaultSink& sink);

/// Returns the dotted code of a finding, a view that lives for ever.
std::string_view code_of(IssueId id);
/// Returns how grave a finding is.
ValidationSeverity severity_of(IssueId id);
/// Returns the message of a finding, an English sentence, with `arguments` in its placeholders.
std::string message_of(IssueId id, std::span<const std::string_view> arguments);

/// The records that a finding is about.
struct FaultSite {
  RecordId record;
  const std::optional<SourceSpan>& location;
  RecordId related = {};
};

/// Hands a finding over; `arguments` fill the placeholders of its message.
void report(const FaultSink& sink, IssueId id, std::initializer_list<std::string_view> arguments,
            const FaultSite& site, const ValueFault* value = nullptr);

}  // namespace kelp::input::bdf
