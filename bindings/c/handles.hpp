#pragma once

// What the functions of the C interface share. A handle is a number that looks like a pointer: the
// key of an object in one table. Numbers are not used again, so that a handle that was freed is
// told from all others; and since an object is held by all who use it at the moment, one thread may
// free what another one is using.

#include <cstddef>
#include <cstring>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/bdf.h"
#include "kelp/core/fs.hpp"

namespace kelp::c_interface {

/// What a handle stands for.
struct Object {
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;
};

/// Names the object that a type of handles stands for.
template <typename Handle>
struct ObjectOf;

/// Ends a call with a status other than success.
class Failure : public std::runtime_error {
 public:
  Failure(kelp_bdf_status status, const std::string& text)
      : std::runtime_error(text), status_(status) {}

  kelp_bdf_status status() const noexcept { return status_; }

 private:
  kelp_bdf_status status_;
};

/// Keeps an object and returns its handle, which is never null.
void* keep(std::shared_ptr<Object> object);

/// Returns the object of a handle, null when there is none.
std::shared_ptr<Object> kept(const void* handle);

/// Lets an object go; who is using it goes on. False when there is none, or no more.
bool let_go(const void* handle);

std::size_t count_kept();

/// Tells the caller of success.
kelp_bdf_status succeeded(kelp_bdf_error* error) noexcept;

/// Tells the caller what the exception at hand means.
kelp_bdf_status failed(kelp_bdf_error* error) noexcept;

/// Does the work of a call. Nothing is thrown.
template <typename Work>
kelp_bdf_status call(kelp_bdf_error* error, Work&& work) noexcept {
  try {
    std::forward<Work>(work)();
    return succeeded(error);
  } catch (...) {
    return failed(error);
  }
}

template <typename Work>
kelp_bdf_status call(Work&& work) noexcept {
  return call(nullptr, std::forward<Work>(work));
}

/// Does something with files or documents; what it throws of its own becomes a failure of a kind.
template <typename Work>
auto as_failure(kelp_bdf_status status, Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const Failure&) {
    throw;
  } catch (const core::fs::FileChanged&) {
    throw;
  } catch (const std::runtime_error& error) {
    throw Failure(status, error.what());
  }
}

/// Returns a pointer that must not be null.
template <typename Value>
Value* needed(Value* pointer) {
  if (pointer == nullptr) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, "a pointer is null that may not be");
  }
  return pointer;
}

[[noreturn]] inline void refuse_handle() {
  throw Failure(KELP_BDF_INVALID_HANDLE, kelp_bdf_status_text(KELP_BDF_INVALID_HANDLE));
}

/// Returns the object of a handle. Hold it for as long as anything of it is used.
template <typename Handle>
std::shared_ptr<typename ObjectOf<Handle>::Type> object_of(const Handle* handle) {
  auto object = std::dynamic_pointer_cast<typename ObjectOf<Handle>::Type>(kept(handle));
  if (!object) {
    refuse_handle();
  }
  return object;
}

/// Gives the caller a handle of a new object.
template <typename Handle, typename Kept>
void hand_out(Handle** handle, std::shared_ptr<Kept> object) {
  needed(handle);
  *handle = static_cast<Handle*>(keep(std::move(object)));
}

template <typename Handle>
kelp_bdf_status free_handle(Handle* handle) noexcept {
  return call([handle] {
    if (handle == nullptr) {
      return;
    }
    object_of(handle);
    if (!let_go(handle)) {
      refuse_handle();
    }
  });
}

/// Returns what stands at an index.
template <typename List>
const auto& item_of(const List& list, std::size_t index) {
  if (index >= list.size()) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, "there is no item of that index");
  }
  return list[index];
}

/// Returns a number as an enumerator.
template <typename Enumerator>
Enumerator enumerator_of(std::int32_t number, Enumerator last) {
  if (number < 0 || number > static_cast<std::int32_t>(last)) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT,
                  "there is no choice of the number " + std::to_string(number));
  }
  return static_cast<Enumerator>(number);
}

inline kelp_bdf_string string_of(const std::string& text) {
  return {text.data(), text.size()};
}

/// Fills a record that begins with its size, as far as the caller knows it. `least` is the size
/// that it had in the first version.
template <typename Record>
void fill(Record* record, Record filled, std::size_t least = sizeof(Record)) {
  const std::size_t size = needed(record)->struct_size;
  if (size < least) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, "struct_size is not set, or too small");
  }
  filled.struct_size = size;
  std::memcpy(record, &filled, size < sizeof(Record) ? size : sizeof(Record));
}

/// A list of texts.
struct Texts : Object {
  explicit Texts(std::vector<std::string> list) : texts(std::move(list)) {}

  std::vector<std::string> texts;
};

template <>
struct ObjectOf<kelp_bdf_texts> {
  using Type = Texts;
};

inline void hand_out_texts(kelp_bdf_texts** handle, std::vector<std::string> texts) {
  hand_out(handle, std::make_shared<Texts>(std::move(texts)));
}

}  // namespace kelp::c_interface
