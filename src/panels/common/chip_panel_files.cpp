// SPDX-License-Identifier: MIT
// The panel's configuration files: the dialogs, what is done about a file's name, what follows a load.
#include "host/files.h"
#include "link/commands.h"
#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/numbers.h"

#include <filesystem>

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
    request.folder = std::filesystem::path(bench.link.CurrentPath) / ".." / "Project_Configurations";
    request.startName = std::string("*.") + file.extension;
    request.filter = file.filter;
    request.defaultExtension = file.extension;
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
                writeFileWhole(name, savedConfiguration());
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
            takeConfiguration(readFile(*name));
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
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
    sendLoadedSupply();
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
