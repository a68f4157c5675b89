// SPDX-License-Identifier: Apache-2.0
// Files for tests that touch the disk.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tw::test {

// The bytes of a file; empty when it cannot be read.
inline std::string slurp(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// An empty folder of the running test's own, named after it: tests run in parallel processes.
inline std::filesystem::path freshFolder(const std::string& prefix) {
    const auto dir = std::filesystem::temp_directory_path() /
                     (prefix + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir;
}

} // namespace tw::test
