#include "../path_kind.hpp"

#include <filesystem>
#include <system_error>

namespace kelp::core {

PathKind path_kind(const std::string& path) {
  std::error_code error;
  switch (std::filesystem::status(path, error).type()) {
    case std::filesystem::file_type::none:
    case std::filesystem::file_type::not_found:
      return PathKind::Nothing;
    case std::filesystem::file_type::regular:
      return PathKind::File;
    case std::filesystem::file_type::directory:
      return PathKind::Folder;
    default:
      return PathKind::Other;
  }
}

}  // namespace kelp::core
