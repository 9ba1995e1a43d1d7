#include "kelp/core/console.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <io.h>

#include "windows/win32.hpp"

namespace kelp::core::console {
namespace {

/// The writing end of a pipe, as a file of the C library.
class Pipe {
 public:
  Pipe() {
    HANDLE writer = nullptr;
    ::CreatePipe(&reader_, &writer, nullptr, 0);
    file_ = ::_open_osfhandle(reinterpret_cast<intptr_t>(writer), _O_BINARY);
  }
  Pipe(const Pipe&) = delete;
  Pipe(Pipe&&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  Pipe& operator=(Pipe&&) = delete;
  ~Pipe() {
    close_reader();
    ::_close(file_);
  }

  void close_reader() {
    if (reader_ != nullptr) {
      ::CloseHandle(reader_);
      reader_ = nullptr;
    }
  }
  bool write() const { return ::_write(file_, "text", 4) == 4; }

 private:
  HANDLE reader_ = nullptr;
  int file_ = -1;
};

TEST(ReaderWentAwayWindows, IsToldAfterAWriteIntoAPipeWithoutReader) {
  Pipe pipe;
  ASSERT_TRUE(pipe.write());
  pipe.close_reader();
  ASSERT_FALSE(pipe.write());
  EXPECT_TRUE(reader_went_away());
}

TEST(ReaderWentAwayWindows, IsNotSaidOfOtherFailures) {
  const int reading_only = ::_open("nul", _O_RDONLY);
  ASSERT_GE(reading_only, 0);
  EXPECT_LT(::_write(reading_only, "text", 4), 0);
  EXPECT_FALSE(reader_went_away());
  ::_close(reading_only);
}

}  // namespace
}  // namespace kelp::core::console
