// SPDX-License-Identifier: MIT
#include "utilities/wire_log.h"

#include "link/file_dialog.h"
#include "support/letters.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zor {

namespace {

/// A board that never stops talking is shown in steps, so that the window stays alive.
constexpr std::chrono::milliseconds takingInterval(100);
constexpr const char* savePattern = "*.txt";
constexpr const char* everything = "All";

constexpr std::array<WireEntry::Result, 6> results = {
    WireEntry::Result::Answered, WireEntry::Result::Refused,    WireEntry::Result::NoAnswer,
    WireEntry::Result::PortGone, WireEntry::Result::NotAwaited, WireEntry::Result::Unasked};

std::vector<GridColumn> columns() {
    using Access = GridColumn::Access;
    return {{"", Access::ReadOnly, 2, true},
            {"Time (ms)", Access::ReadOnly, 11, true},
            {"Time of day", Access::ReadOnly, 13, true},
            {"Port", Access::ReadOnly, 5, true},
            {"Line sent", Access::ReadOnly, 24, true},
            {"Answer", Access::ReadOnly, 20, true},
            {"Duration (ms)", Access::ReadOnly, 10, true},
            {"Result", Access::ReadOnly, 11, false},
            {"Meaning", Access::ReadOnly, 44, false}};
}

bool holds(std::string_view text, std::string_view part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(), sameLetter) != text.end();
}

} // namespace

WireLog::WireLog(Bench& ownBench)
    : Form(ownBench.desk, "frm_WireLog", "Wire Log")
    , LabelFilter(*this, "LabelFilter", "Filter:")
    , Filter(*this, "Filter")
    , LabelResult(*this, "LabelResult", "Result:")
    , Result(*this, "Result", {everything}, everything)
    , Pause(*this, "Pause", "Pause")
    , Follow(*this, "Follow", "Follow", true)
    , LabelDock(*this, "LabelDock", "Place:")
    , Dock(*this, "Dock", {"Window", "Bottom", "Right"}, "Window")
    , Log(*this, "Log", columns())
    , Count(*this, "Count")
    , Clear(*this, "Clear", "Clear")
    , Copy(*this, "Copy", "Copy")
    , Save(*this, "Save", "Save...")
    , bench(ownBench)
    , recorder(*ownBench.wireRecorder)
    , taking(ownBench.platform.loop, [this] { take_Timer(); }) {
    setExtent({4800, 15000});
    for (WireEntry::Result result : results) {
        Result.addEntry(wordOf(result));
    }
    Filter.setTip("Only lines with this text in line, answer, result or meaning");
    Result.setTip("Only lines that ended so");
    Pause.setTip("Stops the view; the recording goes on");
    Follow.setTip("Keeps the newest line in sight");
    Dock.setTip("Where the log stands: a window, or the main window's bottom or right edge while that is at "
                "least 1600 x 900 pixels large");
    Clear.setTip("Forgets all that was recorded");
    Copy.setTip("Puts the shown lines on the clipboard");
    Save.setTip("Saves the shown lines as text, or as CSV if the name ends so");

    Filter.onEdit = [this] { refill(); };
    Result.onChange = [this] { refill(); };
    Pause.onChange = [this] { take_Timer(); };
    Dock.onChange = [this] {
        placeChosen.emit();
        changed.emit();
    };
    Clear.onClick = [this] { recorder.clear(); };
    Copy.onClick = [this] { bench.platform.surroundings.copyText(asText()); };
    Save.onClick = [this] { Save_Click(); };
    additions = recorder.added.subscribe([this](const WireEntry&) { taking.start(); });
    clearing = recorder.cleared.subscribe([this] { refill(); });
    taking.setInterval(takingInterval);
    refill();
}

WireLog::~WireLog() = default;

void WireLog::unload() {
    taking.stop();
    additions.end();
    clearing.end();
}

void WireLog::putPlace(const std::string& place) {
    if (Dock.find(place) >= 0) {
        Dock.putText(place);
    }
}

bool WireLog::passes(const WireEntry& entry) const {
    std::string word = wordOf(entry.result);
    if (Result.text() != everything && Result.text() != word) {
        return false;
    }
    std::string wanted = Filter.text();
    return wanted.empty() || holds(entry.line, wanted) || holds(entry.answer, wanted) ||
           holds(entry.meaning, wanted) || holds(word, wanted);
}

void WireLog::refill() {
    std::vector<GridRow> rows;
    shown.clear();
    for (const WireEntry& entry : recorder.entries()) {
        if (passes(entry)) {
            rows.push_back(rowOf(entry));
            shown.push_back(entry.number);
        }
    }
    next = recorder.nextNumber();
    Log.setRows(std::move(rows));
    showCount();
}

void WireLog::take_Timer() {
    taking.stop();
    if (Pause.ticked()) {
        return;
    }
    dropForgotten();
    std::vector<GridRow> rows;
    const std::deque<WireEntry>& all = recorder.entries();
    std::uint64_t oldest = recorder.nextNumber() - all.size();
    for (std::uint64_t number = std::max(next, oldest); number < recorder.nextNumber(); ++number) {
        const WireEntry& entry = all[static_cast<std::size_t>(number - oldest)];
        if (passes(entry)) {
            rows.push_back(rowOf(entry));
            shown.push_back(number);
        }
    }
    next = recorder.nextNumber();
    if (!rows.empty()) {
        Log.insertRows(Log.rowCount(), std::move(rows));
    }
    showCount();
}

void WireLog::dropForgotten() {
    std::uint64_t oldest = recorder.nextNumber() - recorder.entries().size();
    auto kept = std::find_if(shown.begin(), shown.end(), [oldest](auto number) { return number >= oldest; });
    auto gone = static_cast<std::size_t>(kept - shown.begin());
    if (gone > 0) {
        shown.erase(shown.begin(), kept);
        Log.removeRows(0, gone);
    }
}

void WireLog::showCount() {
    const std::deque<WireEntry>& all = recorder.entries();
    std::string text = std::to_string(Log.rowCount()) + " of " + std::to_string(all.size()) + " lines";
    for (const auto& [result, words] : {std::pair(WireEntry::Result::Refused, " refused"),
                                        std::pair(WireEntry::Result::NoAnswer, " without answer")}) {
        auto count = std::count_if(all.begin(), all.end(), [ending = result](const WireEntry& entry) {
            return entry.result == ending;
        });
        if (count > 0) {
            text += ", " + std::to_string(count) + words;
        }
    }
    Count.setCaption(text + "; the last " + std::to_string(WireRecorder::capacity) + " are kept");
}

void WireLog::Save_Click() {
    saveByDialog(bench,
                 {.mode = FileRequest::Mode::Save,
                  .title = "Save Wire Log",
                  .folder = {},
                  .startName = savePattern,
                  .filter = "Text files (*.txt)|*.txt|CSV files (*.csv)|*.csv|All files (*.*)|*.*",
                  .defaultExtension = "txt"},
                 "wire-log.txt", [this](const std::string& chosen) {
                     bool table = chosen.size() > 4 && holds(chosen.substr(chosen.size() - 4), ".csv");
                     return table ? asCsv() : asText();
                 });
}

} // namespace zor
