#include <utility>

#include "kelp/input/bdf/molecule.hpp"
#include "lsp/features.hpp"
#include "lsp/molecule_text.hpp"

namespace kelp::app::lsp {

Json inlay_hints(const View& view, const Json& params) {
  Json list = Json::array();
  if (!view.settings.inlay_hints) {
    return list;
  }
  const input::bdf::TextRange wanted =
      view.document.text_range(member(params, "range"), view.client.unit);
  for (const GeometryText& geometry : geometry_texts(view.input())) {
    const std::size_t at = view.input().keyword_range(geometry.geometry).end;
    if (at >= wanted.begin && at <= wanted.end) {
      list.push_back({{"position", view.document.position(at, view.client.unit)},
                      {"label", geometry.text},
                      {"paddingLeft", true}});
    }
  }
  return list;
}

// Atoms and lines, for a view of the molecule beside the text.
Json molecule(const View& view, const Json&) {
  const input::bdf::Molecule found = molecule_of(view.input());
  Json lines = Json::array();
  for (const input::bdf::AtomRecord& atom : found.atoms) {
    const std::size_t line = atom.location ? atom.location->line : 0;
    lines.push_back(view.document.lines().line_at(view.input().source().line_range(line).begin));
  }
  return {{"xyz", found.atoms.empty() ? "" : write_xyz(found)}, {"lines", std::move(lines)}};
}

}  // namespace kelp::app::lsp
