// What is said of a word depends on what it is: the record at the byte tells, and for a word of a
// value the entry that it belongs to.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "lsp/explanation.hpp"
#include "lsp/features.hpp"
#include "lsp/molecule_text.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::ExplainedThing;
using input::bdf::Explanation;
using input::bdf::LineInfo;
using input::bdf::LineRole;
using input::bdf::ParsedInput;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

/// Something to show, and what it is about.
struct Hover {
  std::string text;
  TextRange range;
};

class HoverFinder {
 public:
  HoverFinder(const ParsedInput& input, std::size_t byte, input::bdf::Language language)
      : input_(input),
        byte_(byte),
        language_(language),
        line_(input.source().line_at(byte)),
        info_(input.line(line_)) {}

  std::optional<Hover> run() const {
    switch (info_.role) {
      case LineRole::Header:
        return about_header();
      case LineRole::ModuleHeader:
      case LineRole::ModuleEnd:
        return about(input_.data().modules[info_.record.index].name, ExplainedThing::Module,
                     input_.source().content(line_));
      case LineRole::GeometryStart:
      case LineRole::GeometryEnd:
        return about_geometry(info_.record);
      case LineRole::Atom:
        return about_atom();
      case LineRole::Keyword:
      case LineRole::BlockEnd:
      case LineRole::Value:
        return about_entry();
      default:
        return std::nullopt;
    }
  }

 private:
  std::optional<Hover> about(const std::string& name, ExplainedThing thing,
                             const TextRange& range) const {
    for (const Explanation& found : explain(name, input_.schema(), language_)) {
      if (found.thing == thing) {
        return Hover{markdown_of(found), range};
      }
    }
    return std::nullopt;
  }

  std::string text(const TextRange& range) const {
    return std::string(input_.source().text_of(range));
  }

  bool is_at(const TextRange& range) const { return range.begin <= byte_ && byte_ <= range.end; }

  std::optional<Hover> about_header() const {
    const RecordId record = input_.record_at(byte_);
    if (record.kind != RecordKind::EasyToken) {
      return std::nullopt;
    }
    const auto parts = input_.specification_ranges(record.index);
    for (const auto& [range, thing] : {std::pair{parts.basis, ExplainedThing::BasisSet},
                                       std::pair{parts.functional, ExplainedThing::Functional},
                                       std::pair{parts.method, ExplainedThing::Method}}) {
      if (!range.empty() && is_at(range)) {
        return about(text(range), thing, range);
      }
    }
    const auto token = input_.token_ranges(record.index);
    std::optional<Hover> found =
        about("easy." + text(token.key), ExplainedThing::EasyKeyword, token.whole);
    if (found && !token.value.empty() && is_at(token.value)) {
      return about_value("easy." + text(token.key), token.value);
    }
    return found;
  }

  std::string path_of_record() const {
    const input::bdf::BDFData& data = input_.data();
    std::string path =
        module_of(data, info_.record)->name + '.' + entry_of(data, info_.record)->name;
    if (info_.record.kind == RecordKind::Child) {
      path += '.' + entry_or_child(data, info_.record)->name;
    }
    return path;
  }

  std::optional<Hover> about_entry() const {
    if (entry_of(input_.data(), info_.record) == nullptr) {
      return std::nullopt;
    }
    const std::string path = path_of_record();
    const TextRange keyword = input_.keyword_range(info_.record);
    if (info_.role != LineRole::Value && is_at(keyword)) {
      if (std::optional<Hover> geometry = about_geometry(info_.record)) {
        return geometry;
      }
    }
    for (const TextRange& field : input_.fields(info_.record)) {
      if (is_at(field)) {
        std::optional<Hover> atom = about_atom();
        return atom ? atom : about_value(path, field);
      }
    }
    return about_path(path, input_.source().content(line_));
  }

  std::optional<Hover> about_path(const std::string& path, const TextRange& range) const {
    const std::vector<Explanation> found = explain(path, input_.schema(), language_);
    return found.empty() ? std::nullopt : std::optional(Hover{markdown_of(found.front()), range});
  }

  // The meaning of the value comes first; a name of a list has words of its own.
  std::optional<Hover> about_value(const std::string& path, const TextRange& range) const {
    std::optional<Hover> hover = about_path(path, range);
    if (!hover) {
      return hover;
    }
    const std::string value = text(range);
    const Explanation whole = explain(path, input_.schema(), language_).front();
    for (const input::bdf::ValueMeaning& item : whole.values) {
      if (core::text::to_lower(value) == item.value && !item.meaning.empty()) {
        hover->text = "**" + item.value + "**: " + item.meaning + "\n\n" + hover->text;
      }
    }
    for (const auto& [entry, thing] : {std::pair{"scf.dft", ExplainedThing::Functional},
                                       std::pair{"compass.basis", ExplainedThing::BasisSet}}) {
      if (path == entry) {
        if (std::optional<Hover> named = about(value, thing, range)) {
          return named;
        }
      }
    }
    return hover;
  }

  std::optional<Hover> about_geometry(const RecordId& record) const {
    for (const GeometryText& geometry : geometry_texts(input_)) {
      if (geometry.geometry == record) {
        return Hover{geometry.text, input_.source().content(line_)};
      }
    }
    return std::nullopt;
  }

  std::optional<Hover> about_atom() const {
    std::optional<std::string> found = atom_text(input_, line_);
    return found ? std::optional(Hover{std::move(*found), input_.source().content(line_)})
                 : std::nullopt;
  }

  const ParsedInput& input_;
  std::size_t byte_;
  input::bdf::Language language_;
  std::size_t line_;
  LineInfo info_;
};

}  // namespace

Json hover(const View& view, const Json& params) {
  const std::size_t byte = view.byte_at(member(params, "position"));
  const std::optional<Hover> found = HoverFinder(view.input(), byte, view.settings.language).run();
  if (!found) {
    return nullptr;
  }
  return {{"contents", {{"kind", "markdown"}, {"value", found->text}}},
          {"range", view.range(found->range)}};
}

}  // namespace kelp::app::lsp
