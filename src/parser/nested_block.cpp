#include "parser/nested_block.hpp"

#include <string_view>

#include "model/from_schema.hpp"
#include "parser/gather.hpp"
#include "parser/keywords.hpp"

namespace kelp::input::bdf {
namespace {

void parse_nested_child(LineReader& reader, const EntrySpec* block, const ParseOptions& options,
                        ModuleEntry& child) {
  const Keywords keywords(block);
  const auto known = keywords.find_word(reader.word());
  if (known.entry == nullptr) {
    take_raw_entry(reader, child);
    if (options.custom_unknown_policy) {
      gather_values(reader, keywords, child);
    }
    return;
  }
  describe_known(child, known);
  take_keyword_line(reader, keywords, child);
  if (child.kind != EntryValueKind::Raw || options.custom_unknown_policy) {
    gather_values(reader, keywords, child);
  }
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
      take_raw_entry(reader, entry.children.emplace_back());
    } else {
      parse_nested_child(reader, block, options, entry.children.emplace_back());
    }
  }
}

}  // namespace kelp::input::bdf
