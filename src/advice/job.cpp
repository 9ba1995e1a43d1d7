// Makes the view of an input as a calculation, in one walk over its modules and one over its lines.

#include "advice/job.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "advice/basis_choice.hpp"
#include "advice/surroundings.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"

namespace kelp::input::bdf {
namespace {

struct ReferenceName {
  std::string_view name;
  Reference reference;
};

constexpr std::array<ReferenceName, 6> references = {{{"rhf", Reference::Rhf},
                                                      {"uhf", Reference::Uhf},
                                                      {"rohf", Reference::Rohf},
                                                      {"rks", Reference::Rks},
                                                      {"uks", Reference::Uks},
                                                      {"roks", Reference::Roks}}};

bool is_unknown_word(const ParsedInput& input, const ModuleEntry& entry, const RecordId& record) {
  return !entry.known && input.line(input.first_line(record)).role == LineRole::UnknownLine;
}

Block block_from(const ParsedInput& input, std::size_t index) {
  const Module& module = input.data().modules[index];
  Block block;
  block.input = &input;
  block.index = index;
  block.name = module.name;
  block.entries.reserve(module.entries.size());
  for (std::size_t i = 0; i < module.entries.size(); ++i) {
    const ModuleEntry& entry = module.entries[i];
    if (entry.known) {
      block.entries.add(entry.name, i);
    } else if (is_unknown_word(input, entry, RecordId::of_entry(index, i))) {
      block.has_unknown_words = true;
    }
  }
  block.entries.sort();
  return block;
}

}  // namespace

std::string_view name_of(Reference reference) {
  return std::find_if(references.begin(), references.end(),
                      [&](const ReferenceName& it) { return it.reference == reference; })
      ->name;
}

bool names_reference(const Block& scf) {
  return std::any_of(references.begin(), references.end(),
                     [&](const ReferenceName& it) { return scf.has(it.name); });
}

void EntriesByName::add(std::string_view name, std::size_t index) {
  all_.push_back({name, index});
  bits_ |= bit_of(name);
}

void EntriesByName::sort() {
  std::sort(all_.begin(), all_.end(), [](const Entry& one, const Entry& other) {
    const int order = one.name.compare(other.name);
    return order == 0 ? one.index < other.index : order < 0;
  });
}

std::span<const EntriesByName::Entry> EntriesByName::of(std::string_view name) const {
  if ((bits_ & bit_of(name)) == 0) {
    return {};
  }
  const auto first =
      std::lower_bound(all_.begin(), all_.end(), name,
                       [](const Entry& it, std::string_view wanted) { return it.name < wanted; });
  const auto last =
      std::find_if(first, all_.end(), [&](const Entry& it) { return it.name != name; });
  return std::span(all_).subspan(static_cast<std::size_t>(first - all_.begin()),
                                 static_cast<std::size_t>(last - first));
}

std::vector<EntriesByName::Entry> EntriesByName::first_of_each() const {
  std::vector<Entry> first;
  std::unique_copy(all_.begin(), all_.end(), std::back_inserter(first),
                   [](const Entry& one, const Entry& other) { return one.name == other.name; });
  return first;
}

std::uint64_t EntriesByName::bit_of(std::string_view name) {
  if (name.empty()) {
    return 1;
  }
  const auto first = static_cast<unsigned char>(name.front());
  const auto last = static_cast<unsigned char>(name.back());
  return std::uint64_t{1} << ((name.size() * 5 + first * 3U + last) % 64);
}

Setting Block::get(std::string_view entry) const {
  const auto found = entries.of(entry);
  return found.empty() ? Setting()
                       : Setting(*input, RecordId::of_entry(index, found.front().index));
}

std::vector<Setting> Block::all(std::string_view entry) const {
  std::vector<Setting> settings;
  for (const EntriesByName::Entry& it : entries.of(entry)) {
    settings.emplace_back(*input, RecordId::of_entry(index, it.index));
  }
  return settings;
}

bool Block::is(std::string_view entry, std::int64_t value) const {
  return get(entry).integer() == value;
}

bool Scf::is_kohn_sham() const {
  return is(Reference::Rks) || is(Reference::Uks) || is(Reference::Roks);
}

std::optional<std::int64_t> Scf::electrons() const {
  const auto nuclear = system->geometry.nuclear_charge();
  const bool may_state_charge = block != nullptr && block->is_elided && !charge;
  if (!nuclear || may_state_charge) {
    return std::nullopt;
  }
  const auto stated = charge ? charge.integer() : 0;
  // A charge beyond all elements is a slip of its own, and would overflow.
  constexpr std::int64_t most = 1'000'000'000;
  return stated && *stated > -most && *stated < most
             ? std::optional<std::int64_t>(*nuclear - *stated)
             : std::nullopt;
}

Job::Job(const ParsedInput& parsed, const InputFolder* beside) : input(parsed), folder(beside) {
  const std::size_t words = tokens_before_comment(data());
  for (std::size_t i = 0; i < words && !specification_; ++i) {
    if (data().easy_tokens[i].category == "method_spec") {
      specification_ = i;
    }
  }
  read_blocks();
  mark_elisions();
  is_complete_ = !has_elision_outside_ && (specification_ || has(compass_module));
  read_systems();
  read_scfs();
  read_shell_lines();
}

void Job::read_blocks() {
  blocks.reserve(data().modules.size());
  for (std::size_t i = 0; i < data().modules.size(); ++i) {
    blocks.push_back(block_from(input, i));
  }
  for (const Block& block : blocks) {
    by_name_[block.name].push_back(&block);
  }
}

void Job::mark_elisions() {
  const SourceText& source = input.source();
  for (std::size_t line = 1; line <= source.line_count(); ++line) {
    if (!is_elision(source.line(line))) {
      continue;
    }
    const RecordId record = input.line(line).record;
    const bool in_module = record.kind == RecordKind::Module || record.kind == RecordKind::Entry ||
                           record.kind == RecordKind::Child;
    if (in_module) {
      blocks[record.index].is_elided = true;
    } else if (record.kind != RecordKind::Geometry && record.kind != RecordKind::GeometryLine) {
      has_elision_outside_ = true;
    }
  }
}

// What stands before the first `$compass` belongs to the first system.
void Job::read_systems() {
  std::size_t count = 1;
  bool has_compass = false;
  for (Block& block : blocks) {
    if (block.name == compass_module) {
      count += has_compass ? 1 : 0;
      has_compass = true;
    }
    block.system = count - 1;
  }
  systems.resize(count);
  for (const Block& block : blocks) {
    System& system = systems[block.system];
    system.blocks.push_back(&block);
    if (block.name == compass_module) {
      system.compass = &block;
    }
  }
  for (System& system : systems) {
    RecordId record = data().has_geometry ? RecordId::of(RecordKind::Geometry, 0) : RecordId{};
    if (system.compass != nullptr && system.compass->has(geometry_entry)) {
      record = system.compass->get(geometry_entry).record();
    }
    system.geometry = read_geometry(input, record);
    system.geometry.is_certain =
        system.geometry.is_certain && (system.compass == nullptr || !system.compass->is_elided);
    system.basis = basis_choice_of(*this, system);
  }
}

void Job::read_scfs() {
  std::optional<std::size_t> nearest;
  for (Block& block : blocks) {
    if (block.name == compass_module) {
      nearest.reset();
    }
    block.scf = nearest;
    if (block.name == scf_module) {
      nearest = scfs.size();
      scfs.push_back(scf_from(&block, systems[block.system]));
    }
  }
  if (scfs.empty() && specification_) {
    scfs.push_back(scf_from(nullptr, systems.front()));
  }
  // The modules of an easy input are in no order.
  for (Block& block : blocks) {
    if (!block.scf && !is_advanced() && !scfs.empty()) {
      block.scf = 0;
    }
  }
}

Scf Job::scf_from(const Block* block, const System& system) const {
  Scf scf;
  scf.block = block;
  scf.system = &system;
  const auto stated = [&](const char* name) {
    return block != nullptr && block->has(name) ? block->get(name) : header(name);
  };
  scf.charge = stated(charge_name);
  scf.multiplicity = stated(multiplicity_name);
  std::size_t named = 0;
  for (const ReferenceName& it : references) {
    if (block != nullptr && block->has(it.name)) {
      ++named;
      scf.reference = it.reference;
      scf.reference_record = block->get(it.name).record();
      scf.reference_word = block->get(it.name).keyword();
    } else if (named == 0 && !scf.reference && specification_ && method() == it.name) {
      scf.reference = it.reference;
      scf.reference_record = RecordId::of(RecordKind::EasyToken, *specification_);
      scf.reference_word = input.specification_ranges(*specification_).method;
    }
  }
  if (named > 1) {
    scf.reference.reset();
  }
  if (block != nullptr && block->has("dft")) {
    scf.functional = schema().canonical_functional(block->get("dft").text());
    scf.functional_word = block->get("dft").range();
  } else if (specification_ && !functional().empty()) {
    scf.functional = functional();
    scf.functional_word = input.specification_ranges(*specification_).functional;
  }
  return scf;
}

void Job::read_shell_lines() {
  std::size_t before = 0;
  for (std::size_t i = 0; i < data().statements.size(); ++i) {
    const Statement& statement = data().statements[i];
    if (statement.kind == StatementKind::Module) {
      before = statement.module_index + 1;
    } else if (statement.kind == StatementKind::Shell) {
      const std::size_t line = input.first_line(RecordId::of(RecordKind::Statement, i));
      shell_lines.push_back({input.source().text_of(input.source().content(line)), before});
    }
  }
}

bool Job::lists_all_modules() const {
  return is_complete() && is_advanced() &&
         std::all_of(data().modules.begin(), data().modules.end(),
                     [](const Module& module) { return module.known; });
}

Setting Job::header(std::string_view keyword) const {
  const std::vector<EasyKeyword> found = find_easy_keywords(data(), schema(), keyword);
  if (found.empty()) {
    return {};
  }
  const EasyKeyword& first = found.front();
  std::vector<TextRange> value;
  if (const TextRange range = input.token_ranges(first.first).value; !range.empty()) {
    value.push_back(range);
  }
  for (std::size_t i = first.first + 1; i < first.last; ++i) {
    value.push_back(input.token_ranges(i).whole);
  }
  return {input, RecordId::of(RecordKind::EasyToken, first.first), std::move(value)};
}

std::string Job::method() const {
  return specification_ ? schema().canonical_method(data().easy_tokens[*specification_].method)
                        : std::string();
}

std::string Job::functional() const {
  return specification_
             ? schema().canonical_functional(data().easy_tokens[*specification_].functional)
             : std::string();
}

std::string Job::basis() const {
  return specification_ ? schema().canonical_basis(data().easy_tokens[*specification_].basis)
                        : std::string();
}

const std::vector<const Block*>& Job::all(std::string_view module) const {
  static const std::vector<const Block*> none;
  const auto found = by_name_.find(module);
  return found == by_name_.end() ? none : found->second;
}

std::vector<const Block*> Job::all_before(const Block& block, std::string_view module) const {
  std::vector<const Block*> found;
  for (const Block* const other : all(module)) {
    if (other->index < block.index && other->system == block.system) {
      found.push_back(other);
    }
  }
  return found;
}

std::vector<const Block*> Job::all_after(const Block& block, std::string_view module) const {
  std::vector<const Block*> found;
  for (const Block* const other : all(module)) {
    if (other->index > block.index && other->system == block.system) {
      found.push_back(other);
    }
  }
  return found;
}

const Block* Job::last_before(const Block& block, std::string_view module) const {
  const Block* last = nullptr;
  for (const Block* const other : all(module)) {
    if (other->index < block.index && other->system == block.system) {
      last = other;
    }
  }
  return last;
}

Setting Job::group_of(const System& system) const {
  return system.compass != nullptr && system.compass->has("group") ? system.compass->get("group")
                                                                   : header("group");
}

bool Job::may_have_symmetry(const System& system) const {
  const Block* const compass = system.compass;
  if (compass != nullptr && (compass->has("nosymm") || compass->is_elided)) {
    return false;
  }
  std::string group = group_of(system).text();
  group.erase(std::remove(group.begin(), group.end(), ' '), group.end());
  return group != "c(1)" && group != "gen()";
}

const Surroundings& Job::surroundings_of(const System& system) const {
  const auto index = static_cast<std::size_t>(&system - systems.data());
  surroundings_.resize(systems.size());
  if (!surroundings_[index]) {
    surroundings_[index] = make_surroundings(*this, system);
  }
  return *surroundings_[index];
}

bool Job::may_have_odd_core(const System& system) const {
  return system.basis.has_inline ||
         std::any_of(system.geometry.centres.begin(), system.geometry.centres.end(),
                     [&](const Centre& centre) {
                       const BasisSet* const set = system.basis.set_of(centre);
                       return set != nullptr && set->core == CoreSize::FInCore;
                     });
}

bool Job::is_all_electron(const System& system) const {
  return !system.basis.has_inline &&
         std::all_of(system.geometry.centres.begin(), system.geometry.centres.end(),
                     [&](const Centre& centre) {
                       const BasisSet* const set = system.basis.set_of(centre);
                       return centre.is_ghost() ||
                              (set != nullptr && centre.element > 0 &&
                               set->covers(centre.element) && !set->has_core_of(centre.element));
                     });
}

}  // namespace kelp::input::bdf
