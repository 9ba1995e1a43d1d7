// Changes of inputs, and files.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "objects.hpp"

namespace kelp::c_interface {
namespace {

struct RewriteObject : Object {
  explicit RewriteObject(bdf::Rewrite made) : rewrite(std::move(made)) {}

  bdf::Rewrite rewrite;
};

std::vector<std::string> lines_of(const char* value) {
  std::vector<std::string> lines;
  for (std::string_view rest = value == nullptr ? "" : value; !rest.empty();) {
    lines.emplace_back(core::text::take_line(rest));
  }
  return lines;
}

std::shared_ptr<RewriteObject> unless_refused(bdf::Rewrite rewrite) {
  if (!rewrite.error.empty()) {
    throw Failure(KELP_BDF_REFUSED, rewrite.error);
  }
  return std::make_shared<RewriteObject>(std::move(rewrite));
}

}  // namespace

template <>
struct ObjectOf<kelp_bdf_rewrite> {
  using Type = RewriteObject;
};

}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_edit_new(kelp_bdf_edit** edit, kelp_bdf_error* error) {
  return call(error, [=] { hand_out(edit, std::make_shared<EditObject>()); });
}

kelp_bdf_status kelp_bdf_edit_charge(kelp_bdf_edit* edit, int32_t charge) {
  return call([=] { object_of(edit)->edit.charge = charge; });
}

kelp_bdf_status kelp_bdf_edit_multiplicity(kelp_bdf_edit* edit, int32_t multiplicity) {
  return call([=] {
    if (multiplicity < 1) {
      throw Failure(KELP_BDF_INVALID_ARGUMENT, "a multiplicity is at least 1");
    }
    object_of(edit)->edit.multiplicity = multiplicity;
  });
}

kelp_bdf_status kelp_bdf_edit_script_name(kelp_bdf_edit* edit, const char* name,
                                          kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(edit);
    std::string text = needed(name);
    if (text.empty() || text.find_first_of("\r\n") != std::string::npos) {
      throw Failure(KELP_BDF_INVALID_ARGUMENT, "the script's name is a single line");
    }
    object->edit.script_name = std::move(text);
  });
}

kelp_bdf_status kelp_bdf_edit_set(kelp_bdf_edit* edit, const char* path, const char* value,
                                  kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(edit);
    object->edit.assignments.push_back({path_from(path), lines_of(value)});
  });
}

kelp_bdf_status kelp_bdf_edit_unset(kelp_bdf_edit* edit, const char* path, kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(edit);
    object->edit.unset.push_back(path_from(path));
  });
}

kelp_bdf_status kelp_bdf_edit_geometry(kelp_bdf_edit* edit, const kelp_bdf_molecule* molecule,
                                       const char* path, kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(edit);
    const auto atoms = object_of(molecule);
    bdf::NewGeometry geometry = {atoms->molecule.atoms, atoms->molecule.unit, std::nullopt};
    if (path != nullptr) {
      geometry.path = path_from(path);
    }
    object->edit.geometry = std::move(geometry);
  });
}

kelp_bdf_status kelp_bdf_edit_allow_unknown(kelp_bdf_edit* edit, int32_t allow) {
  return call([=] { object_of(edit)->edit.allow_unknown_names = allow != 0; });
}

kelp_bdf_status kelp_bdf_edit_free(kelp_bdf_edit* edit) {
  return free_handle(edit);
}

kelp_bdf_status kelp_bdf_input_edit(const kelp_bdf_input* input, const kelp_bdf_edit* edit,
                                    kelp_bdf_rewrite** rewrite, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out(rewrite, unless_refused(edit_input(object_of(input)->input, object_of(edit)->edit)));
  });
}

kelp_bdf_status kelp_bdf_input_format(const kelp_bdf_input* input, kelp_bdf_rewrite** rewrite,
                                      kelp_bdf_error* error) {
  return call(error,
              [=] { hand_out(rewrite, unless_refused(format_input(object_of(input)->input))); });
}

kelp_bdf_status kelp_bdf_rewrite_get(const kelp_bdf_rewrite* rewrite, kelp_bdf_rewrite_info* info) {
  return call([=] {
    const auto object = object_of(rewrite);
    const bdf::Rewrite& made = object->rewrite;
    fill(info, kelp_bdf_rewrite_info{0, string_of(made.text), made.edits.size(), made.losses.size(),
                                     made.notes.size()});
  });
}

kelp_bdf_status kelp_bdf_rewrite_edit(const kelp_bdf_rewrite* rewrite, size_t index,
                                      kelp_bdf_text_edit* edit) {
  return call([=] { *needed(edit) = edit_of(item_of(object_of(rewrite)->rewrite.edits, index)); });
}

kelp_bdf_status kelp_bdf_rewrite_note(const kelp_bdf_rewrite* rewrite, size_t index,
                                      kelp_bdf_string* note) {
  return call(
      [=] { *needed(note) = string_of(item_of(object_of(rewrite)->rewrite.notes, index)); });
}

kelp_bdf_status kelp_bdf_rewrite_losses(const kelp_bdf_rewrite* rewrite, kelp_bdf_findings** losses,
                                        kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(rewrite);
    const bdf::Rewrite& made = object->rewrite;
    hand_out(losses, std::make_shared<Findings>(made.losses, bdf::SourceText(made.text)));
  });
}

kelp_bdf_status kelp_bdf_rewrite_free(kelp_bdf_rewrite* rewrite) {
  return free_handle(rewrite);
}

kelp_bdf_status kelp_bdf_write_file(const char* path, const char* text, size_t size,
                                    kelp_bdf_error* error) {
  return call(error, [=] {
    as_failure(KELP_BDF_FILE_ERROR,
               [&] { kelp::core::fs::write_text_file(needed(path), bytes_of(text, size)); });
  });
}

kelp_bdf_status kelp_bdf_replace_file(const char* path, const char* old_text, size_t old_size,
                                      const char* new_text, size_t new_size,
                                      kelp_bdf_error* error) {
  return call(error, [=] {
    as_failure(KELP_BDF_FILE_ERROR, [&] {
      kelp::core::fs::replace_text_file(needed(path), bytes_of(old_text, old_size),
                                        bytes_of(new_text, new_size));
    });
  });
}
