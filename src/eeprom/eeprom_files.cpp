// SPDX-License-Identifier: MIT
// The programmer's files: ASCII-hex images, and those that other tools make.
#include "eeprom/eeprom.h"
#include "eeprom/foreign_image.h"
#include "host/file_backup.h"
#include "host/files.h"
#include "support/error.h"
#include "support/file_name.h"

#include <algorithm>
#include <filesystem>

namespace zor {

namespace {

constexpr const char* loadErrorTitle = "File open error";
constexpr const char* saveErrorTitle = "File save error";
constexpr const char* saveErrorClosing = "Please try again";

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
    std::string extension = nameOf(pathOf(name).extension());
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

} // namespace

std::optional<std::string> Eeprom::chooseFile(const FileRequest& request) const {
    FileChoice choice = bench.platform.dialogs.chooseFile(request);
    if (choice.extensionDiffers && request.defaultExtension == "asc") {
        throw ToolError(unsupported, "Incorrect extension");
    }
    return choice.name == request.startName ? std::nullopt : std::optional(choice.name);
}

std::optional<std::string> Eeprom::chooseSaveName(const FileRequest& request) const {
    while (std::optional<std::string> name = chooseFile(request)) {
        bool complete = request.defaultExtension == "asc" ? lowerExtension(*name) == ".asc"
                                                          : !lowerExtension(*name).empty();
        if (!complete) {
            *name += "." + request.defaultExtension;
        }
        std::error_code ignored;
        if (!std::filesystem::exists(pathOf(*name), ignored)) {
            return name;
        }
        Answer answer = bench.platform.dialogs.show(
            {.text = "File already exist:" + *name + "\r\nDo you want to replace it?",
             .title = saveErrorTitle,
             .icon = BoxIcon::Question,
             .buttons = BoxButtons::YesNo});
        if (answer == Answer::Yes) {
            return name;
        }
    }
    return std::nullopt;
}

bool Eeprom::loadFile() {
    try {
        std::optional<std::string> name =
            chooseFile(imageRequest(bench, FileRequest::Mode::Load, "Load EEPROM File"));
        if (!name) {
            return false;
        }
        std::string bytes = readFile(*name);
        if (!running()) {
            // A run writes on what it began with, whoever loads meanwhile.
            EEprogData.clear();
        }
        WorkSheet.setText({});
        ImageFile file = readImageFile(bytes);
        Filepreamble = std::move(file.preamble);
        takeFile(std::move(file.text), *name);
        return true;
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
        std::optional<std::string> name =
            chooseSaveName(imageRequest(bench, FileRequest::Mode::Save, "Save EEPROM File"));
        if (name) {
            saveUserFile(*name, imageFileBytes(Filepreamble, WorkSheet.text()));
            setFileTitle(*name);
        }
        showFile();
        if (!StopButton.visible()) {
            Verify.setEnabled(true);
        }
        return name.has_value();
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
        std::optional<std::string> name =
            chooseFile(foreignRequest(bench, FileRequest::Mode::Load, "Import EEPROM image"));
        if (name) {
            takeFile(shownImage(foreignImageDigits(readFile(*name), lowerExtension(*name))), *name);
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, loadErrorTitle);
    }
}

void Eeprom::exportFile() {
    try {
        std::optional<std::string> name =
            chooseSaveName(foreignRequest(bench, FileRequest::Mode::Save, "Export EEPROM image"));
        if (name) {
            saveUserFile(*name, foreignImageBytes(hexDigits(WorkSheet.text()), lowerExtension(*name)));
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, saveErrorTitle, saveErrorClosing);
    }
}

} // namespace zor
