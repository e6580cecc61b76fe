// SPDX-License-Identifier: MIT
#include "transcript/scripted_dialogs.h"

namespace zor::transcript {

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
    std::string name = chosen.value_or(request.startName);
    return {.name = name,
            .extensionDiffers = extensionDiffers(name, request.defaultExtension),
            .readOnly = chosen.has_value() && readOnly};
}

} // namespace zor::transcript
