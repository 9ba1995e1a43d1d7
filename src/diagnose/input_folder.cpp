#include <exception>
#include <string>

#include "kelp/core/resource.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

InputFolder input_folder_of(const std::string& path) {
  InputFolder folder;
  folder.job_name = core::resource::stem_of(path);
  folder.has_file = [path](std::string_view name) {
    try {
      return core::resource::is_regular_file_path(
          core::resource::path_beside(path, std::string(name)));
    } catch (const std::exception&) {
      return false;  // a name from an input need not be one that the system can have
    }
  };
  return folder;
}

}  // namespace kelp::input::bdf
