// SPDX-License-Identifier: MIT
// The generator's files: the dialog, what is done about a name, and what is remembered of it.
#include "headergen/frm_gen_header.h"

#include "host/file_backup.h"
#include "support/error.h"
#include "support/file_name.h"

#include <filesystem>

namespace zor {

namespace {

constexpr const char* saveErrorTitle = "File save error";
constexpr const char* extension = "h";
/// A name field that holds no name.
constexpr const char* pattern = "*.h";

std::string withExtension(const std::string& name) {
    std::string present = nameOf(pathOf(name).extension());
    if (present == ".") {
        return name + extension;
    }
    return present.empty() ? name + "." + extension : name;
}

} // namespace

std::optional<std::string> Frm_GenHeader::chooseFile() {
    FileRequest request;
    request.mode = FileRequest::Mode::Save;
    request.title = "Save Header File";
    request.folder = bench.platform.programFolder;
    request.startName = "Setup_" + deviceName;
    // Labels and patterns do not pair up; users know the dialog so.
    request.filter = "C header files (*.h)|All files (*.*)|*.*";
    request.defaultExtension = extension;
    request.asksToReplace = false;
    std::string name = bench.platform.dialogs.chooseFile(request).name;
    bool cancelled = name == request.startName || pathOf(name).filename() == pattern;
    return cancelled ? std::nullopt : std::optional(withExtension(name));
}

void Frm_GenHeader::PB_Save_Click() {
    while (std::optional<std::string> name = chooseFile()) {
        if (mayReplace(bench.platform.dialogs, *name)) {
            save(*name);
            return;
        }
    }
}

void Frm_GenHeader::PB_SaveAgain_Click() {
    auto saved = bench.savedHeaders.find(deviceName);
    if (saved != bench.savedHeaders.end()) {
        save(saved->second);
    }
}

void Frm_GenHeader::save(const std::string& name) {
    try {
        saveUserFile(name, TB_Header.text() + "\r\n");
    } catch (const ToolError& error) {
        bench.tellFileError(error, saveErrorTitle, "Please try again");
        return;
    }
    bench.savedHeaders[deviceName] = name;
    showSaved();
}

void Frm_GenHeader::showSaved() {
    auto saved = bench.savedHeaders.find(deviceName);
    bool known = saved != bench.savedHeaders.end();
    PB_SaveAgain.setEnabled(known);
    std::filesystem::path file = pathOf(known ? saved->second : std::string());
    L_Saved.setCaption(known ? "Saved as " + nameOf(file.filename()) : std::string());
    L_Saved.setTip(nameOf(file));
    PB_SaveAgain.setTip(nameOf(file));
}

} // namespace zor
