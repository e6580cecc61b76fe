// SPDX-License-Identifier: MIT
#include "compare/frm_compare.h"

#include "compare/quiet_panel.h"
#include "panels/common/chip_panel.h"
#include "support/error.h"
#include "support/file_name.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zor {

namespace {

std::vector<GridColumn> columns() {
    using Access = GridColumn::Access;
    return {{"Word", Access::ReadOnly, 24, false},
            {"Bits", Access::ReadOnly, 6, true},
            {"Setting", Access::ReadOnly, 24, false},
            {"Left", Access::ReadOnly, 28, false},
            {"Right", Access::ReadOnly, 28, false}};
}

/// In the order of What.
std::vector<std::string> sides() {
    return {"Panel", "Sent", "Configuration file...", "C header..."};
}

GridRow cellsOf(const Difference& row) {
    switch (row.kind) {
    case Difference::Kind::Word:
        return {{row.title, CellLook::Strong},
                {"", CellLook::Strong},
                {"", CellLook::Strong},
                {row.left, CellLook::Strong},
                {row.right, CellLook::Strong}};
    case Difference::Kind::Field:
        return {{row.title, CellLook::Soft},
                {bitsText(row.highBit, row.lowBit)},
                {row.name},
                {row.left},
                {row.right}};
    case Difference::Kind::Setting:
        break;
    }
    return {{""}, {""}, {row.name}, {row.left}, {row.right}};
}

bool sameRow(const Difference& a, const Difference& b) {
    return a.kind == b.kind && a.word == b.word && a.name == b.name && a.highBit == b.highBit;
}

} // namespace

frm_Compare::frm_Compare(Bench& ownBench)
    : Form(ownBench.desk, "frm_Compare", "Compare")
    , L_Panel(*this, "L_Panel")
    , LabelLeft(*this, "LabelLeft", "Left:")
    , CB_Left(*this, "CB_Left", sides())
    , L_Left(*this, "L_Left")
    , LabelRight(*this, "LabelRight", "Right:")
    , CB_Right(*this, "CB_Right", sides())
    , L_Right(*this, "L_Right")
    , GR_Differences(*this, "GR_Differences", columns())
    , L_Count(*this, "L_Count")
    , PB_TakeLeft(*this, "PB_TakeLeft", "Take Left")
    , PB_TakeAllLeft(*this, "PB_TakeAllLeft", "Take All Left")
    , PB_TakeRight(*this, "PB_TakeRight", "Take Right")
    , PB_TakeAllRight(*this, "PB_TakeAllRight", "Take All Right")
    , PB_Save(*this, "PB_Save", "Save...")
    , L_Result(*this, "L_Result")
    , bench(ownBench)
    , left{CB_Left, L_Left, What::Panel, {}, {}, {}, {}, {}}
    , right{CB_Right, L_Right, What::Sent, {}, {}, {}, {}, {}}
    , target(ownBench, [this] { takePanel(); }) {
    setExtent({6000, 13500});
    for (ListBox* choice : {&CB_Left, &CB_Right}) {
        choice->setTip("What stands on this side");
    }
    GR_Differences.setTip("Only what differs: each word, and behind it its settings with their bits");
    PB_TakeLeft.setTip("Sets the panel's chosen row as the left side has it; nothing is sent");
    PB_TakeAllLeft.setTip("Sets the panel as the left side has it; nothing is sent");
    PB_TakeRight.setTip("Sets the panel's chosen row as the right side has it; nothing is sent");
    PB_TakeAllRight.setTip("Sets the panel as the right side has it; nothing is sent");
    PB_Save.setTip("Saves the shown rows as text");
    wire();
    takePanel();
    target.look();
}

frm_Compare::~frm_Compare() = default;

void frm_Compare::wire() {
    CB_Left.onChange = [this] { choose(left); };
    CB_Right.onChange = [this] { choose(right); };
    GR_Differences.onPick = [this] { enableTaking(); };
    PB_TakeLeft.onClick = [this] { take(left); };
    PB_TakeAllLeft.onClick = [this] { takeAll(left); };
    PB_TakeRight.onClick = [this] { take(right); };
    PB_TakeAllRight.onClick = [this] { takeAll(right); };
    PB_Save.onClick = [this] { PB_Save_Click(); };
    sharing = bench.sharedValueChanged.subscribe([this] { lookLater(); });
}

void frm_Compare::unload() {
    target.end();
    following.clear();
    sharing.end();
}

void frm_Compare::takePanel() {
    const ChipPanel* panel = target.get();
    L_Panel.setCaption(panel == nullptr ? "Please open a chip's panel." : panel->title());
    // A file or a header is one of the chip before.
    left.what = What::Panel;
    right.what = What::Sent;
    for (Side* side : {&left, &right}) {
        side->path.clear();
        side->reader.reset();
        side->document.setCaption("");
        side->choice.putPosition(static_cast<int>(side->what));
        side->choice.setEnabled(panel != nullptr);
    }
    L_Result.setCaption("");
    followPanel();
    look();
}

void frm_Compare::followPanel() {
    following.clear();
    const ChipPanel* panel = target.get();
    if (panel == nullptr) {
        return;
    }
    for (Element* element : panel->elements()) {
        // Words tell of being sent, too; the others are what stands in no word.
        bool told = dynamic_cast<ControlWord*>(element) != nullptr || element == &panel->Crystalfreq ||
                    element == &panel->StdCrystal || element == &panel->Revision ||
                    element == &panel->PowerSupply;
        if (told) {
            following.push_back(element->changed.subscribe([this] { lookLater(); }));
        }
    }
}

void frm_Compare::choose(Side& side) {
    auto what = static_cast<What>(std::max(side.choice.position(), 0));
    bool file = what == What::File || what == What::Header;
    if (target.get() == nullptr || (file && !readInto(side, what))) {
        side.choice.putPosition(static_cast<int>(side.what));
        return;
    }
    side.what = what;
    if (!file) {
        side.path.clear();
    }
    side.document.setCaption(zor::nameOf(pathOf(side.path).filename()));
    side.document.setTip(side.path);
    L_Result.setCaption("");
    look();
}

void frm_Compare::lookLater() {
    if (std::exchange(*lookDue, true)) {
        return;
    }
    // One action changes many words; the window may be gone by its end.
    loop().discardLater([this, due = std::weak_ptr<bool>(lookDue)] {
        if (auto alive = due.lock()) {
            *alive = false;
            if (!isClosed()) {
                look();
            }
        }
    });
}

void frm_Compare::look() {
    read(left);
    read(right);
    std::optional<Difference> picked;
    if (GR_Differences.picked()) {
        picked = rows[*GR_Differences.picked()];
    }
    rows = differences(left.state, right.state);
    std::vector<GridRow> cells;
    cells.reserve(rows.size());
    for (const Difference& row : rows) {
        cells.push_back(cellsOf(row));
    }
    bool same = cells.size() == GR_Differences.rowCount();
    for (std::size_t row = 0; same && row < cells.size(); ++row) {
        same = cells[row] == GR_Differences.row(row);
    }
    if (!same) {
        GR_Differences.setRows(std::move(cells));
        auto still = std::find_if(rows.begin(), rows.end(), [&picked](const Difference& row) {
            return picked && sameRow(row, *picked);
        });
        if (still != rows.end()) {
            GR_Differences.putPicked(static_cast<std::size_t>(still - rows.begin()));
        }
    }
    show();
}

void frm_Compare::read(Side& side) {
    ChipPanel* panel = target.get();
    if (panel == nullptr) {
        side.state = {};
        return;
    }
    switch (side.what) {
    case What::Panel:
        side.state = shownState(*panel, bench);
        break;
    case What::Sent:
        side.state = sentState(*panel);
        break;
    case What::File:
        // What a file does not hold is the panel's.
        side.reader->take(*panel);
        takeWholeFile(side.reader->panel(), side.bytes);
        side.state = shownState(side.reader->panel(), side.reader->bench());
        break;
    case What::Header:
        // The present revision and crystal say what its bits mean.
        side.state = wantedState(*panel, side.wanted);
        break;
    }
}

void frm_Compare::show() {
    std::size_t words = 0;
    std::size_t settings = 0;
    for (const Difference& row : rows) {
        (row.kind == Difference::Kind::Word ? words : settings) += 1;
    }
    std::string text;
    if (target.get() != nullptr) {
        text = rows.empty() ? "No difference"
                            : counted(words, "word") + " and " + counted(settings, "setting") + " differ";
        if (std::size_t unknown = unknownWords(left.state, right.state)) {
            text += "; " + counted(unknown, "word") + " known on one side only";
        }
    }
    L_Count.setCaption(std::move(text));
    enableTaking();
}

void frm_Compare::enableTaking() {
    std::optional<std::size_t> picked = GR_Differences.picked();
    bool open = target.get() != nullptr;
    auto takes = [this, open](const Side& side) { return open && side.what != What::Panel && !rows.empty(); };
    PB_TakeAllLeft.setEnabled(takes(left));
    PB_TakeAllRight.setEnabled(takes(right));
    PB_TakeLeft.setEnabled(takes(left) && picked && rows[*picked].inLeft);
    PB_TakeRight.setEnabled(takes(right) && picked && rows[*picked].inRight);
    PB_Save.setEnabled(open);
}

std::string frm_Compare::nameOf(const Side& side) const {
    switch (side.what) {
    case What::Panel:
        return "Panel";
    case What::Sent:
        return "Sent";
    case What::File:
    case What::Header:
        break;
    }
    return zor::nameOf(pathOf(side.path).filename());
}

} // namespace zor
