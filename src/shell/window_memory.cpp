// SPDX-License-Identifier: MIT
#include "shell/window_memory.h"

#include "host/files.h"
#include "shell/settings.h"
#include "support/error.h"
#include "support/record_file.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace zor {

namespace {

constexpr const char* fileName = "ZOR-window.ini";
constexpr std::string_view banner = "# ZOR window file version 1";
/// Six short lines; what is longer is something else.
constexpr std::uintmax_t longestFile = 4096;
/// No desktop reaches as far, in pixels; what a file says beyond is taken as that.
constexpr std::int32_t farthest = 1'000'000;

} // namespace

std::optional<WindowMemory> readWindowMemory(const Platform& platform) {
    try {
        RecordReader reader(readFile(settingsFileToRead(platform, fileName), longestFile));
        if (!reader.isText(banner)) {
            return std::nullopt;
        }
        WindowMemory memory;
        for (int* number : {&memory.left, &memory.top, &memory.width, &memory.height}) {
            *number = std::clamp(reader.integer(), -farthest, farthest);
        }
        memory.maximized = reader.boolean();
        if (memory.width <= 0 || memory.height <= 0) {
            return std::nullopt;
        }
        return memory;
    } catch (const ToolError&) {
        return std::nullopt;
    }
}

void writeWindowMemory(const Platform& platform, const WindowMemory& memory) {
    RecordWriter writer;
    writer.text(banner);
    writer.integer(memory.left);
    writer.integer(memory.top);
    writer.integer(memory.width);
    writer.integer(memory.height);
    writer.boolean(memory.maximized);
    writeFileWhole(settingsFileToWrite(platform, fileName), writer.bytes());
}

} // namespace zor
