// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "host/files.h"
#include "support/record_file.h"

#include <locale>
#include <sstream>
#include <utility>

namespace zor {

namespace {

constexpr const char* iniName = "ZOR.ini";
constexpr const char* ownName = "ZOR-more.ini";
constexpr const char* recentName = "ZOR-recent.ini";
constexpr std::string_view recentBanner = "# ZOR recent files version 1";
constexpr std::string_view ownBanner = "# ZOR more settings version 1";
constexpr std::string_view wireLogPlace = "WireLogPlace ";
constexpr std::string_view columnsOf = "Columns ";
constexpr std::string_view iniBanner = "# ZOR ini file version 2.2.0";

} // namespace

std::filesystem::path settingsFileToRead(const Platform& platform, const std::string& name) {
    std::filesystem::path own = platform.programFolder / name;
    std::filesystem::path users = platform.userFolder / name;
    std::error_code ignored;
    if (!mayWrite(platform.programFolder) && std::filesystem::exists(users, ignored)) {
        return users;
    }
    return own;
}

std::filesystem::path settingsFileToWrite(const Platform& platform, const std::string& name) {
    if (mayWrite(platform.programFolder)) {
        return platform.programFolder / name;
    }
    std::error_code ignored;
    std::filesystem::create_directories(platform.userFolder, ignored);
    return platform.userFolder / name;
}

StoredPreferences storedPreferences(const Bench& bench) {
    return {bench.preferences.Commport_min, bench.preferences.Pref_LoadWS, bench.preferences.Pref_CCautoLoad,
            bench.preferences.Commport_max};
}

void takePreferences(Bench& bench, const StoredPreferences& preferences) {
    bench.preferences.Commport_min = preferences.Commport_min;
    bench.preferences.Commport_max = preferences.Commport_max;
    bench.preferences.Pref_LoadWS = preferences.Pref_LoadWS;
    bench.preferences.Pref_CCautoLoad = preferences.Pref_CCautoLoad;
}

void parsePreferences(std::string bytes, StoredPreferences& preferences) {
    RecordReader reader(std::move(bytes));
    // A first line that cannot be read is that of another version too.
    bool present = reader.isText(iniBanner);
    preferences.Commport_min = reader.text();
    preferences.Pref_LoadWS = reader.integer();
    preferences.Pref_CCautoLoad = reader.integer();
    if (present) {
        preferences.Commport_max = reader.text();
    }
}

std::string formatPreferences(const StoredPreferences& preferences) {
    RecordWriter writer;
    writer.text(iniBanner);
    writer.text(preferences.Commport_min);
    writer.integer(preferences.Pref_LoadWS);
    writer.integer(preferences.Pref_CCautoLoad);
    writer.text(preferences.Commport_max);
    return writer.bytes();
}

namespace {

/// "SPI.SettingsDataGrid 2 4 3 9"
void takeColumns(const std::string& line, OwnPreferences& preferences) {
    std::istringstream words(line);
    words.imbue(std::locale::classic());
    std::string grid;
    words >> grid;
    std::vector<int>& widths = preferences.columns[grid];
    widths.clear();
    for (int width = 0; words >> width;) {
        widths.push_back(width);
    }
}

} // namespace

OwnPreferences readOwnPreferences(const Platform& platform) {
    OwnPreferences preferences;
    try {
        RecordReader reader(readFile(settingsFileToRead(platform, ownName), longestSettings));
        if (reader.text() == ownBanner) {
            preferences.reconnectByItself = reader.boolean();
            while (!reader.atEnd()) {
                std::string line = reader.text();
                if (line.starts_with(wireLogPlace)) {
                    preferences.wireLogPlace = line.substr(wireLogPlace.size());
                } else if (line.starts_with(columnsOf)) {
                    takeColumns(line.substr(columnsOf.size()), preferences);
                }
            }
        }
    } catch (const ToolError&) {
        return {};
    }
    return preferences;
}

void writeOwnPreferences(const Platform& platform, const OwnPreferences& preferences) {
    if (preferences == readOwnPreferences(platform)) {
        return;
    }
    RecordWriter writer;
    writer.text(ownBanner);
    writer.boolean(preferences.reconnectByItself);
    if (preferences.wireLogPlace != OwnPreferences().wireLogPlace) {
        writer.text(std::string(wireLogPlace) + preferences.wireLogPlace);
    }
    for (const auto& [grid, widths] : preferences.columns) {
        std::string line = std::string(columnsOf) + grid;
        for (int width : widths) {
            line += " " + std::to_string(width);
        }
        writer.text(line);
    }
    writeFileWhole(settingsFileToWrite(platform, ownName), writer.bytes());
}

std::vector<std::string> readRecentFiles(const Platform& platform) {
    std::vector<std::string> paths;
    try {
        RecordReader reader(readFile(settingsFileToRead(platform, recentName), longestSettings));
        if (reader.text() == recentBanner) {
            while (!reader.atEnd()) {
                paths.push_back(reader.text());
            }
        }
    } catch (const ToolError&) {
        // What was read until then is as good as any.
    }
    return paths;
}

void writeRecentFiles(const Platform& platform, const std::vector<std::string>& paths) {
    RecordWriter writer;
    writer.text(recentBanner);
    for (const std::string& path : paths) {
        // Such a name would not read back whole.
        if (path.find_first_of("\"\r\n") == std::string::npos) {
            writer.text(path);
        }
    }
    try {
        writeFileWhole(settingsFileToWrite(platform, recentName), writer.bytes());
    } catch (const ToolError&) {
        // The list lasts for this run.
    }
}

void readPreferences(Bench& bench) {
    bench.preferences.ReconnectByItself = readOwnPreferences(bench.platform).reconnectByItself;
    std::filesystem::path file = settingsFileToRead(bench.platform, iniName);
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        return;
    }
    StoredPreferences preferences = storedPreferences(bench);
    try {
        parsePreferences(readFile(file, longestSettings), preferences);
    } catch (const ToolError&) {
        takePreferences(bench, preferences);
        throw;
    }
    takePreferences(bench, preferences);
}

void writePreferences(const Platform& platform, const StoredPreferences& preferences) {
    writeFileWhole(settingsFileToWrite(platform, iniName), formatPreferences(preferences));
}

} // namespace zor
