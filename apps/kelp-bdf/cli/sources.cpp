#include "cli/sources.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "cli/exclusion.hpp"
#include "cli/output.hpp"
#include "cli/size.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

std::string_view name_of(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

// As a shell takes *.inp: what begins with a dot is for other programs.
bool is_hidden(std::string_view path) {
  return name_of(path).starts_with('.');
}

bool is_input_name(std::string_view path) {
  constexpr std::size_t ending = 4;
  const std::string_view name = name_of(path);
  if (name.size() <= ending || is_hidden(name)) {
    return false;
  }
  const std::string_view end = name.substr(name.size() - ending);
  return core::text::equals_ignoring_case(end, ".inp") ||
         core::text::equals_ignoring_case(end, ".bdf");
}

Sources list_of_folder(const std::string& folder, const InputOptions& inputs, Session& session) {
  const Exclusion exclusion(folder, inputs.exclude);
  std::size_t left_out = 0;
  const auto is_left_out = [&](const std::string& path) {
    const bool is = exclusion.leaves_out(path) ||
                    (!session.options.no_config && session.configs.leaves_out(path));
    left_out += is ? 1 : 0;
    return is;
  };
  core::fs::FolderContents contents = core::fs::files_below(
      folder,
      [&is_left_out](const std::string& path) { return !is_hidden(path) && !is_left_out(path); });
  Sources sources;
  sources.errors = std::move(contents.errors);
  for (const std::string& file : contents.files) {
    if (is_input_name(file) && !is_left_out(file)) {
      sources.list.push_back({file, file});
    }
  }
  if (sources.list.empty() && sources.errors.empty()) {
    sources.errors.push_back("no *.inp or *.bdf file in '" + folder + "'" +
                             (left_out == 0 ? "" : " that is not excluded"));
  }
  return sources;
}

// A text longer than any string is refused before memory is asked for.
bool is_want_of_memory(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
         dynamic_cast<const std::length_error*>(&error) != nullptr;
}

[[noreturn]] void refuse_size(const std::string& name, std::size_t most) {
  throw std::runtime_error("'" + name + "' is larger than " + size_text(most) +
                           "; --max-size sets what may be read");
}

std::string read_standard_input(const std::string& name, std::size_t most) {
  std::string text;
  std::array<char, 65536> buffer;
  std::size_t count = 0;
  while ((count = std::fread(buffer.data(), 1, buffer.size(), stdin)) > 0) {
    text.append(buffer.data(), count);
    if (text.size() > most) {
      refuse_size(name, most);
    }
  }
  if (std::ferror(stdin) != 0) {
    throw std::runtime_error("cannot read standard input");
  }
  return text;
}

std::string read_limited(const Source& source, std::size_t most) {
  if (source.path == "-") {
    return read_standard_input(source.name, most);
  }
  try {
    return core::fs::read_text_file(source.path, most);
  } catch (const core::fs::FileTooLarge&) {
    refuse_size(source.name, most);
  }
}

// A NUL byte can be in no name, so that a list with one is of names that have one behind them.
std::vector<std::string> names_of_list(std::string_view text) {
  const bool has_lines = text.find('\0') == std::string_view::npos;
  std::vector<std::string> names;
  while (!text.empty()) {
    std::string_view name;
    if (has_lines) {
      name = core::text::take_line(text);
    } else {
      name = text.substr(0, text.find('\0'));
      text.remove_prefix(std::min(text.size(), name.size() + 1));
    }
    if (!name.empty()) {
      names.emplace_back(name);
    }
  }
  return names;
}

std::vector<std::string> named_inputs(const InputOptions& options, const CommonOptions& common) {
  std::vector<std::string> names = options.inputs;
  bool takes_standard_input = std::count(names.begin(), names.end(), "-") > 0;
  for (const std::string& list : options.lists) {
    if (list == "-" && std::exchange(takes_standard_input, true)) {
      throw std::runtime_error("standard input cannot be both a list of files and an input");
    }
    for (std::string& name : names_of_list(read_source({list, list}, common))) {
      names.push_back(name == "-" ? "./-" : std::move(name));
    }
  }
  return names;
}

}  // namespace

Source source_of(const std::string& argument, const CommonOptions& options) {
  return {argument, argument == "-" ? options.stdin_filename : argument};
}

Sources expand_sources(const InputOptions& inputs, Session& session) {
  const CommonOptions& options = session.options;
  if (inputs.inputs.empty() && inputs.lists.empty()) {
    throw std::runtime_error("input is required; see 'kelp-bdf " + options.command + " --help'");
  }
  Sources sources;
  for (const std::string& name : named_inputs(inputs, options)) {
    if (name == "-" || !core::fs::is_directory(name)) {
      sources.list.push_back(source_of(name, options));
      continue;
    }
    Sources found = list_of_folder(name, inputs, session);
    std::move(found.list.begin(), found.list.end(), std::back_inserter(sources.list));
    std::move(found.errors.begin(), found.errors.end(), std::back_inserter(sources.errors));
  }
  return sources;
}

std::string failure_text(const Source& source, const std::exception& error) {
  if (is_want_of_memory(error)) {
    return "'" + source.name + "' is too large for the memory at hand";
  }
  return error.what();
}

// Each time that it is disturbed, somebody else has succeeded.
void do_undisturbed(const std::function<void()>& work) {
  constexpr int most_disturbances = 100;
  for (int disturbances = 0;; ++disturbances) {
    try {
      work();
      return;
    } catch (const core::fs::FileChanged&) {
      if (disturbances == most_disturbances) {
        throw;
      }
    }
  }
}

ExitStatus for_each_source(const Sources& sources,
                           const std::function<ExitStatus(const Source&)>& work) {
  ExitStatus status = ExitStatus::Success;
  const auto fail = [&status](const std::string& error) {
    complain(error);
    status = ExitStatus::Failure;
  };
  for (const std::string& error : sources.errors) {
    fail(error);
  }
  for (const Source& source : sources.list) {
    try {
      do_undisturbed([&] { status = worse_of(status, work(source)); });
    } catch (const std::exception& error) {
      fail(failure_text(source, error));
    }
  }
  return status;
}

std::string read_source(const Source& source, const CommonOptions& options) {
  try {
    return read_limited(source, options.max_size);
  } catch (const std::exception& error) {
    throw std::runtime_error(failure_text(source, error));
  }
}

}  // namespace kelp::app
