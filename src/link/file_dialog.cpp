// SPDX-License-Identifier: MIT
#include "link/file_dialog.h"

#include "host/file_backup.h"
#include "link/bench.h"
#include "support/error.h"
#include "support/file_name.h"

namespace zor {

std::string firstHeader(const std::string& chip) {
    return "Setup_" + chip + ".h";
}

FileChoice askForFile(const Bench& bench, FileRequest request, const std::string& firstName) {
    auto used = bench.usedFiles.find(firstName);
    if (used != bench.usedFiles.end()) {
        std::filesystem::path last = pathOf(used->second);
        request.folder = last.parent_path();
        request.proposal = nameOf(last.filename());
    } else if (request.mode == FileRequest::Mode::Save) {
        request.proposal = firstName;
    }
    return bench.platform.dialogs.chooseFile(request);
}

bool noFileChosen(const FileChoice& choice, const FileRequest& request) {
    return choice.name == request.startName ||
           nameOf(pathOf(choice.name).filename()) == "*." + request.defaultExtension;
}

void rememberFile(Bench& bench, const std::string& firstName, const std::string& name) {
    bench.usedFiles[firstName] = name;
}

void fileSaved(Bench& bench, const std::string& firstName, const std::string& name) {
    rememberFile(bench, firstName, name);
    saySaved(bench, name);
}

void fileLoaded(Bench& bench, const std::string& firstName, const std::string& name) {
    rememberFile(bench, firstName, name);
    sayLoaded(bench, name);
}

void saySaved(const Bench& bench, const std::string& name) {
    bench.notice("Saved " + name);
}

void sayLoaded(const Bench& bench, const std::string& name) {
    bench.notice("Loaded " + name);
}

std::string saveChosen(Bench& bench, const FileRequest& request, const std::string& firstName,
                       const BytesFor& bytes, const SaveNameRule& named) {
    while (true) {
        FileChoice choice = askForFile(bench, request, firstName);
        if (noFileChosen(choice, request)) {
            return {};
        }
        std::optional<std::string> name = named ? named(choice) : choice.name;
        if (name) {
            saveUserFile(*name, bytes(*name));
            fileSaved(bench, firstName, *name);
            return *name;
        }
    }
}

std::string saveByDialog(Bench& bench, const FileRequest& request, const std::string& firstName,
                         const BytesFor& bytes, const std::string& closing) {
    try {
        return saveChosen(bench, request, firstName, bytes);
    } catch (const ToolError& error) {
        bench.tellFileError(error, "File save error", closing);
    }
    return {};
}

bool loadChosen(Bench& bench, const FileRequest& request, const std::string& firstName,
                const std::function<bool(const FileChoice& choice)>& take) {
    FileChoice choice = askForFile(bench, request, firstName);
    if (noFileChosen(choice, request) || !take(choice)) {
        return false;
    }
    fileLoaded(bench, firstName, choice.name);
    return true;
}

} // namespace zor
