#pragma once

/// @file
/// The program's standard streams and arguments.

#include <cstddef>
#include <string>
#include <vector>

namespace kelp::core::console {

/// One of the standard streams.
enum class Stream { Input, Output, Error };

/// Tells whether a stream is a terminal.
bool is_terminal(Stream stream);

/// Makes the standard streams carry bytes as they are, and UTF-8 to a terminal. To be called before
/// anything is read or written.
void use_plain_bytes();

/// Makes a write beyond the system's limit on the size of files fail like any other, instead of
/// ending the process.
void let_size_limits_be_errors();

/// Makes a write to a pipe that nobody reads any more fail like any other, instead of ending the
/// process.
void let_closed_pipes_be_errors();

/// Waits until standard input has bytes, and puts those that are there, at most `size`, into a
/// buffer. Returns how many; 0 at its end, and when it cannot be read. Not to be mixed with reading
/// it in other ways.
std::size_t read_input(char* buffer, std::size_t size);

/// Tells, right after a write to a standard stream has failed, whether it failed because nobody
/// reads the other end of the pipe any more.
bool reader_went_away();

/// Returns the arguments after the program's name, as UTF-8. They are those given to `main`, unless
/// the system knows them better.
std::vector<std::string> arguments(int count, const char* const* values);

}  // namespace kelp::core::console
