#include "parser/module_block.hpp"

#include <string_view>
#include <utility>

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
    while (!reader_.at_end() && !leaves_early()) {
      if (is_module_end(reader_.line())) {
        module_.terminated = true;
        reader_.begin_record(RecordId::of_module(index_));
        module_.end_line = reader_.take(LineRole::ModuleEnd);
        return;
      }
      if (is_module_border(reader_.line())) {
        return;
      }
      read_entry();
    }
  }

 private:
  // A break that a block stopped at is of that block.
  bool leaves_early() const { return reader_.at_break() && !keywords_.start(reader_.line()); }

  void read_entry() {
    const std::string_view line = reader_.line();
    reader_.begin_record(RecordId::of_entry(index_, module_.entries.size()));
    if (is_remark(line)) {
      module_.entries.push_back(take_raw_entry(reader_));
    } else if (keywords_.start(line)) {
      read_known_entry(line);
    } else {
      read_unknown_line(line);
    }
  }

  void read_known_entry(std::string_view line) {
    ModuleEntry entry;
    describe_entry(entry, first_word(line), spec_);
    take_keyword_line(reader_, keywords_, entry);
    if (entry.kind == EntryValueKind::NestedBlock) {
      gather_children(reader_, find_entry_spec(spec_, entry.name), options_, entry);
    } else {
      gather_values(reader_, keywords_, entry);
    }
    module_.entries.push_back(std::move(entry));
  }

  void read_unknown_line(std::string_view line) {
    const UnknownLine what = classify_unknown_line(line, options_);
    if (what == UnknownLine::Dropped) {
      reader_.skip(LineRole::UnknownLine);
      return;
    }
    ModuleEntry entry = take_raw_entry(reader_);
    if (what == UnknownLine::Keyword) {
      gather_values(reader_, keywords_, entry);
    }
    module_.entries.push_back(std::move(entry));
  }

  LineReader& reader_;
  Module& module_;
  std::size_t index_;
  const ModuleSpec* spec_;
  Keywords keywords_;
  const ParseOptions& options_;
};

}  // namespace

Module parse_module(LineReader& reader, std::size_t index, const InputSchema& schema,
                    const ParseOptions& options) {
  Module module;
  module.terminated = false;
  module.location = reader.location();
  reader.begin_record(RecordId::of_module(index));
  describe_module(module, core::text::trim_view(reader.line()).substr(1), schema);
  module.header_line = reader.take(LineRole::ModuleHeader);
  ModuleBody(reader, module, index, schema, options).read();
  if (LineMap* const map = reader.map()) {
    map->last_line.push_back(reader.index());
  }
  return module;
}

}  // namespace kelp::input::bdf
