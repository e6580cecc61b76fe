// SPDX-License-Identifier: MIT
#include "registertool/register_file.h"

#include "host/files.h"

#include <system_error>

namespace zor {

namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "ZOR.db";
constexpr std::uintmax_t largestStart = 1u << 30;

fs::path placeOf(const Platform& platform) {
    return (mayWrite(platform.programFolder) ? platform.programFolder : platform.userFolder) / fileName;
}

void make(const Platform& platform, const fs::path& file) {
    std::error_code ignored;
    if (platform.startDatabase.empty() || !fs::exists(platform.startDatabase, ignored)) {
        platform.registerStores.create(file);
        return;
    }
    fs::create_directories(file.parent_path(), ignored);
    try {
        writeFileWhole(file, readFile(platform.startDatabase, largestStart));
    } catch (const ToolError& error) {
        throw StoreError(error.number(), error.what());
    }
}

} // namespace

std::unique_ptr<RegisterStore> openRegisterFile(const Platform& platform) {
    fs::path file = placeOf(platform);
    std::error_code ignored;
    if (!fs::exists(file, ignored)) {
        make(platform, file);
    }
    return platform.registerStores.open(file);
}

} // namespace zor
