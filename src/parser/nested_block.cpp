#include "parser/nested_block.hpp"

#include <string_view>

#include "model/from_schema.hpp"
#include "parser/gather.hpp"
#include "parser/keywords.hpp"

namespace kelp::input::bdf {
namespace {

ModuleEntry parse_nested_child(LineReader& reader, const EntrySpec* block,
                               const ParseOptions& options) {
  const Keywords keywords(block);
  if (!keywords.start(reader.line())) {
    ModuleEntry child = take_raw_entry(reader);
    if (options.custom_unknown_policy) {
      gather_values(reader, keywords, child);
    }
    return child;
  }
  ModuleEntry child;
  describe_child(child, first_word(reader.line()), block);
  take_keyword_line(reader, keywords, child);
  if (child.kind != EntryValueKind::Raw || options.custom_unknown_policy) {
    gather_values(reader, keywords, child);
  }
  return child;
}

}  // namespace

void gather_children(LineReader& reader, const EntrySpec* block, const ParseOptions& options,
                     ModuleEntry& entry) {
  const bool has_terminator = !entry.terminator.empty();
  const RecordId own = reader.record();
  entry.terminated = false;
  while (!reader.at_end() && !reader.at_break()) {
    const std::string_view line = reader.line();
    if (has_terminator && is_terminator(line, entry)) {
      entry.terminated = true;
      reader.begin_record(own);
      reader.skip(LineRole::BlockEnd);
      return;
    }
    if (is_module_border(line)) {
      return;
    }
    reader.begin_record(RecordId::of_child(own.index, own.entry, entry.children.size()));
    if (is_remark(line) || (is_blank(line) && !has_terminator)) {
      entry.children.push_back(take_raw_entry(reader));
    } else {
      entry.children.push_back(parse_nested_child(reader, block, options));
    }
  }
}

}  // namespace kelp::input::bdf
