#pragma once

// Locales that write numbers differently, for tests that no locale changes anything.

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

namespace kelp::test {

/// Writes 1234.5 as 1.234,5 and true as "ja".
class CommaPunctuation : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
  std::string do_truename() const override { return "ja"; }
  std::string do_falsename() const override { return "nein"; }
};

/// While it lives, the process has a global C++ locale with a decimal comma.
class CommaLocale {
 public:
  CommaLocale()
      : before_(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {}
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale(CommaLocale&&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  CommaLocale& operator=(CommaLocale&&) = delete;
  ~CommaLocale() { std::locale::global(before_); }

 private:
  std::locale before_;
};

/// Returns the name of an installed C locale with a decimal comma; empty if there is none.
inline std::string comma_c_locale() {
#ifdef KELP_TEST_LOCALE_FOLDER
  ::setenv("LOCPATH", KELP_TEST_LOCALE_FOLDER, 1);
#endif
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::string found;
  for (const char* name :
       {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8", "de_DE", "German"}) {
    if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') {
      found = name;
      break;
    }
  }
  std::setlocale(LC_ALL, before.c_str());
  return found;
}

}  // namespace kelp::test
