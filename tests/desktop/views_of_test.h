// SPDX-License-Identifier: MIT
// What tests of views look for in a window, and how they open one.
#pragma once

#include "panels/common/chip_panel.h"
#include "program.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>

class QAction;

namespace zor {

[[nodiscard]] QString name(const Element& element);
/// It stands on a page of a tab strip that is not turned up.
[[nodiscard]] bool onPageThatIsDown(const QWidget& widget);
/// Names of the form's elements that no widget below the root is bound to.
[[nodiscard]] QStringList unseenElements(const Form& form, const QWidget& root);
/// Names of bound widgets that are hidden although their element, and each container of it, is shown.
[[nodiscard]] QStringList wronglyHidden(const QWidget& root);
/// Texts of visible captions and buttons that have less room than they need.
[[nodiscard]] QStringList clippedTexts(const QWidget& root);
[[nodiscard]] QStringList labelTexts(const QWidget& root);

/// How each window of the registry comes onto the desk in a test.
/// @param own  holds a form that the test itself must keep
void openForm(Program& program, const std::string& formName, std::unique_ptr<Form>& own);
/// The program, started, with one window of the registry open in it.
class OpenView {
  public:
    explicit OpenView(const std::string& ownName);
    [[nodiscard]] Form& form() const;
    [[nodiscard]] FormWindow& window() const;

    Program program;

  private:
    std::string formName;
    std::unique_ptr<Form> own;
};
/// Starts the program and opens a chip's panel in it.
ChipPanel& startWithPanel(Program& program, const std::string& panelName);
/// Starts the program and opens the terminal and, in front of it, the supply tool.
void startWithTwoTools(Program& program);
/// Every window of the registry.
[[nodiscard]] std::vector<std::string> everyForm();
/// Windows go once nothing of theirs is being handled; a test has no loop around it that would see to that.
void deleteWhatHasGone();
/// An entry of the menus.
[[nodiscard]] QAction* action(const Program& program, const QString& objectName);

} // namespace zor
