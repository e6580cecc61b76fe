// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs.h"

#include <deque>
#include <functional>
#include <optional>

namespace zor::transcript {

/// Boxes and file dialogs that are answered at once, from answers laid ready: a message with Ok, a question
/// with the next answer or No, a file dialog with the next file or by cancelling. Keeps what was asked.
class ScriptedDialogs : public Dialogs {
  public:
    Answer show(const Box& box) override;
    FileChoice chooseFile(const FileRequest& request) override;

    /// Oldest first; whoever has looked at one takes it out.
    std::deque<Box> boxes;
    std::deque<FileRequest> fileDialogs;

    /// Yes or No, in the order of the questions.
    std::deque<Answer> answers;
    /// A path as chosen, or none to cancel, in the order of the dialogs.
    std::deque<std::optional<std::string>> files;
    /// What goes on while a box or dialog stands on the screen, before its answer is looked for.
    std::function<void()> whileOpen;
    /// The box "read only" of the next file dialogs is ticked.
    bool readOnly = false;
};

} // namespace zor::transcript
