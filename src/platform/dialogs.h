// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace zor {

inline constexpr const char* productTitle = "Ortolan Radio Bench System";

enum class BoxIcon { None, Information, Warning, Critical, Question };
enum class BoxButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

/// A modal message or question.
struct Box {
    std::string text;
    std::string title = productTitle;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
};

/// A file dialog to show. Its folder may be missing; the dialog then opens where the system likes.
struct FileRequest {
    enum class Mode { Load, Save };
    Mode mode = Mode::Load;
    std::string title;
    std::filesystem::path folder;
    /// The pattern that stands in the name field ("*.tc") and comes back if the dialog is cancelled.
    std::string startName;
    /// A name that the dialog proposes in the pattern's place; it counts as chosen if the user takes it.
    std::string proposal = {};
    /// Labels and patterns in turn, separated by "|".
    std::string filter;
    /// Without the point.
    std::string defaultExtension;
    /// A save dialog asks about a file that exists; false where whoever asked for the name does so himself.
    bool asksToReplace = true;
};

/// What a file dialog gave.
struct FileChoice {
    /// The chosen file's full path, or the request's start name if the dialog was cancelled.
    std::string name;
    /// The name has an extension and it is not the default one (case does not count).
    bool extensionDiffers = false;
    bool readOnly = false;
};

/// What the user is asked in boxes of their own. A box waits inside the event loop: timers go on.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    virtual Answer show(const Box& box) = 0;
    virtual FileChoice chooseFile(const FileRequest& request) = 0;
};

/// Asks whether a file of that name may be replaced; true without a question if there is none.
[[nodiscard]] bool mayReplace(Dialogs& dialogs, const std::string& name);

/// extensionDiffers of a name, worked out as the system's dialog does.
[[nodiscard]] bool extensionDiffers(const std::string& name, const std::string& defaultExtension);

} // namespace zor
