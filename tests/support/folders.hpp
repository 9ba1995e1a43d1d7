#pragma once

// Folders of the checkout that tests read. Functions and not macros, so that objects of tests are
// the same in every checkout and a compiler cache can share them.

#include <filesystem>
#include <string>

namespace kelp::test {

/// Returns the folder of the checkout.
std::filesystem::path source_folder();

/// Returns the folder with the data of tests.
std::filesystem::path data_folder();

/// Returns the folder of published inputs, which may be absent.
std::filesystem::path corpus_folder();

/// Returns the file of the vocabulary that the library comes with, in UTF-8.
std::string shipped_schema_file();

}  // namespace kelp::test
