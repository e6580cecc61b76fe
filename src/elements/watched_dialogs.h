// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "platform/dialogs.h"

#include <utility>

namespace zor {

/// Hands boxes and file dialogs on and tells what was asked and what came back. Owned by main, beside the
/// dialogs that it hands on to.
class WatchedDialogs : public Dialogs {
  public:
    explicit WatchedDialogs(Dialogs& shown)
        : real(shown) {}

    Answer show(const Box& box) override;
    FileChoice chooseFile(const FileRequest& request) override;

    /// Somebody else answers in the user's place from now on; nullptr gives him his place back.
    /// @return who answered until now; nullptr if the user did
    Dialogs* answerBy(Dialogs* other) { return std::exchange(standIn, other); }

    /// It is about to stand on the screen.
    Signal<const Box&> boxComes;
    Signal<const Box&, Answer> boxAnswered;
    Signal<const FileRequest&> fileDialogComes;
    Signal<const FileRequest&, const FileChoice&> fileDialogAnswered;

  private:
    [[nodiscard]] Dialogs& asked() const { return standIn != nullptr ? *standIn : real; }

    Dialogs& real;
    Dialogs* standIn = nullptr;
};

} // namespace zor
