#pragma once

// Precompiled for all tests: what is heavy, and what most of them include. A test still includes
// what it uses, so that it is built without this as well.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>
