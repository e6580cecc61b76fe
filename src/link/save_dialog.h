// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs.h"

#include <functional>
#include <string>

namespace zor {

struct Bench;

/// Asks where to save and saves there; a file of that name is kept beside the new one. A failure is told in a
/// box and leaves the older file whole. The pattern left in the dialog's name field counts as cancelled.
/// @param bytes    what to save under the name that was chosen; may throw ToolError
/// @param closing  the last sentence of the box
/// @return the name of the file; empty if nothing was saved
std::string saveByDialog(const Bench& bench, const FileRequest& request,
                         const std::function<std::string(const std::string& name)>& bytes,
                         const std::string& closing = "Please try again!");

} // namespace zor
