#include "schema/yaml_values.hpp"

#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <type_traits>

namespace kelp::input::bdf {
namespace {

// yaml-cpp converts through a stream of the global locale; these are its rules in the "C" locale.
template <typename Number>
Number convert(const YAML::Node& node) {
  std::istringstream in(node.Scalar());
  in.imbue(std::locale::classic());
  in.unsetf(std::ios::dec);
  Number value{};
  const bool sign_refused = std::is_unsigned_v<Number> && in.peek() == '-';
  if (!sign_refused && (in >> std::noskipws >> value) && (in >> std::ws).eof()) {
    return value;
  }
  if constexpr (std::is_floating_point_v<Number>) {
    if (YAML::conversion::IsInfinity(node.Scalar())) {
      return std::numeric_limits<Number>::infinity();
    }
    if (YAML::conversion::IsNegativeInfinity(node.Scalar())) {
      return -std::numeric_limits<Number>::infinity();
    }
    if (YAML::conversion::IsNaN(node.Scalar())) {
      return std::numeric_limits<Number>::quiet_NaN();
    }
  }
  throw YAML::TypedBadConversion<Number>(node.Mark());
}

// In bytes of memory, roughly. The shortest entry of a document takes three bytes ("a:" and a line
// end), so that 512 for each byte are always enough.
constexpr std::size_t weight_of_a_node = 64;
constexpr std::size_t weight_of_an_entry = 1024;
constexpr std::size_t budget_for_a_byte = 512;
constexpr std::size_t free_budget = std::size_t{64} * 1024 * 1024;

}  // namespace

ExpansionBudget::ExpansionBudget(std::size_t document_size)
    : left_(free_budget + budget_for_a_byte * document_size) {}

void ExpansionBudget::pay_for(const YAML::Node& node) {
  pay(weight_of_a_node + (node.IsScalar() ? node.Scalar().size() : 0));
}

void ExpansionBudget::pay_for_entry() {
  pay(weight_of_an_entry);
}

void ExpansionBudget::pay(std::size_t price) {
  if (price > left_) {
    throw std::runtime_error("its YAML aliases expand beyond all measure");
  }
  left_ -= price;
}

std::string scalar_text(const YAML::Node& node) {
  return node.IsScalar() ? node.Scalar() : std::string();
}

std::string_view scalar_view(const YAML::Node& node) {
  return node.IsScalar() ? std::string_view(node.Scalar()) : std::string_view();
}

std::vector<std::string> text_list(const YAML::Node& node, ExpansionBudget& budget) {
  std::vector<std::string> texts;
  if (node.IsScalar()) {
    texts.push_back(node.Scalar());
  } else if (node.IsSequence()) {
    for (const auto& item : node) {
      budget.pay_for(item);
      if (item.IsScalar()) {
        texts.push_back(item.Scalar());
      }
    }
  }
  return texts;
}

void read_bool(const YAML::Node& node, bool& target) {
  if (node.IsScalar()) {
    target = node.as<bool>();
  }
}

void read_number(const YAML::Node& node, std::optional<double>& target) {
  if (node.IsScalar()) {
    target = convert<double>(node);
  }
}

void read_count(const YAML::Node& node, std::optional<std::uint64_t>& target) {
  if (node.IsScalar()) {
    target = convert<std::uint64_t>(node);
  }
}

std::vector<std::uint64_t> count_list(const YAML::Node& node, ExpansionBudget& budget) {
  std::vector<std::uint64_t> counts;
  if (node.IsScalar()) {
    counts.push_back(convert<std::uint64_t>(node));
  } else if (node.IsSequence()) {
    for (const auto& item : node) {
      budget.pay_for(item);
      if (item.IsScalar()) {
        counts.push_back(convert<std::uint64_t>(item));
      }
    }
  }
  return counts;
}

std::int32_t required_int(const YAML::Node& node) {
  return node.IsScalar() ? convert<std::int32_t>(node) : node.as<std::int32_t>();
}

}  // namespace kelp::input::bdf
