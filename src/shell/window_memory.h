// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "platform/platform.h"

#include <optional>

namespace zor {

/// Where the main window was when the program ended, in pixels of the desktop, its frame not counted; of a
/// maximised one where it was before. Kept in ZOR-window.ini: a banner and one line each. ZOR.wsp knows
/// nothing of it.
struct WindowMemory {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool maximized = false;
    friend bool operator==(const WindowMemory&, const WindowMemory&) = default;
};

/// Nothing for a file that is missing or cannot be read, or a size that no window has: then the window opens
/// as at the first start.
[[nodiscard]] std::optional<WindowMemory> readWindowMemory(const Platform& platform);
/// Throws ToolError; the old file is then still there.
void writeWindowMemory(const Platform& platform, const WindowMemory& memory);

} // namespace zor
