// SPDX-License-Identifier: MIT
// What the main window opens beside its windows: files that it is given, the guide, data sheets, folders.
#include "shell/main_window.h"
#include "support/file_name.h"
#include "utilities/guide.h"

#include <filesystem>
#include <string>

namespace zor {

void MainWindow::openFile(const std::string& path) {
    tools.close(Tool::frm_Splash);
    if (!menu.View.active()) {
        // The panels cannot be used yet; the file is opened as soon as they can.
        waitingFile = path;
        if (link.state() == LinkState::Choosing) {
            tellWaitingFile();
        }
        return;
    }
    try {
        registry.openConfiguration(path);
    } catch (const ToolError& error) {
        ownBench.tellFileError(error, "File open error");
    }
    std::error_code unknown;
    if (!std::filesystem::exists(pathOf(path), unknown)) {
        ownBench.recentFiles.forget(path);
    }
}

void MainWindow::tellWaitingFile() {
    foot.say(nameOf(pathOf(waitingFile).filename()) + " will be opened once a board is chosen.");
}

void MainWindow::openGuide(const std::string& window) {
    tools.open(Tool::frm_Guide);
    if (auto* guide = dynamic_cast<Guide*>(tools.find(Tool::frm_Guide))) {
        guide->showWindow(window);
    }
}

void MainWindow::openDataSheet(const std::string& chip) {
    // The folder that documents are browsed in; any file that begins with the chip's name is its data sheet.
    std::filesystem::path folder = documentsBesideTheProgram();
    std::error_code failed;
    for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::string name = nameOf(entry->path().filename());
        if (name.starts_with(chip) && kindOfFile(name) == "pdf") {
            if (!ownBench.platform.surroundings.openDocument(entry->path())) {
                foot.say("There is no program to open " + nameOf(entry->path()) + " with.");
            }
            return;
        }
    }
    foot.say("Put the data sheet into " + nameOf(folder) + " as " + chip + ".pdf.");
}

std::filesystem::path MainWindow::documentsBesideTheProgram() const {
    return (ownBench.platform.programFolder / ".." / "Documentation").lexically_normal();
}

void MainWindow::browse(const std::string& folder, const std::string& title) {
    static constexpr const char* pattern = "*.pdf";
    FileChoice choice = ownBench.platform.dialogs.chooseFile(
        {.mode = FileRequest::Mode::Load,
         .title = title,
         .folder = pathOf(ownBench.link.CurrentPath) / ".." / folder,
         .startName = pattern,
         .filter = "Documentation files (*.PDF)|*.pdf|All files (*.*)|*.*",
         .defaultExtension = "pdf"});
    if (choice.name != pattern && !ownBench.platform.surroundings.openDocument(choice.name)) {
        foot.say("There is no program to open " + choice.name + " with.");
    }
}

} // namespace zor
