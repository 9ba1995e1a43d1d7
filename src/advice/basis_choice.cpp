// Which basis set an atom gets: a line for its label, then one for its element, then the line
// without a label.

#include "advice/basis_choice.hpp"

#include <vector>

#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

const BasisSet* known_set(const Job& job, const std::string& basis) {
  return basis.empty() ? nullptr : job.knowledge().basis_set(basis);
}

class BasisBlockReader {
 public:
  BasisBlockReader(const Job& job, BasisChoice& choice) : job_(job), choice_(choice) {}

  void read() {
    const ParsedInput& input = job_.input;
    const RecordId& record = choice_.setting.record();
    const std::size_t end = input.end_line(record);
    for (std::size_t line = input.first_line(record) + 1; line < end; ++line) {
      read_line(clean_value_line(input.source().line(line)));
    }
  }

 private:
  void read_line(std::string_view text) {
    if (in_data_ || core::text::equals_ignoring_case(text, "inline")) {
      choice_.has_inline = true;
      std::string_view rest = text;
      in_data_ = !core::text::equals_ignoring_case(core::text::take_word(rest), "end");
      return;
    }
    const std::size_t equals = text.find('=');
    if (equals != std::string_view::npos) {
      assign(text.substr(0, equals), core::text::trim_view(text.substr(equals + 1)));
    } else if (!text.empty() && !is_elision(text)) {
      choice_.name = text;
      choice_.basis = job_.schema().canonical_basis(text);
      choice_.set = known_set(job_, choice_.basis);
    }
  }

  void assign(std::string_view labels, Word name) {
    std::vector<Word> words;
    split_value_tokens(labels, words);
    for (const Word label : words) {
      choice_.by_label.emplace(core::text::to_lower(label), choice_.assignments.size());
      const std::string basis = job_.schema().canonical_basis(name);
      choice_.assignments.push_back({label, name, basis, known_set(job_, basis)});
    }
  }

  const Job& job_;
  BasisChoice& choice_;
  bool in_data_ = false;
};

}  // namespace

const BasisChoice::Assignment* BasisChoice::assignment_of(const Centre& centre) const {
  if (by_label.empty()) {
    return nullptr;
  }
  for (const Word label : {centre.label, symbol_of(centre.element)}) {
    if (const auto found = by_label.find(core::text::to_lower(label)); found != by_label.end()) {
      return &assignments[found->second];
    }
  }
  return nullptr;
}

const std::string& BasisChoice::of(const Centre& centre) const {
  const Assignment* const found = assignment_of(centre);
  return found == nullptr ? basis : found->basis;
}

const BasisSet* BasisChoice::set_of(const Centre& centre) const {
  const Assignment* const found = assignment_of(centre);
  return found == nullptr ? set : found->set;
}

Word BasisChoice::written_for(const Centre& centre) const {
  const Assignment* const found = assignment_of(centre);
  return found == nullptr ? name : found->name;
}

BasisChoice basis_choice_of(const Job& job, const System& system) {
  BasisChoice choice;
  if (system.compass != nullptr && system.compass->has("basis-block")) {
    choice.setting = system.compass->get("basis-block");
    BasisBlockReader(job, choice).read();
    return choice;
  }
  if (system.compass != nullptr && system.compass->has("basis")) {
    choice.setting = system.compass->get("basis");
    const std::vector<TextRange> lines = job.input.value_ranges(choice.setting.record());
    choice.name = lines.empty() ? Word() : job.input.source().text_of(lines.front());
    choice.basis = choice.name.empty() ? std::string() : job.schema().canonical_basis(choice.name);
  } else if (const auto specification = job.specification()) {
    choice.name = job.input.source().text_of(job.input.specification_ranges(*specification).basis);
    choice.basis = job.basis();
  }
  choice.set = known_set(job, choice.basis);
  return choice;
}

}  // namespace kelp::input::bdf
