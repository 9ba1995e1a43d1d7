#include "../c_locale.hpp"

#include <cerrno>
#include <clocale>
#include <cstdlib>

namespace kelp::core::number::c_locale {
namespace {

locale_t c_locale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return locale;
}

}  // namespace

std::optional<double> strtod_whole(const std::string& text) {
  char* stopped = nullptr;
  const int saved_errno = errno;
  errno = 0;
  const double value = strtod_l(text.c_str(), &stopped, c_locale());
  const bool out_of_range = errno == ERANGE;
  errno = saved_errno;
  if (out_of_range || stopped != text.c_str() + text.size()) {
    return std::nullopt;
  }
  return value;
}

}  // namespace kelp::core::number::c_locale
