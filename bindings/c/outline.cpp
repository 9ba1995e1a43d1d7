// What stands where in an input, as one list: a program in C walks no tree for it.

#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/outline.hpp"
#include "objects.hpp"

namespace kelp::c_interface {
namespace {

struct Item {
  std::string name;
  std::string path;
  std::string summary;
  std::vector<std::string> values;
  kelp_bdf_outline_item record = {};
};

struct Outline : Object {
  std::vector<Item> items;
};

Item item_of_word(const bdf::Outline::Word& word) {
  Item item = {word.canonical, {}, word.summary, {}, {}};
  item.record.kind = KELP_BDF_ITEM_WORD;
  item.record.known = word.known ? 1 : 0;
  item.record.record = record_of(word.record);
  item.record.line = word.line;
  item.record.range = item.record.name_range = range_of(word.range);
  return item;
}

Item item_of_geometry(const bdf::Outline::Geometry& geometry) {
  Item item = {geometry.formula, "geometry", {}, {}, {}};
  item.record.kind = KELP_BDF_ITEM_GEOMETRY;
  item.record.known = 1;
  item.record.record = record_of(geometry.record);
  item.record.line = geometry.line;
  item.record.range = item.record.name_range = range_of(geometry.range);
  item.record.value_count = geometry.atoms;
  return item;
}

// Of a module, an entry or a child.
template <typename Part>
Item item_of_part(const Part& part, std::int32_t kind) {
  Item item = {part.name, part.path, part.summary, {}, {}};
  item.record.kind = kind;
  item.record.known = part.known ? 1 : 0;
  item.record.record = record_of(part.record);
  item.record.line = part.line;
  item.record.range = range_of(part.range);
  item.record.name_range = range_of(part.name_range);
  return item;
}

void add_entries(const std::vector<bdf::Outline::Entry>& entries, std::int32_t kind,
                 std::vector<Item>& items) {
  for (const bdf::Outline::Entry& entry : entries) {
    Item item = item_of_part(entry, kind);
    item.values = entry.values;
    item.record.value_count = item.values.size();
    items.push_back(std::move(item));
    add_entries(entry.children, KELP_BDF_ITEM_CHILD, items);
  }
}

std::shared_ptr<Outline> flat(const bdf::Outline& outline) {
  auto object = std::make_shared<Outline>();
  for (const bdf::Outline::Word& word : outline.header) {
    object->items.push_back(item_of_word(word));
  }
  if (outline.geometry) {
    object->items.push_back(item_of_geometry(*outline.geometry));
  }
  for (const bdf::Outline::Module& module : outline.modules) {
    object->items.push_back(item_of_part(module, KELP_BDF_ITEM_MODULE));
    add_entries(module.entries, KELP_BDF_ITEM_ENTRY, object->items);
  }
  return object;
}

}  // namespace

template <>
struct ObjectOf<kelp_bdf_outline> {
  using Type = Outline;
};

}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_outline_of(const kelp_bdf_input* input, int32_t language,
                                    kelp_bdf_outline** outline, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out(outline, flat(bdf::outline_of(object_of(input)->input,
                                           enumerator_of(language, bdf::Language::Chinese))));
  });
}

kelp_bdf_status kelp_bdf_outline_count(const kelp_bdf_outline* outline, size_t* count) {
  return call([=] { *needed(count) = object_of(outline)->items.size(); });
}

kelp_bdf_status kelp_bdf_outline_get(const kelp_bdf_outline* outline, size_t index,
                                     kelp_bdf_outline_item* item) {
  return call([=] {
    const auto object = object_of(outline);
    const Item& found = item_of(object->items, index);
    kelp_bdf_outline_item record = found.record;
    record.name = string_of(found.name);
    record.path = string_of(found.path);
    record.summary = string_of(found.summary);
    fill(item, record);
  });
}

kelp_bdf_status kelp_bdf_outline_value(const kelp_bdf_outline* outline, size_t index, size_t line,
                                       kelp_bdf_string* text) {
  return call([=] {
    const auto object = object_of(outline);
    const Item& found = item_of(object->items, index);
    *needed(text) = string_of(item_of(found.values, line));
  });
}

kelp_bdf_status kelp_bdf_outline_free(kelp_bdf_outline* outline) {
  return free_handle(outline);
}
