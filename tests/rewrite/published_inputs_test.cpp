// Generated edits of published inputs, where they are at hand, as they are, with Windows line ends,
// and with a byte order mark. A value that changes is one line; what is there already is none; and
// nothing that has to do with the edit is refused.

#include <algorithm>
#include <functional>

#include "kelp/core/text.hpp"
#include "rewrite/edit_table.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"

namespace kelp::input::bdf {
namespace {

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// The number of lines between the first and the last one that differ.
std::size_t changed_lines(std::string_view before, std::string_view after) {
  const auto old_lines = lines_of(before);
  const auto new_lines = lines_of(after);
  const std::size_t both = std::min(old_lines.size(), new_lines.size());
  std::size_t head = 0;
  while (head < both && old_lines[head] == new_lines[head]) {
    ++head;
  }
  std::size_t tail = 0;
  while (tail < both - head && *(old_lines.rbegin() + static_cast<std::ptrdiff_t>(tail)) ==
                                   *(new_lines.rbegin() + static_cast<std::ptrdiff_t>(tail))) {
    ++tail;
  }
  return std::max(old_lines.size(), new_lines.size()) - head - tail;
}

std::string with_windows_line_ends(const std::string& text) {
  std::string changed;
  for (const char byte : text) {
    if (byte == '\n' && !changed.ends_with('\r')) {
      changed += '\r';
    }
    changed += byte;
  }
  return changed;
}

// A sanitizer looks at the code that an edit runs through, which is that of the inputs before it.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr std::size_t inputs_to_step = 5;
#else
constexpr std::size_t inputs_to_step = 1;
#endif
#else
constexpr std::size_t inputs_to_step = 1;
#endif

class PublishedEdits : public ::testing::Test {
 protected:
  void for_each_input(const std::function<void(const ParsedInput&)>& use) {
    const auto files = test::published_inputs();
    if (files.empty()) {
      GTEST_SKIP() << "no published inputs; set KELP_CORPUS_DIR to their folder";
    }
    for (std::size_t i = 0; i < files.size(); i += inputs_to_step) {
      const auto& file = files[i];
      const std::string text = test::file_bytes(file);
      for (const std::string& variant :
           {text, with_windows_line_ends(text), "\xEF\xBB\xBF" + text}) {
        SCOPED_TRACE(test::utf8(file));
        use(ParsedInput(variant, shipped_schema()));
      }
    }
  }

  Rewrite expect_edit(const ParsedInput& input, const Edit& edit, std::size_t lines) {
    ++edits_;
    const std::string_view before = input.source().text();
    Rewrite rewrite = edit_input(input, edit);
    EXPECT_EQ(messages_of(rewrite), "");
    EXPECT_LE(changed_lines(before, rewrite.text), lines) << rewrite.text;
    EXPECT_EQ(apply_edits(before, rewrite.edits), rewrite.text);
    return rewrite;
  }

  static Edit assignment(const ValuePath& path, std::vector<std::string> values) {
    Edit edit;
    edit.assignments.push_back({path, std::move(values)});
    return edit;
  }

  static std::string another_value(const EntrySchemaInfo& info, std::string_view old) {
    for (const std::string& value : info.allowed) {
      if (!same_text(value, old)) {
        return value;
      }
    }
    if (!info.allowed.empty()) {
      return info.allowed.front();
    }
    if (info.value_type == "integer") {
      return old == "7" ? "8" : "7";
    }
    return info.value_type == "string" ? "xyzzy" : "0.125";
  }

  static bool same_text(std::string_view left, std::string_view right) {
    return core::text::equals_ignoring_case(left, right);
  }

  std::size_t edits_ = 0;
};

void for_each_value(const ParsedInput& input,
                    const std::function<void(const RecordId&, const ValuePath&)>& use) {
  const PathIndex paths(input.data());
  for (std::size_t m = 0; m < input.data().modules.size(); ++m) {
    const std::vector<ModuleEntry>& entries = input.data().modules[m].entries;
    for (std::size_t e = 0; e < entries.size(); ++e) {
      const RecordId record = RecordId::of_entry(m, e);
      const PathResult path = parse_path(paths.path_of(record));
      // Of several entries of one name the first has the path.
      if (entries[e].known && path.path && find_record(input, *path.path) == record) {
        use(record, *path.path);
      }
    }
  }
}

TEST_F(PublishedEdits, AValueThatIsThereAlreadyChangesNothing) {
  for_each_input([&](const ParsedInput& input) {
    for_each_value(input, [&](const RecordId& record, const ValuePath& path) {
      const ModuleEntry& entry = *entry_or_child(input.data(), record);
      if (entry.kind != EntryValueKind::Flag && entry.kind != EntryValueKind::NestedBlock) {
        expect_edit(input, assignment(path, value_lines(input.data(), input.schema(), record)), 0);
      }
    });
  });
}

TEST_F(PublishedEdits, AValueThatChangesIsOneLine) {
  for_each_input([&](const ParsedInput& input) {
    for_each_value(input, [&](const RecordId& record, const ValuePath& path) {
      const auto fields = input.fields(record);
      const auto info = input.schema().entry_info(path.module, path.name);
      if (fields.size() != 1 || !info || info->kind == EntryValueKind::CountedRows ||
          info->kind == EntryValueKind::TerminatedBlock) {
        return;
      }
      const std::string_view old = input.source().text_of(fields.front());
      const std::string value = another_value(*info, old);
      const Rewrite rewrite = expect_edit(input, assignment(path, {value}), 1);
      // Of some values there is only one.
      EXPECT_EQ(rewrite.edits.size(), same_text(value, old) ? 0U : 1U) << to_string(path);
    });
  });
}

TEST_F(PublishedEdits, AnEntryThatGoesOrComesConcernsItsLinesOnly) {
  for_each_input([&](const ParsedInput& input) {
    for_each_value(input, [&](const RecordId& record, const ValuePath& path) {
      Edit edit;
      edit.unset.push_back(path);
      const Rewrite rewrite = edit_input(input, edit);
      EXPECT_EQ(rewrite.error, "");
      EXPECT_LT(rewrite.text.size(), input.source().text().size()) << to_string(path);
      // Others may have needed it, which is said; what goes is found in its own lines.
      for (const Diagnostic& loss : rewrite.losses) {
        EXPECT_EQ(loss.code, "bdf.missing_required_entry") << loss.message;
      }
      const auto count = std::count(rewrite.text.begin(), rewrite.text.end(), '\n');
      const auto before =
          std::count(input.source().text().begin(), input.source().text().end(), '\n');
      EXPECT_LE(static_cast<std::size_t>(before - count),
                input.last_line(record) - input.first_line(record) + 8);
    });
    ValuePath scf;
    scf.module = "scf";
    scf.name = "maxiter";
    if (input.data().find_module("scf") != nullptr) {
      expect_edit(input, assignment(scf, {"333"}), 2);
    }
  });
}

TEST_F(PublishedEdits, ChargeAndMultiplicityCanBeSet) {
  for_each_input([&](const ParsedInput& input) {
    Edit edit;
    edit.charge = 5;
    const Rewrite rewrite = edit_input(input, edit);
    const bool is_one_system = count_modules(input.data(), input.schema(), "compass") < 2;
    if (is_one_system || rewrite.error.empty()) {
      EXPECT_EQ(messages_of(rewrite), "");
      EXPECT_NE(rewrite.text, input.source().text());
    }
    edit.charge.reset();
    edit.multiplicity = 6;
    const std::string error = edit_input(input, edit).error;
    EXPECT_TRUE(error.empty() || error.find("more than one") != std::string::npos) << error;
  });
}

TEST_F(PublishedEdits, AModuleIsAddedWithABlankLineBeforeIt) {
  for_each_input([&](const ParsedInput& input) {
    ValuePath path;
    path.module = "nmr";
    path.name = "igiao";
    if (input.data().find_module("nmr") == nullptr) {
      expect_edit(input, assignment(path, {"1"}), 6);
    }
  });
}

TEST_F(PublishedEdits, AtomsCanBeMoved) {
  for_each_input([&](const ParsedInput& input) {
    const Molecule molecule = molecule_of(input);
    // In some listings dots stand for what was left out.
    const bool left_out = input.source().text().find("\n...") != std::string_view::npos;
    if (molecule.atoms.empty() || left_out) {
      return;
    }
    Edit edit;
    edit.geometry = NewGeometry{molecule.atoms, molecule.unit, std::nullopt};
    const Rewrite same = edit_input(input, edit);
    if (same.error.find("more than one geometry") != std::string::npos) {
      return;
    }
    EXPECT_EQ(same.text, input.source().text());
    for (AtomRecord& atom : edit.geometry->atoms) {
      atom.x += 0.015625;
    }
    const Rewrite moved = edit_input(input, edit);
    EXPECT_EQ(messages_of(moved), "");
    EXPECT_EQ(lines_of(moved.text).size(), lines_of(same.text).size());
    EXPECT_GE(moved.edits.size(), molecule.atoms.size());
  });
}

TEST_F(PublishedEdits, EveryInputCanBeLaidOutOnce) {
  for_each_input([&](const ParsedInput& input) {
    const Rewrite rewrite = format_input(input);
    EXPECT_EQ(messages_of(rewrite), "");
    const Rewrite again = format_input(ParsedInput(rewrite.text, shipped_schema()));
    EXPECT_EQ(again.text, rewrite.text);
  });
}

}  // namespace
}  // namespace kelp::input::bdf
