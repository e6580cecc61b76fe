// SPDX-License-Identifier: MIT
// The programmer's files: ASCII-hex images, and those that other tools make.
#include "eeprom/eeprom.h"
#include "eeprom/foreign_image.h"
#include "host/files.h"
#include "link/file_dialog.h"
#include "support/error.h"
#include "support/file_name.h"
#include "support/letters.h"

#include <filesystem>

namespace zor {

namespace {

constexpr const char* loadErrorTitle = "File open error";
constexpr const char* saveErrorTitle = "File save error";
constexpr const char* saveErrorClosing = "Please try again";
/// What the first images are proposed as.
constexpr const char* firstImage = "eeprom.asc";
constexpr const char* firstForeign = "eeprom.hex";

FileRequest imageRequest(const Bench& bench, FileRequest::Mode mode, const char* title) {
    return {.mode = mode,
            .title = title,
            .folder = pathOf(bench.link.CurrentPath) / ".." / "EEPROM_Images",
            .startName = "*.asc",
            .filter = "ASCII files (*.asc)|*.asc|All files (*.*)|*.*",
            .defaultExtension = "asc",
            .asksToReplace = false};
}

FileRequest foreignRequest(const Bench& bench, FileRequest::Mode mode, const char* title) {
    FileRequest request = imageRequest(bench, mode, title);
    request.startName = "*.hex";
    request.filter = "Intel HEX files (*.hex)|*.hex|Binary files (*.bin)|*.bin|All files (*.*)|*.*";
    request.defaultExtension = "hex";
    return request;
}

std::string lowerExtension(const std::string& name) {
    return lowerCase(nameOf(pathOf(name).extension()));
}

} // namespace

std::optional<std::string> Eeprom::saveName(const FileChoice& choice, const std::string& extension) const {
    bool own = extension == "asc";
    if (own && choice.extensionDiffers) {
        throw ToolError(unsupported, "Incorrect extension");
    }
    std::string name = choice.name;
    if (own ? lowerExtension(name) != ".asc" : lowerExtension(name).empty()) {
        name += "." + extension;
    }
    std::error_code ignored;
    if (!std::filesystem::exists(pathOf(name), ignored)) {
        return name;
    }
    Answer answer =
        bench.platform.dialogs.show({.text = "File already exist:" + name + "\r\nDo you want to replace it?",
                                     .title = saveErrorTitle,
                                     .icon = BoxIcon::Question,
                                     .buttons = BoxButtons::YesNo});
    return answer == Answer::Yes ? std::optional(name) : std::nullopt;
}

bool Eeprom::loadFile() {
    try {
        return loadChosen(bench, imageRequest(bench, FileRequest::Mode::Load, "Load EEPROM File"), firstImage,
                          [this](const FileChoice& choice) {
                              if (choice.extensionDiffers) {
                                  throw ToolError(unsupported, "Incorrect extension");
                              }
                              std::string bytes = readFile(choice.name);
                              if (!running()) {
                                  // A run writes on what it began with, whoever loads meanwhile.
                                  EEprogData.clear();
                              }
                              WorkSheet.setText({});
                              ImageFile file = readImageFile(bytes);
                              Filepreamble = std::move(file.preamble);
                              takeFile(std::move(file.text), choice.name);
                              return true;
                          });
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
        return false;
    }
}

void Eeprom::takeFile(std::string text, const std::string& name) {
    nameOfAction = "Load " + nameOf(pathOf(name).filename());
    WorkSheet.setText(std::move(text));
    showFile();
    setFileTitle(name);
    enableForImage();
}

void Eeprom::enableForImage() {
    if (!StopButton.visible()) {
        for (Button* button : {&Prog, &Verify, &SaveEEFile}) {
            button->setEnabled(true);
        }
    }
}

bool Eeprom::saveFile() {
    try {
        std::string name = saveChosen(
            bench, imageRequest(bench, FileRequest::Mode::Save, "Save EEPROM File"), firstImage,
            [this](const std::string&) { return imageFileBytes(Filepreamble, WorkSheet.text()); },
            [this](const FileChoice& choice) { return saveName(choice, "asc"); });
        if (!name.empty()) {
            setFileTitle(name);
        }
        showFile();
        if (!StopButton.visible()) {
            Verify.setEnabled(true);
        }
        return !name.empty();
    } catch (const ToolError& error) {
        bool wrongType = error.number() == unsupported;
        bench.tellFileError(error, wrongType ? loadErrorTitle : saveErrorTitle, saveErrorClosing);
        return false;
    }
}

void Eeprom::showFile() {
    Label3.setCaption(dataSizeText(countHexDigits(WorkSheet.text())));
    for (Label* label : {&Label2, &Label3, &Label5, &Label7}) {
        label->setVisible(true);
    }
}

void Eeprom::setFileTitle(const std::string& name) {
    Label7.setCaption(nameOf(pathOf(name).filename()) + " ");
}

void Eeprom::importFile() {
    try {
        loadChosen(bench, foreignRequest(bench, FileRequest::Mode::Load, "Import EEPROM image"), firstForeign,
                   [this](const FileChoice& choice) {
                       const std::string& name = choice.name;
                       takeFile(shownImage(foreignImageDigits(readFile(name), lowerExtension(name))), name);
                       return true;
                   });
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
}

void Eeprom::exportFile() {
    try {
        saveChosen(
            bench, foreignRequest(bench, FileRequest::Mode::Save, "Export EEPROM image"), firstForeign,
            [this](const std::string& name) {
                return foreignImageBytes(hexDigits(WorkSheet.text()), lowerExtension(name));
            },
            [this](const FileChoice& choice) { return saveName(choice, "hex"); });
    } catch (const ToolError& error) {
        bench.tellFileError(error, saveErrorTitle, saveErrorClosing);
    }
}

} // namespace zor
