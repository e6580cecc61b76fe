// SPDX-License-Identifier: MIT
// The generator's files: the dialog, what is done about a name, and what is remembered of it.
#include "headergen/frm_gen_header.h"

#include "host/file_backup.h"
#include "link/file_dialog.h"
#include "support/error.h"
#include "support/file_name.h"

#include <filesystem>

namespace zor {

namespace {

constexpr const char* saveErrorTitle = "File save error";
constexpr const char* extension = "h";

std::string withExtension(const std::string& name) {
    std::string present = nameOf(pathOf(name).extension());
    if (present == ".") {
        return name + extension;
    }
    return present.empty() ? name + "." + extension : name;
}

} // namespace

FileRequest Frm_GenHeader::fileRequest() const {
    FileRequest request;
    request.mode = FileRequest::Mode::Save;
    request.title = "Save Header File";
    request.folder = bench.platform.programFolder;
    request.startName = "Setup_" + deviceName;
    // Labels and patterns do not pair up; users know the dialog so.
    request.filter = "C header files (*.h)|All files (*.*)|*.*";
    request.defaultExtension = extension;
    request.asksToReplace = false;
    return request;
}

void Frm_GenHeader::PB_Save_Click() {
    auto named = [this](const FileChoice& choice) {
        std::string name = withExtension(choice.name);
        return mayReplace(bench.platform.dialogs, name) ? std::optional(name) : std::nullopt;
    };
    saving([&] {
        return saveChosen(
            bench, fileRequest(), firstHeader(deviceName), [this](const std::string&) { return content(); },
            named);
    });
}

void Frm_GenHeader::PB_SaveAgain_Click() {
    auto saved = bench.savedHeaders.find(deviceName);
    if (saved != bench.savedHeaders.end()) {
        saving([this, name = saved->second] {
            saveUserFile(name, content());
            fileSaved(bench, firstHeader(deviceName), name);
            return name;
        });
    }
}

std::string Frm_GenHeader::content() const {
    return TB_Header.text() + "\r\n";
}

void Frm_GenHeader::saving(const std::function<std::string()>& save) {
    try {
        std::string name = save();
        if (!name.empty()) {
            bench.savedHeaders[deviceName] = name;
            showSaved();
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, saveErrorTitle, "Please try again");
    }
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
