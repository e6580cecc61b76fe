// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs.h"

#include <functional>
#include <optional>
#include <string>

namespace zor {

struct Bench;

// The windows' file dialogs. Each takes the name that a first file of its kind is proposed under
// ("terminal-log.txt"). The file that was loaded or saved last under that name is proposed from then on, in
// its folder; what was saved or loaded is said at the foot of the main window.

/// What a first C header of a chip is proposed as.
[[nodiscard]] std::string firstHeader(const std::string& chip);

/// Asks for a file. Whoever loads or saves it says so by fileLoaded or fileSaved.
/// @param firstName  also tells the kinds of files apart; a load has it for that alone
[[nodiscard]] FileChoice askForFile(const Bench& bench, FileRequest request, const std::string& firstName);

/// The dialog was cancelled, or its name field still held the pattern.
[[nodiscard]] bool noFileChosen(const FileChoice& choice, const FileRequest& request);

/// The next dialog of this kind proposes that file.
void rememberFile(Bench& bench, const std::string& firstName, const std::string& name);
/// The same, and the foot names the file.
void fileSaved(Bench& bench, const std::string& firstName, const std::string& name);
void fileLoaded(Bench& bench, const std::string& firstName, const std::string& name);
void saySaved(const Bench& bench, const std::string& name);
void sayLoaded(const Bench& bench, const std::string& name);

/// What to save under the name that was chosen; may throw ToolError.
using BytesFor = std::function<std::string(const std::string& name)>;
/// The name to save under; nothing asks for another one. May throw ToolError.
using SaveNameRule = std::function<std::optional<std::string>(const FileChoice& choice)>;

/// Asks where to save and saves there; a file of that name is kept beside the new one. Throws ToolError, and
/// leaves the older file whole then.
/// @param named  without it the name is taken as it was chosen
/// @return the name of the file; empty if nothing was saved
std::string saveChosen(Bench& bench, const FileRequest& request, const std::string& firstName,
                       const BytesFor& bytes, const SaveNameRule& named = {});

/// The same, and a failure is told in a box.
/// @param closing  the last sentence of the box
std::string saveByDialog(Bench& bench, const FileRequest& request, const std::string& firstName,
                         const BytesFor& bytes, const std::string& closing = "Please try again!");

/// Asks which file to load and gives it to whoever takes it; may throw what that throws.
/// @param take  false if the file was not good and that has been told
/// @return whether a file was loaded
bool loadChosen(Bench& bench, const FileRequest& request, const std::string& firstName,
                const std::function<bool(const FileChoice& choice)>& take);

} // namespace zor
