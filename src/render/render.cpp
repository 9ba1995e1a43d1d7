// Writes a document as text. What the parser kept verbatim goes out as it came in; what the schema
// knows goes out in one canonical layout: keywords at two blanks, their values at four.

#include "render/render.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "model/script_name.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t indent_step = 2;

// About how long a document is as text, so that the text is moved seldom while it grows.
std::size_t usual_size(const BDFData& data) {
  constexpr std::size_t of_atom = 48;
  constexpr std::size_t of_entry = 24;
  constexpr std::size_t of_module = 24;
  std::size_t size = data.atoms.size() * of_atom;
  for (const Module& module : data.modules) {
    size += of_module + module.entries.size() * of_entry;
  }
  return size;
}

bool is_verbatim(const ModuleEntry& entry) {
  return entry.kind == EntryValueKind::Raw || !entry.known;
}

class Renderer {
 public:
  Renderer(const BDFData& data, const InputSchema& schema) : data_(data), schema_(schema) {}

  std::string run() {
    out_.reserve(usual_size(data_));
    if (data_.mode == InputMode::Module) {
      begin_module_input();
    } else {
      begin_easy_input();
    }
    write_body();
    out_.resize(out_.find_last_not_of("\r\n") + 1);
    out_ += '\n';
    return std::move(out_);
  }

 private:
  void write(std::string_view line) {
    out_ += line;
    out_ += '\n';
  }

  void write(const Lines& lines) {
    for (const std::string& line : lines) {
      write(line);
    }
  }

  void write_in_lower_case(std::string_view line) {
    const std::size_t begin = out_.size();
    write(line);
    for (std::size_t i = begin; i < out_.size(); ++i) {
      out_[i] = core::text::to_lower(out_[i]);
    }
  }

  void write_indented(std::size_t indent, std::string_view line) {
    out_.append(indent, ' ');
    write(line);
  }

  void begin_easy_input() {
    write("#!" + normalize_script_name(data_.script_name));
    write(data_.leading_lines);
    write_tokens();
    write_geometry();
    separate_from_body();
  }

  void begin_module_input() {
    write(data_.leading_lines);
    if (!data_.has_geometry) {
      return;
    }
    geometry_waits_ = true;
    if (data_.find_module(compass_module) == nullptr) {
      Module compass;
      compass.name = compass_module;
      compass.known = schema_.is_known_module(compass.name);
      write_module(compass, true);
      separate_from_body();
    }
  }

  void separate_from_body() {
    if (!data_.statements.empty() || !data_.modules.empty()) {
      out_ += '\n';
    }
  }

  void write_tokens() {
    std::string_view separator;
    for (const EasyToken& token : data_.easy_tokens) {
      out_ += separator;
      out_ += token.canonical.empty() ? token.text : token.canonical;
      separator = " ";
    }
    out_ += "\n\n";
  }

  void write_geometry() {
    write("Geometry");
    for (const AtomRecord& atom : data_.atoms) {
      out_ += "  ";
      out_ += atom.element;
      for (const double coordinate : {atom.x, atom.y, atom.z}) {
        out_ += ' ';
        append_coordinate(out_, coordinate);
      }
      out_ += '\n';
    }
    write(data_.geometry_lines);
    write("End Geometry");
  }

  void write_body() {
    if (data_.statements.empty()) {
      for (const Module& module : data_.modules) {
        write_module(module, takes_geometry(module));
      }
      write(data_.free_lines);
      return;
    }
    for (const Statement& statement : data_.statements) {
      if (statement.kind != StatementKind::Module) {
        write(statement.lines);
      } else if (statement.module_index < data_.modules.size()) {
        const Module& module = data_.modules[statement.module_index];
        write_module(module, takes_geometry(module));
      }
    }
  }

  // The geometry of a module input goes into the first compass module that has none of its own.
  bool takes_geometry(const Module& module) const {
    return geometry_waits_ && schema_.canonical_module(module.name) == compass_module &&
           module.find_entry(geometry_entry) == nullptr;
  }

  void write_module(const Module& module, bool with_geometry) {
    const bool verbatim_header = !module.known && !module.header_line.empty();
    if (verbatim_header) {
      write(module.header_line);
    } else {
      out_ += '$';
      write_in_lower_case(module.name);
    }
    if (with_geometry) {
      write_geometry();
      geometry_waits_ = false;
    }
    for (const ModuleEntry& entry : module.entries) {
      write_entry(entry, indent_step);
    }
    write(module.trailing_lines);
    const bool verbatim_end = !module.known && !module.end_line.empty();
    write(verbatim_end ? std::string_view(module.end_line) : "$end");
  }

  void write_entry(const ModuleEntry& entry, std::size_t indent) {
    if (is_verbatim(entry)) {
      if (!entry.raw_line.empty()) {
        write(entry.raw_line);
      }
      write(entry.values);
      return;
    }
    out_.append(indent, ' ');
    write_in_lower_case(entry.name);
    if (entry.kind == EntryValueKind::NestedBlock) {
      for (const ModuleEntry& child : entry.children) {
        write_entry(child, indent + indent_step);
      }
    } else {
      write_values(entry, indent + indent_step);
    }
    write_terminator(entry, indent);
  }

  void write_values(const ModuleEntry& entry, std::size_t indent) {
    for (const std::string& value : entry.values) {
      const std::string_view line = core::text::trim_view(value);
      write_indented(line.empty() ? 0 : indent, line);
    }
  }

  void write_terminator(const ModuleEntry& entry, std::size_t indent) {
    const bool is_block =
        entry.kind == EntryValueKind::NestedBlock || entry.kind == EntryValueKind::TerminatedBlock;
    if (is_block && !core::text::trim_view(entry.terminator).empty()) {
      write_indented(indent, entry.terminator);
    }
  }

  const BDFData& data_;
  const InputSchema& schema_;
  bool geometry_waits_ = false;
  std::string out_;
};

}  // namespace

std::string render_document(const BDFData& data, const InputSchema& schema) {
  return Renderer(data, schema).run();
}

}  // namespace kelp::input::bdf
