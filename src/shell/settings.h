// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace zor {

/// Where a settings file of the product is read: in the program's folder, or in the user's own where the
/// program's may not be written and the user's holds one.
[[nodiscard]] std::filesystem::path settingsFileToRead(const Platform& platform, const std::string& name);
/// Where it is written.
[[nodiscard]] std::filesystem::path settingsFileToWrite(const Platform& platform, const std::string& name);

/// The preferences that outlive the run, in ZOR.ini.
struct StoredPreferences {
    std::string Commport_min;
    std::int32_t Pref_LoadWS = 0;
    std::int32_t Pref_CCautoLoad = 0;
    std::string Commport_max;
};

[[nodiscard]] StoredPreferences storedPreferences(const Bench& bench);
void takePreferences(Bench& bench, const StoredPreferences& preferences);

/// Reads a file's bytes. A file of another version has no last port; that value stays as it is. Throws
/// ToolError for bytes that end too early or hold another form; what was read before stays.
void parsePreferences(std::string bytes, StoredPreferences& preferences);
/// The file's bytes.
[[nodiscard]] std::string formatPreferences(const StoredPreferences& preferences);

/// The preferences that ZOR.ini has no line for, in ZOR-more.ini: a banner, then one line each, further ones
/// by their names and only where they are not at their defaults. The file comes into being with the first
/// preference that is not.
struct OwnPreferences {
    bool reconnectByItself = false;
    /// An entry of the wire log's own list.
    std::string wireLogPlace = "Window";
    /// Grids whose columns the user has made wider or narrower, as "WINDOW.GRID", and the widths of all their
    /// columns in characters.
    std::map<std::string, std::vector<int>> columns;
    friend bool operator==(const OwnPreferences&, const OwnPreferences&) = default;
};
/// The defaults for a file that is missing or cannot be read: nothing but comfort is lost.
[[nodiscard]] OwnPreferences readOwnPreferences(const Platform& platform);
/// Throws ToolError; the old file is then still there.
void writeOwnPreferences(const Platform& platform, const OwnPreferences& preferences);

/// The files that the user worked with, newest first, in ZOR-recent.ini. Like the other own settings they
/// are comfort: a file that is missing, or cannot be read or written, is told nowhere.
[[nodiscard]] std::vector<std::string> readRecentFiles(const Platform& platform);
void writeRecentFiles(const Platform& platform, const std::vector<std::string>& paths);

/// No settings file of ours is anywhere near so long; what is longer was put there by mistake and is refused
/// before it has eaten time and memory. In bytes.
inline constexpr std::uintmax_t longestSettings = 1U << 20;

/// Reads the preferences of ZOR.ini. A missing file leaves the defaults. Throws ToolError for a file that
/// cannot be read whole; what was read before stays.
void readPreferences(Bench& bench);
/// Writes ZOR.ini. Throws ToolError; the old file is then still there.
void writePreferences(const Platform& platform, const StoredPreferences& preferences);

} // namespace zor
