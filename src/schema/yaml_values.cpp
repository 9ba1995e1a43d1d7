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
  in.exceptions(std::ios::badbit);  // or else a failed allocation would be a bad number
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

// In bytes of memory. A text is read into a list or a map, and may be its name, its key and what
// its key leads to; a record has maps of its own. Containers take up to twice what they hold.
constexpr std::size_t weight_of_a_node = 256;
constexpr std::size_t weight_of_a_record = 2048;
constexpr std::size_t copies_of_a_text = 4;
constexpr std::size_t budget_for_a_byte = 16;
constexpr std::size_t free_budget = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kinds_of_nodes = YAML::NodeType::Map + 1;

}  // namespace

ExpansionBudget::ExpansionBudget(std::size_t document_size, unsigned free_visits)
    : left_(free_budget + budget_for_a_byte * document_size),
      free_visits_(free_visits),
      visits_(kinds_of_nodes * (document_size + 1)) {}

void ExpansionBudget::pay_for(const YAML::Node& node) {
  pay_again(node, weight_of_a_node);
}

void ExpansionBudget::pay_for_record(const YAML::Node& name) {
  pay_again(name, weight_of_a_record);
}

void ExpansionBudget::pay_again(const YAML::Node& node, std::size_t weight) {
  if (!is_free(node)) {
    pay(weight + (node.IsScalar() ? copies_of_a_text * node.Scalar().size() : 0));
  }
}

// An alias is the node that it names, which begins where that is written. No two nodes of one kind
// begin at the same byte.
bool ExpansionBudget::is_free(const YAML::Node& node) {
  const int begin = node.Mark().pos;
  const std::size_t at = static_cast<std::size_t>(begin) * kinds_of_nodes + node.Type();
  if (begin < 0 || at >= visits_.size() || visits_[at] >= free_visits_) {
    return false;
  }
  ++visits_[at];
  return true;
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
