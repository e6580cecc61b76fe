// SPDX-License-Identifier: MIT
#include "shell/kept_settings.h"

#include "elements/desk.h"
#include "host/files.h"
#include "host/process.h"
#include "shell/panel_registry.h"
#include "shell/settings.h"
#include "support/error.h"
#include "support/letters.h"
#include "support/record_file.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace zor {

namespace {

constexpr std::string_view prefix = "ZOR-kept-";
constexpr std::string_view suffix = ".ini";
constexpr std::string_view banner = "# ZOR kept settings file version 1";

/// The number of the run that a file belongs to; 0 for any other file.
std::int32_t processOf(const std::string& name) {
    if (!name.starts_with(prefix) || !name.ends_with(suffix)) {
        return 0;
    }
    std::string digits = name.substr(prefix.size(), name.size() - prefix.size() - suffix.size());
    bool number = !digits.empty() && digits.size() < 10 && std::ranges::all_of(digits, isDigit);
    return number ? std::stoi(digits) : 0;
}

void removeQuietly(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

} // namespace

KeptSettings::KeptSettings(Form& main, Bench& ownBench, PanelRegistry& ownRegistry)
    : KeptOffer(main, "KeptOffer")
    , KeptBring(main, "KeptBring", "Bring back")
    , KeptDismiss(main, "KeptDismiss", "Dismiss")
    , bench(ownBench)
    , registry(ownRegistry)
    , minute(ownBench.platform.loop, [this] { keep(); }) {
    minute.setInterval(interval);
    KeptBring.setTip("Opens the panel with the settings that it had within the last minute of that run; "
                     "nothing is sent");
    KeptDismiss.setTip("Forgets them");
    KeptBring.onClick = [this] { bring(); };
    KeptDismiss.onClick = [this] { dismiss(); };
    show(false);
    acting = bench.desk.gestureEnded.subscribe([this](const Gesture&) { begin(); });
}

std::filesystem::path KeptSettings::ownFile() const {
    return settingsFileToWrite(bench.platform,
                               std::string(prefix) + std::to_string(ownProcess()) + std::string(suffix));
}

void KeptSettings::begin() {
    if (!minute.running() && registry.openPanel() != nullptr) {
        minute.start();
    }
}

void KeptSettings::keep() {
    std::optional<PanelRegistry::Kept> kept = registry.keepOpen();
    if (!kept) {
        forgetOwn();
        if (registry.openPanel() == nullptr) {
            minute.stop();
        }
        return;
    }
    RecordWriter writer;
    writer.text(banner);
    writer.text(kept->panel);
    writer.boolean(kept->bijaku);
    std::string bytes = writer.bytes() + kept->memory;
    if (bytes == written) {
        return;
    }
    try {
        writeFileWhole(ownFile(), bytes);
        written = std::move(bytes);
    } catch (const ToolError&) {
        // It is tried again in a minute; there is nothing that the user should do about it.
    }
}

void KeptSettings::forgetOwn() {
    if (!std::exchange(written, {}).empty()) {
        removeQuietly(ownFile());
    }
}

void KeptSettings::end() {
    minute.stop();
    forgetOwn();
    if (!offered.file.empty()) {
        removeQuietly(offered.file);
    }
}

bool KeptSettings::read(const std::filesystem::path& file, Offered& offered) {
    try {
        std::string bytes = readFile(file, longestSettings);
        RecordReader reader(bytes);
        if (!reader.isText(banner)) {
            return false;
        }
        offered.file = file;
        offered.panel = reader.text();
        offered.bijaku = reader.boolean();
        // The three lines are the file's own, what is behind them the panel's.
        std::size_t behind = 0;
        for (int line = 0; line < 3 && behind != std::string::npos; ++line) {
            behind = bytes.find('\n', behind);
            behind += behind == std::string::npos ? 0 : 1;
        }
        offered.memory = behind == std::string::npos ? std::string() : bytes.substr(behind);
        return true;
    } catch (const ToolError&) {
        return false;
    }
}

void KeptSettings::look() {
    std::error_code failed;
    std::vector<std::pair<std::filesystem::file_time_type, std::filesystem::path>> left;
    std::filesystem::path folder = ownFile().parent_path();
    for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::int32_t process = processOf(nameOf(entry->path().filename()));
        if (process != 0 && process != ownProcess() && !processRuns(process)) {
            std::error_code unknown;
            left.emplace_back(std::filesystem::last_write_time(entry->path(), unknown), entry->path());
        }
    }
    // The newest is offered; the others are older than it.
    std::sort(left.begin(), left.end());
    Offered found;
    bool any = false;
    while (!left.empty() && !any) {
        any = read(left.back().second, found) && registry.knows(found.panel);
        if (!any) {
            removeQuietly(left.back().second);
        }
        left.pop_back();
    }
    for (const auto& older : left) {
        removeQuietly(older.second);
    }
    if (any) {
        offered = std::move(found);
        KeptOffer.setCaption("The last run ended with settings of the " +
                             registry.chipOf(offered.panel, offered.bijaku) + " that were not saved.");
        show(true);
    }
}

void KeptSettings::show(bool shown) {
    for (Element* element : {static_cast<Element*>(&KeptOffer), static_cast<Element*>(&KeptBring),
                             static_cast<Element*>(&KeptDismiss)}) {
        element->setVisible(shown);
    }
}

void KeptSettings::dismiss() {
    removeQuietly(offered.file);
    offered = {};
    show(false);
}

void KeptSettings::bring() {
    Offered now = offered;
    dismiss();
    try {
        registry.restoreKept({now.panel, now.bijaku, now.memory});
    } catch (const ToolError&) {
        bench.notice("What was kept of the last run cannot be read.");
    }
}

} // namespace zor
