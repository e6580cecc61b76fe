// SPDX-License-Identifier: MIT
#pragma once

#include "host/files.h"

#include "support/error.h"
#include "virtual/temporary_place.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

namespace zor {

/// The error number of a failing action, 0 if it does not fail.
inline int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ToolError& error) {
        return error.number();
    }
    return 0;
}

/// A folder of its own for each test, removed at the end.
class FileTest : public ::testing::Test {
  protected:
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(folder, ignored);
    }

    void put(const std::filesystem::path& path, const std::string& bytes) const {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    /// Names in the folder; a failed save must leave no neighbour behind.
    [[nodiscard]] std::size_t entries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder),
                                                      std::filesystem::directory_iterator{}));
    }

    std::filesystem::path folder =
        testing::makeTemporaryFolder(std::filesystem::temp_directory_path(), "zor-files-");
};

} // namespace zor
