// The words: names of a vocabulary, and what they and codes mean.

#include <string>
#include <vector>

#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/names.hpp"
#include "objects.hpp"

namespace kelp::c_interface {
namespace {

std::vector<std::string> names_within_a_path(const bdf::NameLists& lists, std::int32_t list,
                                             const char* within) {
  const bdf::ValuePath path = path_from(within);
  return list == KELP_BDF_ENTRIES ? lists.entries(path.module)
                                  : lists.nested_entries(path.module, path.name);
}

std::vector<std::string> names_of(const bdf::NameLists& lists, std::int32_t list,
                                  const char* within) {
  switch (list) {
    case KELP_BDF_MODULES:
      return lists.modules();
    case KELP_BDF_ENTRIES:
    case KELP_BDF_NESTED_ENTRIES:
      return names_within_a_path(lists, list, within);
    case KELP_BDF_EASY_KEYWORDS:
      return lists.easy_keywords();
    case KELP_BDF_METHODS:
      return lists.methods();
    case KELP_BDF_FUNCTIONALS:
      return lists.functionals();
    case KELP_BDF_BASIS_SETS:
      return lists.basis_sets();
    default:
      throw Failure(KELP_BDF_INVALID_ARGUMENT,
                    "there is no list of the number " + std::to_string(list));
  }
}

}  // namespace
}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_names(const kelp_bdf_schema* schema, int32_t list, const char* within,
                               kelp_bdf_texts** names, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out_texts(names, names_of(bdf::NameLists(schema_of(schema)), list, within));
  });
}

kelp_bdf_status kelp_bdf_similar_names(const char* name, const kelp_bdf_texts* candidates,
                                       kelp_bdf_texts** names, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out_texts(names, bdf::similar_names(needed(name), object_of(candidates)->texts));
  });
}

kelp_bdf_status kelp_bdf_explain(const kelp_bdf_schema* schema, const char* name, int32_t language,
                                 kelp_bdf_texts** explanations, kelp_bdf_error* error) {
  return call(error, [=] {
    std::vector<std::string> texts;
    const bdf::InputSchema vocabulary = schema_of(schema);
    for (const bdf::Explanation& explanation :
         bdf::explain(needed(name), vocabulary, enumerator_of(language, bdf::Language::Chinese))) {
      texts.push_back(explanation_text(explanation));
    }
    hand_out_texts(explanations, std::move(texts));
  });
}

kelp_bdf_status kelp_bdf_similar_explained(const kelp_bdf_schema* schema, const char* name,
                                           kelp_bdf_texts** names, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out_texts(names, bdf::similar_explained_names(needed(name), schema_of(schema)));
  });
}
