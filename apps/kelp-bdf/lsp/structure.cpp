// What stands where: symbols, folds, selections that grow, and the two ends of blocks.

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/outline.hpp"
#include "lsp/features.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::EntryValueKind;
using input::bdf::LineRole;
using input::bdf::Outline;
using input::bdf::ParsedInput;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

// The protocol's kinds of symbols.
constexpr int symbol_module = 2;
constexpr int symbol_property = 7;
constexpr int symbol_array = 18;
constexpr int symbol_key = 20;

// A range of lines without the last line end, behind which a client sees the next line.
TextRange without_end(const View& view, TextRange range) {
  const std::string_view text = view.document.text();
  while (range.end > range.begin && (text[range.end - 1] == '\n' || text[range.end - 1] == '\r')) {
    --range.end;
  }
  return range;
}

class SymbolMaker {
 public:
  explicit SymbolMaker(const View& view) : view_(view) {}

  Json run() {
    const Outline outline = outline_of(view_.input(), view_.settings.language);
    Json list = Json::array();
    for (const Outline::Word& word : outline.header) {
      list.push_back(symbol(word.text, word.summary, symbol_key, word.range, word.range));
    }
    if (outline.geometry && outline.geometry->record.kind == RecordKind::Geometry) {
      const Outline::Geometry& geometry = *outline.geometry;
      list.push_back(symbol("Geometry", geometry.formula, symbol_array, geometry.range,
                            view_.input().keyword_range(geometry.record)));
    }
    for (const Outline::Module& module : outline.modules) {
      Json made =
          symbol('$' + module.name, module.summary, symbol_module, module.range, module.name_range);
      made["children"] = entries(module.entries);
      list.push_back(std::move(made));
    }
    return view_.client.nests_symbols ? list : flat(list, "");
  }

 private:
  Json entries(const std::vector<Outline::Entry>& entries) const {
    Json list = Json::array();
    for (const Outline::Entry& entry : entries) {
      Json made = symbol(entry.name, entry.values.empty() ? "" : entry.values.front(),
                         symbol_property, entry.range, entry.name_range);
      made["children"] = this->entries(entry.children);
      list.push_back(std::move(made));
    }
    return list;
  }

  Json symbol(const std::string& name, const std::string& detail, int kind, const TextRange& whole,
              const TextRange& words) const {
    // A name must not be empty, and its range must lie within the whole.
    const TextRange range = without_end(view_, whole);
    const TextRange inner = {std::clamp(words.begin, range.begin, range.end),
                             std::clamp(words.end, range.begin, range.end)};
    return {{"name", name.empty() ? "?" : name},
            {"detail", detail},
            {"kind", kind},
            {"range", view_.range(range)},
            {"selectionRange", view_.range(inner)}};
  }

  Json flat(const Json& symbols, const std::string& container) const {
    Json list = Json::array();
    for (const Json& one : symbols) {
      list.push_back({{"name", one["name"]},
                      {"kind", one["kind"]},
                      {"containerName", container},
                      {"location", {{"uri", view_.document.uri()}, {"range", one["range"]}}}});
      if (one.contains("children")) {
        for (Json& child : flat(one["children"], one["name"])) {
          list.push_back(std::move(child));
        }
      }
    }
    return list;
  }

  const View& view_;
};

// All records that have lines below their first one.
std::vector<RecordId> blocks_of(const ParsedInput& input) {
  std::vector<RecordId> blocks;
  const input::bdf::BDFData& data = input.data();
  if (data.has_geometry) {
    blocks.push_back(RecordId::of(RecordKind::Geometry, 0));
  }
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    blocks.push_back(RecordId::of_module(i));
    for (std::size_t k = 0; k < data.modules[i].entries.size(); ++k) {
      const EntryValueKind kind = data.modules[i].entries[k].kind;
      if (kind == EntryValueKind::NestedBlock || kind == EntryValueKind::TerminatedBlock) {
        blocks.push_back(RecordId::of_entry(i, k));
      }
    }
  }
  return blocks;
}

/// The two lines that bound a block: the words that begin it, and those that end it.
struct Borders {
  TextRange begin;
  TextRange end;
};

// Unset when the byte is on neither, or when there is but one.
std::optional<Borders> borders_at(const ParsedInput& input, std::size_t byte) {
  const std::size_t line = input.source().line_at(byte);
  const RecordId record = input.line(line).record;
  switch (input.line(line).role) {
    case LineRole::ModuleHeader:
    case LineRole::ModuleEnd:
    case LineRole::GeometryStart:
    case LineRole::GeometryEnd:
    case LineRole::Keyword:
    case LineRole::BlockEnd:
      break;
    default:
      return std::nullopt;
  }
  const std::size_t end = input.end_line(record);
  if (end == 0) {
    return std::nullopt;
  }
  const TextRange last = input.source().content(end);
  const std::size_t comment = input.comment_range(end).begin;
  const bool has_comment = !input.comment_range(end).empty();
  return Borders{input.keyword_range(record),
                 has_comment ? input.source().trimmed({last.begin, comment}) : last};
}

}  // namespace

Json document_symbols(const View& view, const Json&) {
  return SymbolMaker(view).run();
}

Json folding_ranges(const View& view, const Json&) {
  const ParsedInput& input = view.input();
  const LineTable& lines = view.document.lines();
  Json list = Json::array();
  for (const RecordId& block : blocks_of(input)) {
    const std::size_t end = input.end_line(block);
    const std::size_t last = end == 0 ? input.last_line(block) : end - 1;  // the end stays in sight
    const std::size_t begin_line =
        lines.line_at(input.source().line_range(input.first_line(block)).begin);
    const std::size_t end_line = lines.line_at(input.source().line_range(last).begin);
    if (end_line > begin_line) {
      list.push_back({{"startLine", begin_line}, {"endLine", end_line}, {"kind", "region"}});
    }
  }
  return list;
}

namespace {

// From the word outwards; each range holds the one before it.
std::vector<TextRange> growing_ranges(const ParsedInput& input, std::size_t byte) {
  const input::bdf::SourceText& source = input.source();
  const std::size_t line = source.line_at(byte);
  const RecordId record = input.line(line).record;
  const TextRange content = source.content(line);
  TextRange word = {byte, byte};
  constexpr std::string_view ends = " \t,/=";
  const std::string_view text = source.text();
  while (word.begin > content.begin && ends.find(text[word.begin - 1]) == std::string_view::npos) {
    --word.begin;
  }
  while (word.end < content.end && ends.find(text[word.end]) == std::string_view::npos) {
    ++word.end;
  }
  std::vector<TextRange> ranges = {word, content};
  if (record.kind == RecordKind::Child) {
    ranges.push_back(input.range(record));
  }
  if (record.kind == RecordKind::Child || record.kind == RecordKind::Entry) {
    ranges.push_back(input.range(RecordId::of_entry(record.index, record.entry)));
    ranges.push_back(input.range(RecordId::of_module(record.index)));
  } else if (record.kind == RecordKind::Atom || record.kind == RecordKind::GeometryLine) {
    ranges.push_back(input.range(RecordId::of(RecordKind::Geometry, 0)));
  } else if (record.kind == RecordKind::Module || record.kind == RecordKind::Geometry) {
    ranges.push_back(input.range(record));
  }
  ranges.push_back({0, text.size()});
  return ranges;
}

Json selection(const View& view, std::size_t byte) {
  std::vector<TextRange> chosen;
  for (const TextRange& range : growing_ranges(view.input(), byte)) {
    const bool holds = range.begin <= byte && byte <= range.end;
    const bool grows = chosen.empty() || (range.begin <= chosen.back().begin &&
                                          range.end >= chosen.back().end && range != chosen.back());
    if (holds && grows) {
      chosen.push_back(range);
    }
  }
  Json json;
  for (auto range = chosen.rbegin(); range != chosen.rend(); ++range) {
    Json inner = {{"range", view.range(*range)}};
    if (!json.is_null()) {
      inner["parent"] = std::move(json);
    }
    json = std::move(inner);
  }
  return json;
}

}  // namespace

Json selection_ranges(const View& view, const Json& params) {
  const Json& positions = member(params, "positions");
  if (!positions.is_array()) {
    throw RequestError(ErrorCode::InvalidParams, "'positions' is no list");
  }
  Json list = Json::array();
  for (const Json& position : positions) {
    list.push_back(selection(view, view.byte_at(position)));
  }
  return list;
}

Json highlights(const View& view, const Json& params) {
  const auto borders = borders_at(view.input(), view.byte_at(member(params, "position")));
  if (!borders) {
    return nullptr;
  }
  return {{{"range", view.range(borders->begin)}}, {{"range", view.range(borders->end)}}};
}

// From an end to what it ends, and from what is wrong to what has to do with it.
Json definition(const View& view, const Json& params) {
  const std::size_t byte = view.byte_at(member(params, "position"));
  Json list = Json::array();
  const auto add = [&](const TextRange& range) {
    list.push_back({{"uri", view.document.uri()}, {"range", view.range(range)}});
  };
  const auto borders = borders_at(view.input(), byte);
  if (borders && byte >= borders->end.begin && byte <= borders->end.end) {
    add(borders->begin);
  }
  for (const input::bdf::Diagnostic& finding : view.findings()) {
    if (finding.range && finding.range->begin <= byte && byte <= finding.range->end) {
      for (const input::bdf::RelatedRange& related : finding.related) {
        add(related.range);
      }
    }
    for (const input::bdf::RelatedRange& related : finding.related) {
      if (finding.range && related.range.begin <= byte && byte <= related.range.end) {
        add(*finding.range);
      }
    }
  }
  return list;
}

}  // namespace kelp::app::lsp
