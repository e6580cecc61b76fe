// SPDX-License-Identifier: MIT
// The panel's configuration files: the dialogs, what is done about a file's name, what follows a load.
#include "elements/range.h"
#include "host/file_backup.h"
#include "host/files.h"
#include "link/commands.h"
#include "link/connect.h"
#include "link/file_dialog.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/file_name.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

namespace {

constexpr const char* loadErrorTitle = "File open error";
constexpr const char* saveErrorTitle = "File save error";

/// What the name rule of a save makes of a name that came out of the dialog.
std::string savedName(const std::string& name, const FileTraits& file) {
    std::string extension = file.extension;
    switch (file.saveName) {
    case SaveName::AsChosen:
        return name;
    case SaveName::CutDoubled:
        // Asks only for the end of a name that doubles the extension, so "etc.tc" is taken for one too.
        return name.ends_with(extension + "." + extension)
                   ? name.substr(0, name.size() - 1 - extension.size())
                   : name;
    case SaveName::AppendMissing:
        return name.ends_with("." + extension) ? name : name + "." + extension;
    }
    return name;
}

} // namespace

std::optional<std::string> ChipPanel::chooseFile(FileRequest::Mode mode) {
    const FileTraits& file = ownTraits.file;
    FileRequest request;
    request.mode = mode;
    request.title = mode == FileRequest::Mode::Load ? file.loadTitle : file.saveTitle;
    request.folder = pathOf(bench.link.CurrentPath) / ".." / "Project_Configurations";
    request.startName = std::string("*.") + file.extension;
    request.filter = file.filter;
    request.defaultExtension = file.extension;
    // The same place and name again; a first save is named after the chip.
    std::string last = used.path.empty() ? bench.recentFiles.last(file.extension) : used.path;
    if (!last.empty()) {
        request.folder = pathOf(last).parent_path();
        request.proposal = nameOf(pathOf(last).filename());
    } else if (mode == FileRequest::Mode::Save) {
        request.proposal = chip() + "." + file.extension;
    }
    FileChoice choice = bench.platform.dialogs.chooseFile(request);
    if (choice.extensionDiffers) {
        throw ToolError(unsupported, "Incorrect extension");
    }
    return choice.name == request.startName ? std::nullopt : std::optional(choice.name);
}

void ChipPanel::ConfSave_Click() {
    try {
        while (std::optional<std::string> chosen = chooseFile(FileRequest::Mode::Save)) {
            std::string name = savedName(*chosen, ownTraits.file);
            // The dialog has asked about the name it gave, not about the one made of it.
            if (name == *chosen || mayReplace(bench.platform.dialogs, name)) {
                std::string content = savedConfiguration();
                saveUserFile(name, content);
                setUsedFile({name, std::move(content)});
                bench.recentFiles.use(name);
                saySaved(bench, name);
                return;
            }
        }
    } catch (const ToolError& error) {
        bool wrongType = error.number() == unsupported;
        bench.tellFileError(error, wrongType ? ownTraits.file.wrongTypeOnSave : saveErrorTitle,
                            "Please try again");
    }
}

void ChipPanel::ConfLoad_Click() {
    try {
        if (std::optional<std::string> name = chooseFile(FileRequest::Mode::Load)) {
            takeFile(*name);
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
}

void ChipPanel::loadFile(const std::string& path) {
    try {
        takeFile(path);
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
}

void ChipPanel::takeFile(const std::string& path) {
    readConfiguration(readFile(path));
    nameOfAction = "Load " + nameOf(pathOf(path).filename());
    // In force; what the board says to the supply does not change that.
    setUsedFile({path, savedConfiguration()});
    bench.recentFiles.use(path);
    sayLoaded(bench, path);
    sendLoadedSupply();
}

void ChipPanel::setUsedFile(UsedFile file) {
    used = std::move(file);
    showUsedFile();
}

void ChipPanel::showUsedFile() {
    if (used.path.empty()) {
        setDocument({});
        return;
    }
    std::string name = nameOf(pathOf(used.path).filename());
    setDocument(savedConfiguration() == used.content ? name : name + " (changed)");
}

void ChipPanel::watchSettings() {
    auto look = [this] {
        if (used.path.empty() || std::exchange(*lookDue, true)) {
            return;
        }
        // One action changes many elements. The panel may be discarded in the same turn.
        loop().discardLater([this, due = std::weak_ptr<bool>(lookDue)] {
            if (auto alive = due.lock()) {
                *alive = false;
                showUsedFile();
            }
        });
    };
    for (Element* element : elements()) {
        const auto* field = dynamic_cast<TextField*>(element);
        bool setting = field != nullptr ? !field->readOnly()
                                        : dynamic_cast<TickBox*>(element) != nullptr ||
                                              dynamic_cast<Option*>(element) != nullptr ||
                                              dynamic_cast<ListBox*>(element) != nullptr ||
                                              dynamic_cast<Slider*>(element) != nullptr;
        if (setting) {
            settingSubscriptions.push_back(element->changed.subscribe(look));
        }
    }
    settingSubscriptions.push_back(bench.sharedValueChanged.subscribe(look));
}

ConfigurationLines ChipPanel::crystalLines() {
    return {booleanLine(StdCrystal), booleanLine(NonStdCrystal),
            textLine(Crystalfreq, [this] { Crystalfreq_LostFocus(); })};
}

ConfigurationLines ChipPanel::bandLines() {
    ConfigurationLines lines;
    for (const auto& option : bandOptions) {
        lines.push_back(booleanLine(*option));
    }
    return lines;
}

ConfigurationLine ChipPanel::supplyLine() {
    return sharedTextLine("Pref_Voltage", bench.preferences.Pref_Voltage);
}

std::string ChipPanel::savedConfiguration() {
    return configurationText(ownTraits.file.banner, configuration());
}

void ChipPanel::takeConfiguration(std::string bytes) {
    readConfiguration(std::move(bytes));
    sendLoadedSupply();
}

void ChipPanel::readConfiguration(std::string bytes) {
    try {
        readConfigurationText(std::move(bytes), ownTraits.file.banner, ownTraits.file.wrongBanner,
                              configuration());
        configurationRead();
    } catch (const ToolError&) {
        excludeForeignSettings();
        throw;
    }
    excludeForeignSettings();
    bench.showSupply();
}

void ChipPanel::sendLoadedSupply() {
    if (!portReady(
            "Commport not available, please open commport. Power control settings were not updated.")) {
        return;
    }
    if (bench.link.LoadBoardRev == 1 || bench.link.LoadBoardRev == 2) {
        // Unlike the field's commit, a load takes the board's own constant.
        std::string line = supplyCommand(numericPrefix(bench.preferences.Pref_Voltage),
                                         supplyConstant(bench.link.LoadBoardRev));
        reading();
        bench.connect->Send_To_LoadBoard(line);
    }
}

} // namespace zor
