#include "parser/module_block.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "kelp/core/text.hpp"
#include "model/from_schema.hpp"
#include "parser/gather.hpp"
#include "parser/keywords.hpp"
#include "parser/mending.hpp"
#include "parser/nested_block.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

/// What becomes of a line inside a module whose first word is no keyword of the module.
enum class UnknownLine { Keyword, RawEntry, Dropped };

// A host that neither validates nor has a policy about unknown names wants only what the schema
// knows. Otherwise a line that starts at the margin is taken for a keyword.
UnknownLine classify_unknown_line(std::string_view line, const ParseOptions& options) {
  if (!options.custom_unknown_policy && !options.validate) {
    return UnknownLine::Dropped;
  }
  return line.empty() || is_indented(line) ? UnknownLine::RawEntry : UnknownLine::Keyword;
}

/// Reads the lines between a module's header and its end.
class ModuleBody {
 public:
  ModuleBody(LineReader& reader, Module& module, std::size_t index, const InputSchema& schema,
             const ParseOptions& options)
      : reader_(reader),
        module_(module),
        index_(index),
        spec_(find_module_spec(SchemaAccess::impl(schema), module.name)),
        keywords_(spec_),
        options_(options) {
    mend_module(reader, spec_, schema);
  }

  void read() {
    make_room();
    read_lines();
    if (module_.entries.capacity() > 2 * module_.entries.size() + 1) {
      module_.entries.shrink_to_fit();
    }
  }

 private:
  // Entries are filled where they stay. Half of the lines up to the next dollar is what a module
  // has of keywords with values; one of as many flags grows once.
  void make_room() {
    constexpr std::ptrdiff_t most = 64;
    const std::string_view rest = reader_.rest();
    const std::string_view lines = rest.substr(0, rest.find('$'));
    const auto count = (std::count(lines.begin(), lines.end(), '\n') + 1) / 2;
    module_.entries.reserve(static_cast<std::size_t>(std::min(count, most)));
  }

  void read_lines() {
    while (!reader_.at_end() && !leaves_early()) {
      if (reader_.at_module_border() && is_module_end(reader_.line())) {
        module_.terminated = true;
        reader_.begin_record(RecordId::of_module(index_));
        module_.end_line = reader_.take(LineRole::ModuleEnd);
        return;
      }
      if (reader_.at_module_border()) {
        return;
      }
      read_entry();
    }
  }

  // A break that a block stopped at is of that block.
  bool leaves_early() const { return reader_.at_break() && !keywords_.have(reader_.word()); }

  void read_entry() {
    const std::string_view line = reader_.line();
    reader_.begin_record(RecordId::of_entry(index_, module_.entries.size()));
    if (is_remark(reader_.word())) {
      take_raw_entry(reader_, module_.entries.emplace_back());
    } else if (const auto known = keywords_.find_word(reader_.word()); known.entry != nullptr) {
      read_known_entry(known);
    } else {
      read_unknown_line(line);
    }
  }

  void read_known_entry(const KnownName<EntrySpec>& known) {
    ModuleEntry& entry = module_.entries.emplace_back();
    describe_known(entry, known);
    take_keyword_line(reader_, keywords_, entry);
    if (entry.kind == EntryValueKind::NestedBlock) {
      gather_children(reader_, known.described, options_, entry);
    } else {
      gather_values(reader_, keywords_, entry);
    }
  }

  void read_unknown_line(std::string_view line) {
    const UnknownLine what = classify_unknown_line(line, options_);
    if (what == UnknownLine::Dropped) {
      reader_.skip(LineRole::UnknownLine);
      return;
    }
    ModuleEntry& entry = module_.entries.emplace_back();
    take_raw_entry(reader_, entry);
    if (what == UnknownLine::Keyword) {
      gather_values(reader_, keywords_, entry);
    }
  }

  LineReader& reader_;
  Module& module_;
  std::size_t index_;
  const ModuleSpec* spec_;
  Keywords keywords_;
  const ParseOptions& options_;
};

}  // namespace

void parse_module(LineReader& reader, std::size_t index, const InputSchema& schema,
                  const ParseOptions& options, Module& module) {
  module.terminated = false;
  module.location = reader.location();
  reader.begin_record(RecordId::of_module(index));
  describe_module(module, core::text::trim_view(reader.line()).substr(1), schema);
  module.header_line = reader.take(LineRole::ModuleHeader);
  ModuleBody(reader, module, index, schema, options).read();
  if (LineMap* const map = reader.map()) {
    map->last_line.push_back(reader.index());
  }
}

}  // namespace kelp::input::bdf
