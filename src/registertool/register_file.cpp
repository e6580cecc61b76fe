// SPDX-License-Identifier: MIT
#include "registertool/register_file.h"

#include "host/files.h"

#include <system_error>

namespace zor {

namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "ZOR.db";
/// The database of former versions of the program.
constexpr const char* formerName = "ZOR.mdb";
constexpr std::uintmax_t largestStart = 1u << 30;

fs::path placeOf(const Platform& platform) {
    return (mayWrite(platform.programFolder) ? platform.programFolder : platform.userFolder) / fileName;
}

fs::path formerDatabase(const Platform& platform, const fs::path& file) {
    std::error_code ignored;
    for (const fs::path& folder : {file.parent_path(), platform.programFolder}) {
        if (fs::exists(folder / formerName, ignored)) {
            return folder / formerName;
        }
    }
    return {};
}

/// The new file comes into being when it is whole.
void takeOver(RegisterStores& stores, const fs::path& former, const fs::path& file) {
    RegisterList list = stores.readOlder(former);
    fs::path making = file;
    making += ".new";
    std::error_code failure;
    fs::remove(making, failure);
    stores.create(making);
    stores.open(making)->takeList(list);
    fs::rename(making, file, failure);
    if (failure) {
        throw StoreError(pathFileAccess);
    }
}

void make(const Platform& platform, const fs::path& file) {
    std::error_code ignored;
    fs::path former = platform.registerStores.readsOlder() ? formerDatabase(platform, file) : fs::path();
    if (!former.empty()) {
        takeOver(platform.registerStores, former, file);
        return;
    }
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
