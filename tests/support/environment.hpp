#pragma once

// Environment variables and the current folder, put back at the end of a test.

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace kelp::test {

/// Gives a variable a value, or takes it away, as long as it lives.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) {
      before_ = before;
    }
    set(value);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable(EnvironmentVariable&&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(EnvironmentVariable&&) = delete;
  ~EnvironmentVariable() { set(before_); }

 private:
  void set(const std::optional<std::string>& value) const {
#ifdef _WIN32
    const std::string text = name_ + "=" + value.value_or("");
    const std::u8string bytes(text.begin(), text.end());
    _wputenv(std::filesystem::path(bytes).c_str());
#else
    value ? ::setenv(name_.c_str(), value->c_str(), 1) : ::unsetenv(name_.c_str());
#endif
  }

  std::string name_;
  std::optional<std::string> before_;
};

/// Makes a folder the current one as long as it lives.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder(CurrentFolder&&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  CurrentFolder& operator=(CurrentFolder&&) = delete;
  ~CurrentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_;
};

}  // namespace kelp::test
