// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/dock_window.h"
#include "desktop/form_window.h"

#include <map>
#include <string>

namespace zor {

/// How one kind of form gets its window.
struct View {
    /// Makes the window's content out of the form's elements.
    QWidget* (*make)(Form& form);
    FormWindow::Frame frame = FormWindow::Frame::Titled;
    /// For a form that may stand at an edge of the main window.
    const Docking* docking = nullptr;
};

/// Every view by its form's name. A new window needs one row here.
[[nodiscard]] const std::map<std::string, View>& allViews();
/// nullptr for a form without a view.
[[nodiscard]] const View* findView(const std::string& formName);

} // namespace zor
