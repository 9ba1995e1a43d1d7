#pragma once

/// @file
/// Paths: how users and tools name one part of an input, whatever names and aliases it is written
/// with.
///
///     geometry               the geometry, free or in $compass
///     easy.charge            a keyword of the header
///     tddft, tddft#2         the first, the second $tddft
///     scf.charge             an entry of the first $scf
///     compass#2.geometry     an entry of the second $compass
///     bdfopt.constrain.x     an entry of a nested block
///
/// All functions may be called from any number of threads at once.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// What a path names.
enum class PathKind : std::int32_t {
  Geometry = 0,     ///< the geometry
  EasyKeyword = 1,  ///< a keyword of the header
  Module = 2,       ///< a module
  Entry = 3,        ///< an entry of a module
  Child = 4,        ///< an entry of a nested block
};

/// Names a part of an input. Names may be aliases, in any case; none needs to be known.
struct ValuePath {
  PathKind kind = PathKind::Entry;  ///< which of the fields below count
  std::string module;               ///< of a module, an entry or a child: the module's name
  std::size_t module_index = 0;     ///< which of the modules of that name, counted from 0
  std::string name;                 ///< of the keyword, the entry or the nested block
  std::string child;                ///< of the entry of a nested block

  /// Two paths are equal when they are written alike; those that differ may mean the same.
  friend bool operator==(const ValuePath&, const ValuePath&) = default;
};

/// What reading a path came to.
struct PathResult {
  std::optional<ValuePath> path;  ///< the path; unset when the text is none
  std::string error;              ///< why it is none, in words; empty when it is one
  TextRange range;                ///< the part of the text that is at fault
};

/// Reads a path. The number behind `#` counts from 1; a `$` before the module is passed over.
KELP_BDF_INP_EXPORT PathResult parse_path(std::string_view text);

/// Returns a path as text: `scf.charge`, `scf#2.charge`, `easy.charge`, `geometry`.
KELP_BDF_INP_EXPORT std::string to_string(const ValuePath& path);

/// Returns the record that a path names, the first of its name in its module or block; none when
/// there is none. For the geometry it is the geometry block or, where that is missing or empty, the
/// first geometry entry of a `$compass`; for a keyword of the header its first word.
KELP_BDF_INP_EXPORT RecordId find_record(const BDFData& data, const InputSchema& schema,
                                         const ValuePath& path);
/// The same for an input as it was read.
KELP_BDF_INP_EXPORT RecordId find_record(const ParsedInput& input, const ValuePath& path);

/// Returns how many modules of a name a document has; the name may be an alias.
KELP_BDF_INP_EXPORT std::size_t count_modules(const BDFData& data, const InputSchema& schema,
                                              std::string_view name);

/// Returns the lines of a record's value, without the white space around them: those of an entry,
/// of a nested block its children with their values indented by two blanks, of the geometry a row
/// of label and coordinates for each atom and then its other lines, of a header keyword what
/// `easy_value` returns. None for a keyword without a value, and for any other record.
KELP_BDF_INP_EXPORT std::vector<std::string> value_lines(const BDFData& data,
                                                         const InputSchema& schema,
                                                         const RecordId& record);

/// Returns the value at a path, as `value_lines` does; unset when there is nothing at that path,
/// when it names a module, and for an empty geometry block.
KELP_BDF_INP_EXPORT std::optional<std::vector<std::string>> find_value(const BDFData& data,
                                                                       const InputSchema& schema,
                                                                       const ValuePath& path);
/// The same for an input as it was read.
KELP_BDF_INP_EXPORT std::optional<std::vector<std::string>> find_value(const ParsedInput& input,
                                                                       const ValuePath& path);

/// Returns what may have been meant by the first name of a path that the schema does not know:
/// `charge` for `scf.chrage`, the nearest name first, aliases included. Empty when it knows all
/// names, or none is near.
KELP_BDF_INP_EXPORT std::vector<std::string> path_hint(const InputSchema& schema,
                                                       const ValuePath& path);

/// Returns the paths that a name without a module may stand for: `easy.charge` and `scf.charge` for
/// `charge`. Those at which a document has something, or where it has nothing those that the schema
/// allows: in its header, in the modules that are there, else in any module.
KELP_BDF_INP_EXPORT std::vector<std::string> paths_of_name(const BDFData& data,
                                                           const InputSchema& schema,
                                                           std::string_view name);

/// Returns the path of a record: `scf#2.charge`, `easy.charge`, `geometry` for the geometry and all
/// that stands in it. Empty for what no path names: a method specification, a statement, a leading
/// line, a record that is not there. Of several entries of one name all have the path of the first.
KELP_BDF_INP_EXPORT std::string path_of(const BDFData& data, const RecordId& record);

/// Gives the paths of many records of one document, which is gone through once, when this is made.
/// The document must outlive it, and stay as it is. Any number of threads may ask one.
class KELP_BDF_INP_EXPORT PathIndex {
 public:
  /// Goes through the modules and the header of a document.
  explicit PathIndex(const BDFData& data);
  PathIndex(const PathIndex& other);
  PathIndex(PathIndex&& other) noexcept;
  PathIndex& operator=(const PathIndex& other);
  PathIndex& operator=(PathIndex&& other) noexcept;
  ~PathIndex();

  /// Returns what `path_of` returns.
  std::string path_of(const RecordId& record) const;

 private:
  const BDFData* data_;
  std::vector<std::size_t> numbers_;  // of each module among those of its name, from 1
  std::vector<bool> in_comment_;      // of each header token
};

/// A keyword of the header with the words that are its value: the tokens from `first` up to and
/// without `last`. In the form `charge=1` it is one token; in `charge 1` the value follows.
struct EasyKeyword {
  std::size_t first = 0;  ///< index of the token that is the keyword
  std::size_t last = 0;   ///< index behind the last token of its value
};

/// Returns where a keyword stands in the header, all times in order; the key may be an alias. A
/// method specification is no keyword, and a comment of the header holds none.
KELP_BDF_INP_EXPORT std::vector<EasyKeyword> find_easy_keywords(const BDFData& data,
                                                                const InputSchema& schema,
                                                                std::string_view key);

/// Returns the value of a header keyword, several words with one blank between them; empty when it
/// has none.
KELP_BDF_INP_EXPORT std::string easy_value(const BDFData& data, const EasyKeyword& keyword);

/// Returns the number of header tokens before the first one that begins a comment.
KELP_BDF_INP_EXPORT std::size_t tokens_before_comment(const BDFData& data);

}  // namespace kelp::input::bdf
