// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "support/record_file.h"

#include <unistd.h>

namespace zor {

namespace {

constexpr std::string_view iniBanner = "# ZOR ini file version 2.2.0";

bool writable(const std::filesystem::path& folder) {
    return ::access(folder.c_str(), W_OK) == 0;
}

} // namespace

std::filesystem::path settingsFileToRead(const Platform& platform, const std::string& name) {
    std::filesystem::path own = platform.programFolder / name;
    std::filesystem::path users = platform.userFolder / name;
    std::error_code ignored;
    if (!writable(platform.programFolder) && std::filesystem::exists(users, ignored)) {
        return users;
    }
    return own;
}

std::filesystem::path settingsFileToWrite(const Platform& platform, const std::string& name) {
    if (writable(platform.programFolder)) {
        return platform.programFolder / name;
    }
    std::error_code ignored;
    std::filesystem::create_directories(platform.userFolder, ignored);
    return platform.userFolder / name;
}

void readPreferences(Bench& bench) {
    std::filesystem::path file = settingsFileToRead(bench.platform, "ZOR.ini");
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        return;
    }
    RecordReader reader(readFile(file));
    std::string banner = reader.text();
    bench.Commport_min = reader.text();
    bench.Pref_LoadWS = reader.integer();
    bench.Pref_CCautoLoad = reader.integer();
    // A file of another version has no last port.
    if (banner == iniBanner) {
        bench.Commport_max = reader.text();
    }
}

} // namespace zor
