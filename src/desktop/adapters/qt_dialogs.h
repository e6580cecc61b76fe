// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs.h"

#include <QStringList>

class QFileDialog;
class QMessageBox;

namespace zor {

/// Message boxes and file dialogs of the toolkit. They are modal, and the event loop goes on under them.
class QtDialogs : public Dialogs {
  public:
    Answer show(const Box& box) override;
    FileChoice chooseFile(const FileRequest& request) override;
};

/// "Text files (*.txt) | *.txt |All files|*.*" as the toolkit's filters: "Text files (*.txt)", "All files
/// (*.*)".
[[nodiscard]] QStringList fileFilters(const std::string& filter);

/// What a dialog's answer means: the request's own start name for a cancelled dialog or a pattern left as it
/// was.
/// @param accepted  the chosen path; empty if cancelled
[[nodiscard]] FileChoice fileChoice(const FileRequest& request, const std::string& accepted);

} // namespace zor
