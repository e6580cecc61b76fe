// SPDX-License-Identifier: MIT
// What is read into a side of the comparison, taken over from it, and saved of it.
#include "compare/frm_compare.h"
#include "compare/quiet_panel.h"
#include "host/files.h"
#include "link/file_dialog.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/file_name.h"
#include "support/numbers.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zor {

namespace {

constexpr const char* savePattern = "*.txt";
constexpr std::uintmax_t longestHeader = 1U << 20U;

} // namespace

std::string frm_Compare::firstName(What what) const {
    const ChipPanel& panel = *target.get();
    return what == What::File ? "compared." + std::string(panel.traits().file.extension)
                              : firstHeader(panel.chip());
}

std::optional<std::string> frm_Compare::chooseFile(What what) {
    const FileTraits& file = target.get()->traits().file;
    FileRequest request;
    request.mode = FileRequest::Mode::Load;
    request.folder = bench.platform.programFolder;
    if (what == What::File) {
        request.title = "Compare with Configuration File";
        request.filter = file.filter;
        request.defaultExtension = file.extension;
        std::string last = bench.recentFiles.last(file.extension);
        request.folder = last.empty() ? pathOf(bench.link.CurrentPath) / ".." / "Project_Configurations"
                                      : pathOf(last).parent_path();
    } else {
        request.title = "Compare with C Header";
        request.filter = "C header files (*.h)|*.h|All files (*.*)|*.*";
        request.defaultExtension = "h";
    }
    request.startName = "*." + request.defaultExtension;
    FileChoice choice = askForFile(bench, request, firstName(what));
    // The panel may have gone while the dialog was open.
    bool none = noFileChosen(choice, request) || target.get() == nullptr;
    return none ? std::nullopt : std::optional(choice.name);
}

bool frm_Compare::readInto(Side& side, What what) {
    std::optional<std::string> path = chooseFile(what);
    if (!path) {
        return false;
    }
    try {
        bool done = what == What::File ? readConfiguration(side, *path) : readHeader(side, *path);
        if (done) {
            side.path = *path;
            fileLoaded(bench, firstName(what), *path);
        }
        return done;
    } catch (const ToolError& error) {
        bench.tellFileError(error, "File open error");
        return false;
    }
}

bool frm_Compare::readConfiguration(Side& side, const std::string& path) {
    auto reader = std::make_unique<QuietPanel>(bench, *target.get());
    std::string bytes = readFile(path);
    takeWholeFile(reader->panel(), bytes);
    side.bytes = std::move(bytes);
    side.reader = std::move(reader);
    return true;
}

bool frm_Compare::readHeader(Side& side, const std::string& path) {
    try {
        side.wanted = wantedByHeader(*target.get(), readFile(path, longestHeader)).settings;
        return true;
    } catch (const HeaderFault& fault) {
        L_Result.setCaption(fault.what());
        return false;
    }
}

void frm_Compare::take(const Side& side) {
    const Difference row = rows[*GR_Differences.picked()];
    bool isLeft = &side == &left;
    std::uint32_t code = isLeft ? row.leftCode : row.rightCode;
    if (row.kind == Difference::Kind::Setting) {
        takeSetting(row, isLeft ? row.left : row.right);
        return;
    }
    WantedSettings wanted;
    for (const ControlWord* word : target.get()->words()) {
        if (word->name() != row.word) {
            continue;
        }
        std::uint32_t value = code;
        if (row.kind == Difference::Kind::Field) {
            std::uint32_t mask = ((1U << static_cast<unsigned>(row.highBit - row.lowBit + 1)) - 1U)
                                 << static_cast<unsigned>(row.lowBit);
            value = (word->value() & ~mask) | (code << static_cast<unsigned>(row.lowBit));
        }
        wanted.words.emplace_back(row.word, value);
    }
    set(wanted, "Taken over: " + (row.name.empty() ? row.title : row.name) + ".");
}

void frm_Compare::takeSetting(const Difference& row, const std::string& value) {
    WantedSettings wanted;
    ChipPanel& panel = *target.get();
    switch (row.setting) {
    case OwnSetting::Crystal:
        wanted.crystal = static_cast<std::uint32_t>(roundToInt(numericPrefix(value) * 1e6));
        break;
    case OwnSetting::Revision:
        wanted.revision = value;
        break;
    case OwnSetting::Supply:
        // As a file's load puts it, without sending it.
        bench.preferences.Pref_Voltage = value;
        panel.PowerSupply.setText(value);
        bench.showSupply();
        bench.sharedValueChanged.emit();
        break;
    case OwnSetting::Timeout:
        bench.preferences.Pref_RxLinkTimeout = roundToInt(numericPrefix(value));
        bench.sharedValueChanged.emit();
        break;
    }
    set(wanted, std::string("Taken over: ") + row.name + ".");
}

void frm_Compare::takeAll(const Side& side) {
    ChipPanel& panel = *target.get();
    std::string done = "Taken over: all of " + nameOf(side) + ".";
    if (side.what == What::File) {
        if (panel.readingStatus()) {
            L_Result.setCaption("Nothing was changed. A status read is under way.");
            return;
        }
        takeWholeFile(panel, side.bytes);
        L_Result.setCaption(done);
        bench.notice(done);
        lookLater();
        return;
    }
    WantedSettings wanted = side.wanted;
    if (side.what == What::Sent) {
        wanted = {};
        for (const WordState& word : side.state.words) {
            wanted.words.emplace_back(word.name, word.value);
        }
    }
    set(wanted, done);
}

void frm_Compare::set(const WantedSettings& wanted, const std::string& done) {
    std::vector<RefusedBits> refused;
    try {
        refused = setPanel(bench, *target.get(), wanted);
    } catch (const ToolError& error) {
        L_Result.setCaption(std::string("Nothing was changed. ") + error.what() + ".");
        return;
    }
    std::string text = done;
    if (refused.empty()) {
        bench.notice(done);
    } else {
        text = "Nothing was changed:";
        for (const RefusedBits& row : refused) {
            text += (text.back() == ':' ? " " : "; ") + row.field + " " + row.asked + ", possible " +
                    row.possible;
        }
        text += ".";
    }
    L_Result.setCaption(text);
    lookLater();
}

std::string frm_Compare::asText() const {
    std::string text = "Compare\t" + target.get()->title() + "\r\nLeft\t" + nameOf(left) + "\r\nRight\t" +
                       nameOf(right) + "\r\n\r\n";
    auto join = [&text](const std::vector<std::string>& cells) {
        for (std::size_t place = 0; place < cells.size(); ++place) {
            text += (place == 0 ? "" : "\t") + cells[place];
        }
        text += "\r\n";
    };
    std::vector<std::string> captions;
    for (const GridColumn& column : GR_Differences.columns()) {
        captions.push_back(column.caption);
    }
    join(captions);
    for (std::size_t row = 0; row < GR_Differences.rowCount(); ++row) {
        std::vector<std::string> cells;
        for (const GridCell& cell : GR_Differences.row(row)) {
            cells.push_back(cell.text);
        }
        join(cells);
    }
    return text + "\r\n" + L_Count.caption() + "\r\n";
}

void frm_Compare::PB_Save_Click() {
    // What is saved is what the user saw as he asked for it.
    std::string text = asText();
    saveByDialog(
        bench,
        {.mode = FileRequest::Mode::Save,
         .title = "Save Comparison",
         .folder = {},
         .startName = savePattern,
         .filter = "Text files (*.txt)|*.txt|All files (*.*)|*.*",
         .defaultExtension = "txt"},
        "comparison.txt", [&text](const std::string&) { return text; }, "Please try again");
}

} // namespace zor
