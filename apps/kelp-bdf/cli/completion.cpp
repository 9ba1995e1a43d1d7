// The shells ask the program itself what may stand where the cursor is. It goes through the words
// as the parser of the command line would, up to the last one; what may stand there is told by the
// type that the help shows of an option: small letters are the very words, capitals say what is
// meant.

#include "cli/completion.hpp"

#include <algorithm>
#include <optional>

#include "cli/manual.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::app {
namespace {

using input::bdf::NameLists;

constexpr std::string_view header = "easy";
constexpr std::size_t widest_meaning = 60;

/// Gathers the candidates that begin as the word does.
class Gatherer {
 public:
  Gatherer(std::string_view word, Session& session) : word_(word), session_(session) {}

  /// @param type  what the help shows: "FILE|DIR|-", "CODE,...", "human|concise"
  void add_type(std::string_view type) {
    while (!type.empty()) {
      const std::size_t end = std::min(type.find('|'), type.size());
      add_kind(type.substr(0, end));
      type.remove_prefix(std::min(type.size(), end + 1));
    }
  }

  void add(const std::string& text, const std::string& meaning) {
    if (text.starts_with(word_)) {
      found_.list.push_back({text, core::unicode::fitted(meaning, widest_meaning)});
    }
  }

  Candidates take() {
    const auto by_text = [](const Candidate& left, const Candidate& right) {
      return left.text < right.text;
    };
    std::stable_sort(found_.list.begin(), found_.list.end(), by_text);
    return std::move(found_);
  }

 private:
  void add_kind(std::string_view kind) {
    if (kind.find("FILE") != std::string_view::npos || kind == "DIR") {
      found_.files = true;
    } else if (kind == "CODE,...") {
      add_codes(word_.substr(0, word_.rfind(',') + 1), true);
    } else if (kind == "CODE") {
      add_codes({}, false);
    } else if (kind == "MODULE") {
      add_modules("");
    } else if (kind == "KEYWORD" || kind == "PATH") {
      add_paths("");
    } else if (kind == "PATH=VALUE") {
      add_assignments(false);
    } else if (kind == "PATH=VALUES") {
      add_assignments(true);
    } else if (kind != "-" && core::text::to_lower(kind) == kind) {
      add(std::string(kind), "");
    }
  }

  void add_codes(const std::string& before, bool with_themes) {
    std::string theme;
    for (const input::bdf::FindingText& text : input::bdf::finding_texts()) {
      const std::string code(text.code);
      const std::string prefix = code.substr(0, code.find('.') + 1);
      if (with_themes && prefix == "schema.") {
        continue;
      }
      if (with_themes && prefix != theme) {
        theme = prefix;
        add(before + theme + '*', "all of these");
      }
      add(before + code, std::string(text.meaning));
    }
  }

  const Session::Settings& settings() { return session_.settings(); }

  void add_modules(const std::string& behind) {
    const input::bdf::InputSchema& schema = *settings().schema;
    const NameLists names(schema);
    for (const std::string& module : names.modules()) {
      add(module + behind, module_summary(schema, module, settings().language));
    }
    add(std::string(header) + behind, "the header");
  }

  // "scf." and "easy.", then what is in them; a number behind the module's name stays.
  void add_paths(const std::string& behind) {
    const std::string_view path = word_;
    const std::size_t dot = path.find('.');
    if (dot == std::string_view::npos) {
      add_modules(".");
      add("geometry" + behind, "the atoms");
      return;
    }
    const std::string before(path.substr(0, dot + 1));
    const std::string module(path.substr(0, path.find_first_of("#.")));
    const input::bdf::InputSchema& schema = *settings().schema;
    const NameLists names(schema);
    if (module == header) {
      for (const std::string& name : names.easy_keywords()) {
        add(before + name + behind, easy_keyword_summary(schema, name, settings().language));
      }
      for (const char* const part : {"method", "functional", "basis"}) {
        add(before + part + behind, "part of the method specification");
      }
    }
    for (const std::string& name : names.entries(module)) {
      add(before + name + behind, entry_summary(schema, module, name, settings().language));
    }
  }

  // Of several values, with commas between them, it is the last one that is not complete.
  void add_assignments(bool has_values) {
    const std::size_t equals = word_.find('=');
    if (equals == std::string::npos) {
      add_paths("=");
      return;
    }
    const std::size_t comma = has_values ? word_.rfind(',') : std::string::npos;
    const bool is_first = comma == std::string::npos || comma < equals;
    const std::string before = word_.substr(0, (is_first ? equals : comma) + 1);
    const std::string module = word_.substr(0, word_.find_first_of("#.="));
    const std::size_t dot = word_.find('.');
    if (dot != std::string::npos && dot < equals) {
      add_values(before, module, word_.substr(dot + 1, equals - dot - 1));
    }
  }

  void add_values(const std::string& before, const std::string& module, const std::string& name) {
    const input::bdf::InputSchema& schema = *settings().schema;
    if (module == header) {
      add_parts(before, name);
      return;
    }
    const auto meanings = entry_value_meanings(schema, module, name, settings().language);
    for (const input::bdf::ValueMeaning& value : meanings) {
      add(before + value.value, value.meaning);
    }
    if (meanings.empty()) {
      if (const auto entry = schema.entry_info(module, name)) {
        for (const std::string& value : entry->allowed) {
          add(before + value, "");
        }
      }
    }
  }

  void add_parts(const std::string& before, const std::string& part) {
    const NameLists names(*settings().schema);
    const std::vector<std::string> none;
    for (const std::string& name : part == "method"       ? names.methods()
                                   : part == "functional" ? names.functionals()
                                   : part == "basis"      ? names.basis_sets()
                                                          : none) {
      add(before + name, "");
    }
  }

  std::string word_;
  Session& session_;
  Candidates found_;
};

/// Where the words before the last one lead.
struct Standing {
  const CLI::App* command = nullptr;
  const CLI::Option* waiting = nullptr;  // the option whose value comes next
  std::size_t positionals = 0;           // that were given
  bool options_ended = false;
};

bool takes_value(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

void take_word(const std::string& word, Standing& at) {
  if (at.waiting != nullptr) {
    at.waiting = nullptr;
  } else if (word == "--" && !at.options_ended) {
    at.options_ended = true;
  } else if (word.starts_with('-') && word != "-" && !at.options_ended) {
    const CLI::Option* const option = at.command->get_option_no_throw(word);
    at.waiting = option != nullptr && takes_value(*option) ? option : nullptr;
  } else if (const CLI::App* const child =
                 at.positionals > 0 || at.options_ended ? nullptr : child_of(*at.command, word)) {
    at.command = child;
  } else {
    ++at.positionals;
  }
}

void add_options(const CLI::App& command, Gatherer& gatherer) {
  for (const CLI::Option* const option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      gatherer.add("--" + name, option->get_description());
    }
    for (const std::string& name : option->get_snames()) {
      gatherer.add('-' + name, option->get_description());
    }
  }
}

// The last positional that a command has may be given again and again.
void add_positional(const Standing& at, Gatherer& gatherer) {
  if (at.positionals == 0) {
    for (const CLI::App* const child : at.command->get_subcommands({})) {
      gatherer.add(child->get_name(), child->get_description());
    }
  }
  std::size_t left = at.positionals;
  for (const CLI::Option* const option : own_options(*at.command)) {
    const bool repeats = option->get_items_expected_max() > 1;
    if (option->get_positional() && (left == 0 || repeats)) {
      gatherer.add_type(option->get_type_name());
      return;
    }
    left -= option->get_positional() ? 1 : 0;
  }
}

Candidates complete_value(const CLI::Option& option, const std::string& before,
                          const std::string& value, Session& session) {
  Gatherer gatherer(value, session);
  gatherer.add_type(option.get_type_name());
  Candidates found = gatherer.take();
  for (Candidate& candidate : found.list) {
    candidate.text.insert(0, before);
  }
  return found;
}

}  // namespace

Candidates complete(const CLI::App& app, const std::vector<std::string>& words, Session& session) {
  Standing at;
  at.command = &app;
  const std::string last = words.empty() ? std::string() : words.back();
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    take_word(words[i], at);
  }
  if (at.waiting != nullptr) {
    return complete_value(*at.waiting, {}, last, session);
  }
  const std::size_t equals = last.find('=');
  if (last.starts_with("--") && equals != std::string::npos && !at.options_ended) {
    const CLI::Option* const option = at.command->get_option_no_throw(last.substr(0, equals));
    return option == nullptr ? Candidates()
                             : complete_value(*option, last.substr(0, equals + 1),
                                              last.substr(equals + 1), session);
  }
  Gatherer gatherer(last, session);
  if (last.starts_with('-') && !at.options_ended) {
    add_options(*at.command, gatherer);
  } else {
    add_positional(at, gatherer);
  }
  return gatherer.take();
}

std::string candidates_text(const Candidates& candidates) {
  std::string text;
  for (const Candidate& candidate : candidates.list) {
    text += core::unicode::displayable(candidate.text);
    text += candidate.meaning.empty() ? "" : '\t' + core::unicode::displayable(candidate.meaning);
    text += '\n';
  }
  return text + (candidates.files ? ":files\n" : "");
}

std::vector<std::string> words_of_script(const std::vector<std::string>& arguments) {
  std::vector<std::string> words;
  for (const std::string& argument : arguments) {
    words.push_back(argument.starts_with('=') ? argument.substr(1) : argument);
  }
  return words;
}

}  // namespace kelp::app
