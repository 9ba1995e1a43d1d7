#include "cli/sources.hpp"

#include <array>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <string_view>

#include "cli/output.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

// As a shell takes *.inp: what begins with a dot is for other programs.
bool is_input_name(std::string_view path) {
  constexpr std::size_t ending = 4;
  const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
  if (name.size() <= ending || name.front() == '.') {
    return false;
  }
  const std::string_view end = name.substr(name.size() - ending);
  return core::text::equals_ignoring_case(end, ".inp") ||
         core::text::equals_ignoring_case(end, ".bdf");
}

void add_folder(const std::string& folder, Sources& sources) {
  core::fs::FolderContents contents = core::fs::files_below(folder);
  sources.errors.insert(sources.errors.end(), contents.errors.begin(), contents.errors.end());
  const std::size_t before = sources.list.size();
  for (const std::string& file : contents.files) {
    if (is_input_name(file)) {
      sources.list.push_back({file, file});
    }
  }
  if (sources.list.size() == before && contents.errors.empty()) {
    sources.errors.push_back("no *.inp or *.bdf file in '" + folder + "'");
  }
}

// A text longer than any string is refused before memory is asked for.
bool is_want_of_memory(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
         dynamic_cast<const std::length_error*>(&error) != nullptr;
}

std::string read_standard_input() {
  std::string text;
  std::array<char, 65536> buffer;
  std::size_t count = 0;
  while ((count = std::fread(buffer.data(), 1, buffer.size(), stdin)) > 0) {
    text.append(buffer.data(), count);
  }
  if (std::ferror(stdin) != 0) {
    throw std::runtime_error("cannot read standard input");
  }
  return text;
}

}  // namespace

Source source_of(const std::string& argument, const CommonOptions& options) {
  return {argument, argument == "-" ? options.stdin_filename : argument};
}

Sources expand_sources(const std::vector<std::string>& arguments, const CommonOptions& options) {
  Sources sources;
  for (const std::string& argument : arguments) {
    if (argument != "-" && core::fs::is_directory(argument)) {
      add_folder(argument, sources);
    } else {
      sources.list.push_back(source_of(argument, options));
    }
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

std::string read_source(const Source& source) {
  try {
    return source.path == "-" ? read_standard_input() : core::fs::read_text_file(source.path);
  } catch (const std::exception& error) {
    throw std::runtime_error(failure_text(source, error));
  }
}

}  // namespace kelp::app
