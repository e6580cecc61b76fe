// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_window.h"
#include "link/tools.h"
#include "platform/event_loop.h"

#include <QDir>
#include <QPixmap>

#include <functional>
#include <string>

namespace zor {

class ChipPanel;
class MenuEntry;

/// Walks through the program on its own and takes a picture of every window: for the user guide, and for
/// whoever changed a view and wants to see all of them. It needs the simulated board; one that runs its
/// loader has a tour of its own, of the loader's window. Owned by main.
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
    [[nodiscard]] QPixmap look() const;
    void keep(const QPixmap& picture, const QString& name);
    void takePicture(const QString& name);
    void visitEverything();
    /// The first panel as the guide's first steps have it, and with a step to go back.
    void visitFirstSteps();
    /// What a board that runs its loader has; a file is on its way into it.
    void visitLoader();
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
    /// Writes a transcript and plays it to its end in the player, which stays open; nullptr if it cannot be
    /// written.
    Form* playTranscript(const QString& name, const std::string& text);
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
