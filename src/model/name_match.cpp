#include "model/name_match.hpp"

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view blanks_and_dollar = " \t\r\n$";

std::string_view bare_name(std::string_view name) noexcept {
  const auto begin = name.find_first_not_of(blanks_and_dollar);
  if (begin == std::string_view::npos) {
    return {};
  }
  return name.substr(begin, name.find_last_not_of(blanks) + 1 - begin);
}

}  // namespace

bool names_match(std::string_view wanted, std::string_view candidate) noexcept {
  return core::text::equals_ignoring_case(bare_name(wanted), bare_name(candidate));
}

}  // namespace kelp::input::bdf
