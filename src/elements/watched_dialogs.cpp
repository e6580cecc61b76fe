// SPDX-License-Identifier: MIT
#include "elements/watched_dialogs.h"

namespace zor {

Answer WatchedDialogs::show(const Box& box) {
    boxComes.emit(box);
    Answer answer = asked().show(box);
    boxAnswered.emit(box, answer);
    return answer;
}

FileChoice WatchedDialogs::chooseFile(const FileRequest& request) {
    fileDialogComes.emit(request);
    FileChoice choice = asked().chooseFile(request);
    fileDialogAnswered.emit(request, choice);
    return choice;
}

} // namespace zor
