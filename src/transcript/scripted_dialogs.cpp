// SPDX-License-Identifier: MIT
#include "transcript/scripted_dialogs.h"

#include "support/file_name.h"

namespace zor::transcript {

namespace {

/// A name field that still holds its pattern holds no name, and a real dialog gives it back as it was.
bool patternLeft(const std::string& name, const FileRequest& request) {
    return request.startName.starts_with('*') && pathOf(name).filename() == pathOf(request.startName);
}

} // namespace

Answer ScriptedDialogs::show(const Box& box) {
    boxes.push_back(box);
    if (whileOpen) {
        whileOpen();
    }
    if (box.buttons == BoxButtons::Ok) {
        return Answer::Ok;
    }
    if (answers.empty()) {
        return Answer::No;
    }
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

FileChoice ScriptedDialogs::chooseFile(const FileRequest& request) {
    fileDialogs.push_back(request);
    if (whileOpen) {
        whileOpen();
    }
    std::optional<std::string> chosen;
    if (!files.empty()) {
        chosen = files.front();
        files.pop_front();
    }
    if (chosen && patternLeft(*chosen, request)) {
        chosen.reset();
    }
    std::string name = chosen.value_or(request.startName);
    return {.name = name,
            .extensionDiffers = extensionDiffers(name, request.defaultExtension),
            .readOnly = chosen.has_value() && readOnly};
}

} // namespace zor::transcript
