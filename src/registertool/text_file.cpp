// SPDX-License-Identifier: MIT
#include "registertool/text_file.h"

#include "host/files.h"
#include "link/file_dialog.h"
#include "platform/register_store.h"
#include "support/lines.h"

namespace zor {

namespace {

constexpr const char* anyText = "*.txt";
constexpr const char* loadErrorTitle = "File open error";
constexpr const char* saveErrorTitle = "File save error";

FileRequest textRequest(FileRequest::Mode mode, const std::string& title) {
    return {.mode = mode,
            .title = title,
            .folder = {},
            .startName = anyText,
            .filter = "Text files (*.txt) | *.txt |All files (*.*)| *.*",
            .defaultExtension = "txt"};
}

} // namespace

std::optional<std::string> onlyOwnExtension(const FileChoice& choice) {
    if (choice.extensionDiffers) {
        throw ToolError(unsupported, "Incorrect extension");
    }
    return choice.name;
}

std::optional<std::string> chooseTextToLoad(const Bench& bench, const std::string& title,
                                            const std::string& firstName) {
    FileRequest request = textRequest(FileRequest::Mode::Load, title);
    FileChoice choice = askForFile(bench, request, firstName);
    return noFileChosen(choice, request) ? std::nullopt : onlyOwnExtension(choice);
}

void saveText(Bench& bench, const std::string& title, const std::string& firstName,
              const std::function<std::string()>& text) {
    saving(bench, [&] {
        saveChosen(
            bench, textRequest(FileRequest::Mode::Save, title), firstName,
            [&](const std::string&) { return text(); }, onlyOwnExtension);
    });
}

std::vector<std::string> readTextLines(const std::string& name) {
    std::string text = withLineEnds(readFile(name));
    if (text.empty()) {
        throw ToolError(inputPastEnd);
    }
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = text.find(textLineEnd, start);
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

void loading(const Bench& bench, const std::function<void()>& action) {
    try {
        action();
    } catch (const StoreError&) {
        // The database's failure is told by the tool.
        throw;
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
}

void saving(const Bench& bench, const std::function<void()>& action) {
    try {
        action();
    } catch (const StoreError&) {
        throw;
    } catch (const ToolError& error) {
        bool wrongType = error.number() == unsupported;
        bench.tellFileError(error, wrongType ? loadErrorTitle : saveErrorTitle, "Please try again");
    }
}

} // namespace zor
