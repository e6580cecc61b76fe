// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_window.h"
#include "link/tools.h"
#include "platform/event_loop.h"

#include <QDir>

#include <functional>

namespace zor {

class ChipPanel;
class MenuEntry;

/// Walks through the program on its own and takes a picture of every window: for the user guide, and for
/// whoever changed a view and wants to see all of them. It needs the simulated board. Owned by main.
class DemoTour {
  public:
    /// @param pictures  where the pictures go; made if it is missing
    /// @param filePrefix  begins each picture's name ("light-")
    DemoTour(MainWindow& mainForm, DesktopWindow& mainWindow, const QDir& pictures, QString filePrefix);

    /// Gives the simulated board a statement of its bench.
    std::function<void(const QString& statement)> tellBoard;

    /// Loads a transcript into the player.
    std::function<void(const std::string& file)> loadTranscript;

    /// Runs it from the program's start to its end, and closes the program.
    void play();
    /// A picture could not be written.
    [[nodiscard]] bool failed() const { return hasFailed; }
    /// Makes the folder if it is missing and tries it.
    [[nodiscard]] static bool canWriteTo(const QDir& folder);

  private:
    void settle(std::chrono::milliseconds time);
    void waitForBoard();
    void takePicture(const QString& name);
    void visit(MenuEntry& entry);
    void visitTerminal();
    void visitWireLog();
    void visitCurrents();
    void visitSearch();
    void visitEeprom();
    void visitLinks();
    void visitReceiver();
    void visitTransceiver();
    void visitSniffer();
    void visitTestModes();
    Form* openTool(Tool tool);
    /// Ten packets of the far end come to a window that its button has armed; the seventh fades away.
    void hearTenPackets(Form& link, const char* button);
    void waitForEeprom(const Form& programmer);
    void visitHeaderGenerator();
    void visitContentEditor();
    void visitRegisters();
    void visitCompare();
    /// Plays a short transcript with a check that does not hold.
    void visitPlay();
    void visitForm(Form& form);
    /// What an engineer does on a chip's panel: set, update, read the status, calibrate, look at the current.
    void workOn(ChipPanel& panel);
    [[nodiscard]] std::vector<Form*> openForms() const;
    void closeBoxes();

    MainWindow& main;
    DesktopWindow& window;
    QDir folder;
    QString prefix;
    bool hasFailed = false;
    Timer boxCloser;
};

} // namespace zor
