#include "describe.hpp"

#include <array>
#include <cstdio>
#include <string_view>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

std::string in_quotes(std::string_view text) {
  std::string result = " <";
  for (const char byte : text) {
    result += byte == '\n' ? std::string("\\n") : std::string(1, byte);
  }
  return result + '>';
}

std::string number(double value) {
  std::array<char, 400> text;
  std::snprintf(text.data(), text.size(), " %.10f", value);
  return text.data();
}

bool is_verbatim(const ModuleEntry& entry) {
  return entry.kind == EntryValueKind::Raw || !entry.known;
}

class Description {
 public:
  std::string of(const BDFData& data) {
    line(data.mode == InputMode::Module ? "module input" : "easy input");
    line("script" + in_quotes(data.script_name));
    lines("leading", data.leading_lines);
    for (const EasyToken& token : data.easy_tokens) {
      add(token);
    }
    if (data.has_geometry) {
      line("geometry");
    }
    for (const AtomRecord& atom : data.atoms) {
      line("atom" + in_quotes(atom.element) + number(atom.x) + number(atom.y) + number(atom.z));
    }
    lines("geometry line", data.geometry_lines);
    for (const Module& module : data.modules) {
      add(module);
    }
    for (const Statement& statement : data.statements) {
      line("statement " + std::to_string(static_cast<int>(statement.kind)) + ' ' +
           std::to_string(statement.module_index));
      lines("  line", statement.lines);
    }
    lines("free", data.free_lines);
    return std::move(text_);
  }

 private:
  void line(const std::string& text) { text_ += text + '\n'; }

  void lines(const std::string& what, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      line(what + in_quotes(text));
    }
  }

  void add(const EasyToken& token) {
    std::string text = "token";
    for (const std::string* part : {&token.canonical, &token.key, &token.value, &token.category,
                                    &token.method, &token.functional, &token.basis}) {
      text += in_quotes(*part);
    }
    line(text + (token.known ? " known" : ""));
  }

  void add(const Module& module) {
    line("module" + in_quotes(module.name) + (module.known ? " known" : ""));
    if (!module.known) {
      line("  header" + in_quotes(module.header_line) + " end" + in_quotes(module.end_line));
    }
    for (const ModuleEntry& entry : module.entries) {
      add(entry, "  ");
    }
    lines("  trailing", module.trailing_lines);
  }

  void add(const ModuleEntry& entry, const std::string& indent) {
    line(indent + "entry" + in_quotes(entry.name) + (entry.known ? " known" : "") + " kind " +
         std::to_string(static_cast<int>(entry.kind)) + in_quotes(entry.terminator));
    if (is_verbatim(entry)) {
      line(indent + "  as read" + in_quotes(entry.raw_line));
      lines(indent + "  value", entry.values);
      return;
    }
    for (const std::string& value : entry.values) {
      line(indent + "  value" + in_quotes(core::text::trim_view(value)));
    }
    for (const ModuleEntry& child : entry.children) {
      add(child, indent + "  ");
    }
  }

  std::string text_;
};

}  // namespace

std::string describe(const BDFData& data) {
  return Description().of(data);
}

}  // namespace kelp::input::bdf
