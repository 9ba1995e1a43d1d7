#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checked_input.hpp"

namespace kelp::app {

/// What an input holds, in short. Lines are counted from 1. Both forms of output are made from this
/// record.
struct Outline {
  struct Word {
    std::string text;
    std::string canonical;
    std::string category;
    bool known = false;
    std::size_t line = 0;
  };
  struct Value {
    std::string text;
    std::string path;
    std::size_t line = 0;
  };
  struct Geometry {
    std::size_t atoms = 0;
    std::string formula;
    std::size_t line = 0;
  };
  struct Entry {
    std::string name;
    std::string path;
    std::string kind;
    bool known = false;
    std::size_t line = 0;
    std::vector<std::string> values;  ///< lines, trimmed
    std::vector<Entry> children;
  };
  struct Module {
    std::string name;
    std::string path;
    bool known = false;
    bool terminated = false;
    std::size_t line = 0;
    std::vector<Entry> entries;  ///< without remarks
  };

  std::string file;
  std::string_view mode;  ///< easy, module or mixed
  std::optional<std::string> script_name;
  std::vector<Word> header;
  std::optional<Value> charge;
  std::optional<Value> multiplicity;
  std::optional<Geometry> geometry;
  std::vector<Module> modules;
};

Outline make_outline(const CheckedInput& input);

/// Returns an outline as people like to read it.
std::string outline_text(const Outline& outline);

/// Returns outlines as one JSON document.
std::string outline_json(const std::vector<Outline>& outlines);

}  // namespace kelp::app
