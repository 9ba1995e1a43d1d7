#include "handles.hpp"

#include <cstdint>
#include <mutex>
#include <new>
#include <shared_mutex>
#include <unordered_map>

#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/version.hpp"

namespace kelp::c_interface {
namespace {

/// All objects by their handles.
class Table {
 public:
  std::uintptr_t keep(std::shared_ptr<Object> object) {
    const std::unique_lock lock(mutex_);
    // An odd number is the address of no record, so that a pointer of another origin is no handle.
    last_ += 2;
    objects_.emplace(last_, std::move(object));
    return last_;
  }

  std::shared_ptr<Object> find(std::uintptr_t key) const {
    const std::shared_lock lock(mutex_);
    const auto found = objects_.find(key);
    return found == objects_.end() ? nullptr : found->second;
  }

  /// Returns the object, for the caller to destroy: that takes a while, and other threads wait.
  std::shared_ptr<Object> take(std::uintptr_t key) {
    const std::unique_lock lock(mutex_);
    const auto found = objects_.find(key);
    if (found == objects_.end()) {
      return nullptr;
    }
    std::shared_ptr<Object> object = std::move(found->second);
    objects_.erase(found);
    return object;
  }

  std::size_t size() const {
    const std::shared_lock lock(mutex_);
    return objects_.size();
  }

 private:
  mutable std::shared_mutex mutex_;
  std::uintptr_t last_ = 1;
  std::unordered_map<std::uintptr_t, std::shared_ptr<Object>> objects_;
};

// It outlives the process: a host may free handles while it ends.
Table& table() {
  static auto* const all = new Table;
  return *all;
}

std::uintptr_t key_of(const void* handle) {
  return reinterpret_cast<std::uintptr_t>(handle);
}

kelp_bdf_status tell(kelp_bdf_error* error, kelp_bdf_status status,
                     std::string_view text) noexcept {
  if (error == nullptr) {
    return status;
  }
  error->status = status;
  std::size_t size = text.size();
  if (size >= sizeof(error->text)) {
    size = sizeof(error->text) - 1;
    // No character is cut in two.
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) {
      --size;
    }
  }
  text.copy(error->text, size);
  error->text[size] = '\0';
  return status;
}

}  // namespace

void* keep(std::shared_ptr<Object> object) {
  return reinterpret_cast<void*>(table().keep(std::move(object)));
}

std::shared_ptr<Object> kept(const void* handle) {
  return table().find(key_of(handle));
}

bool let_go(const void* handle) {
  return table().take(key_of(handle)) != nullptr;
}

std::size_t count_kept() {
  return table().size();
}

kelp_bdf_status succeeded(kelp_bdf_error* error) noexcept {
  return tell(error, KELP_BDF_OK, "");
}

kelp_bdf_status failed(kelp_bdf_error* error) noexcept {
  try {
    throw;
  } catch (const Failure& failure) {
    return tell(error, failure.status(), failure.what());
  } catch (const core::fs::FileChanged& changed) {
    return tell(error, KELP_BDF_FILE_CHANGED, changed.what());
  } catch (const std::bad_alloc&) {
    return tell(error, KELP_BDF_NO_MEMORY, kelp_bdf_status_text(KELP_BDF_NO_MEMORY));
  } catch (const std::length_error&) {
    return tell(error, KELP_BDF_NO_MEMORY, kelp_bdf_status_text(KELP_BDF_NO_MEMORY));
  } catch (const std::exception& other) {
    return tell(error, KELP_BDF_INTERNAL_ERROR, other.what());
  } catch (...) {
    return tell(error, KELP_BDF_INTERNAL_ERROR, kelp_bdf_status_text(KELP_BDF_INTERNAL_ERROR));
  }
}

}  // namespace kelp::c_interface

using namespace kelp::c_interface;

const char* kelp_bdf_version(void) {
  return kelp::input::bdf::library_version();
}

std::uint32_t kelp_bdf_interface_version(void) {
  return (std::uint32_t{KELP_BDF_INTERFACE_MAJOR} << 16U) + KELP_BDF_INTERFACE_MINOR;
}

const char* kelp_bdf_status_text(kelp_bdf_status status) {
  switch (status) {
    case KELP_BDF_OK:
      return "done";
    case KELP_BDF_INVALID_HANDLE:
      return "the handle was freed, is null, or is of another kind";
    case KELP_BDF_INVALID_ARGUMENT:
      return "an argument is not what it must be";
    case KELP_BDF_NOT_FOUND:
      return "there is nothing at that path";
    case KELP_BDF_REFUSED:
      return "the change cannot be made";
    case KELP_BDF_FILE_ERROR:
      return "the file could not be read or written";
    case KELP_BDF_FILE_CHANGED:
      return "the file was changed since it was read";
    case KELP_BDF_SCHEMA_ERROR:
      return "the schema could not be found or read";
    case KELP_BDF_NO_MEMORY:
      return "there is too little memory";
    case KELP_BDF_INTERNAL_ERROR:
      return "the library made a mistake";
    default:
      return "unknown status";
  }
}

kelp_bdf_status kelp_bdf_live_handles(size_t* count) {
  return call([=] { *needed(count) = count_kept(); });
}

kelp_bdf_status kelp_bdf_texts_count(const kelp_bdf_texts* texts, size_t* count) {
  return call([=] { *needed(count) = object_of(texts)->texts.size(); });
}

kelp_bdf_status kelp_bdf_texts_get(const kelp_bdf_texts* texts, size_t index,
                                   kelp_bdf_string* text) {
  return call([=] { *needed(text) = string_of(item_of(object_of(texts)->texts, index)); });
}

kelp_bdf_status kelp_bdf_texts_free(kelp_bdf_texts* texts) {
  return free_handle(texts);
}
