// SPDX-License-Identifier: MIT
#include "shell/workspace.h"

#include "elements/tick_box.h"
#include "host/files.h"
#include "shell/settings.h"
#include "shell/tool_table.h"
#include "support/error.h"
#include "support/record_file.h"

#include <optional>
#include <utility>

namespace zor {

namespace {

constexpr const char* fileName = "ZOR.wsp";
constexpr std::string_view banner = "# ZOR workspace file version 1.3.4";

enum class Value { Script, Top, Left, Height, Width };
using Values = std::vector<Value>;

const Values& valuesOf(WorkspaceValues kept) {
    static const Values nothing;
    static const Values placed = {Value::Top, Value::Left};
    static const Values placedAndSized = {Value::Top, Value::Left, Value::Height, Value::Width};
    static const Values withScript = {Value::Script, Value::Top, Value::Left, Value::Height, Value::Width};
    switch (kept) {
    case WorkspaceValues::Nothing:
        break;
    case WorkspaceValues::TopLeft:
        return placed;
    case WorkspaceValues::TopLeftHeightWidth:
        return placedAndSized;
    case WorkspaceValues::ScriptTopLeftHeightWidth:
        return withScript;
    }
    return nothing;
}

TickBox* scriptTick(const Form& form) {
    return dynamic_cast<TickBox*>(form.find("En_ScriptWindow"));
}

void write(RecordWriter& writer, const Form& form, Value value) {
    switch (value) {
    case Value::Script:
        writer.integer(scriptTick(form)->ticked() ? 1 : 0);
        return;
    case Value::Top:
        writer.position(form.place().top);
        return;
    case Value::Left:
        writer.position(form.place().left);
        return;
    case Value::Height:
        writer.position(form.extent().height);
        return;
    case Value::Width:
        writer.position(form.extent().width);
        return;
    }
}

void apply(std::int32_t number, Form& form, Value value) {
    auto length = static_cast<Twips>(number);
    switch (value) {
    case Value::Script:
        scriptTick(form)->setTicked(number != 0);
        return;
    case Value::Top:
        form.setPlace({length, form.place().left});
        return;
    case Value::Left:
        form.setPlace({form.place().top, length});
        return;
    case Value::Height:
        form.restoreExtent({length, form.extent().width});
        return;
    case Value::Width:
        form.restoreExtent({form.extent().height, length});
        return;
    }
}

} // namespace

/// One window of the file: a switch in its head and, if that is true, a block of values.
struct Workspace::Row {
    enum class Opening {
        /// It becomes visible when its block has been read, and that is all.
        Show,
        /// Opened as a panel chosen by the user is, before its block is read.
        AsChosen,
    };

    bool WindowSwitches::*on;
    /// Whose values the block holds.
    const char* window;
    const Values& values;
    /// Nothing for a chip panel.
    std::optional<Tool> tool;
    Opening opening = Opening::Show;
    /// Which tool is hidden while the block is read, and shown after it.
    std::optional<Tool> shown = tool;

    static Row of(Tool which) { return of(which, which); }
    static Row of(Tool which, Tool shown) {
        const ToolRow& row = rowOf(which);
        return {row.on, row.form, valuesOf(row.workspace), which, Opening::Show, shown};
    }
    static Row ofPanel(bool WindowSwitches::*on, const char* name, Opening opening) {
        return {on, name, valuesOf(WorkspaceValues::TopLeft), std::nullopt, opening};
    }
};

const std::vector<Workspace::Row>& Workspace::rows() {
    using Switch = WindowSwitches;
    constexpr auto show = Row::Opening::Show;
    constexpr auto asChosen = Row::Opening::AsChosen;
    static const std::vector<Row> table = {
        Row::of(Tool::Terminal),
        Row::of(Tool::eeprom),
        Row::ofPanel(&Switch::TX0on, "OpalV2", asChosen),
        Row::ofPanel(&Switch::TX1on, "JadeV1", asChosen),
        Row::ofPanel(&Switch::RXon, "AmberV1", asChosen),
        Row::ofPanel(&Switch::RX1on, "Coral", asChosen),
        Row::of(Tool::AmberV1rflink),
        // Kept as users' files know it: the values go to the generation 2 window, the other one is shown.
        Row::of(Tool::AmberV1rflink_LB2, Tool::AmberV1rflink),
        Row::of(Tool::OpalV2test),
        Row::ofPanel(&Switch::TRXon, "BerylV3", show),
        Row::ofPanel(&Switch::TRX1on, "FRM_Topaz", show),
    };
    return table;
}

bool Workspace::isOpen(const Row& row) const {
    return bench.windows.*row.on && bench.desk.find(row.window) != nullptr;
}

std::string Workspace::format() const {
    RecordWriter writer;
    writer.text(banner);
    for (const Row& row : rows()) {
        writer.boolean(isOpen(row));
    }
    for (const Row& row : rows()) {
        if (!isOpen(row)) {
            continue;
        }
        for (Value value : row.values) {
            write(writer, *bench.desk.find(row.window), value);
        }
    }
    return writer.bytes();
}

void Workspace::save() const {
    writeFileWhole(settingsFileToWrite(bench.platform, fileName), format());
}

void Workspace::load() {
    open(readFile(settingsFileToRead(bench.platform, fileName), longestSettings));
}

void Workspace::open(std::string bytes) {
    RecordReader reader(std::move(bytes));
    if (!reader.isText(banner)) {
        throw ToolError(wrongBanner, "Incorrect workspace file version");
    }
    std::vector<bool> switches;
    for ([[maybe_unused]] const Row& row : rows()) {
        switches.push_back(reader.boolean());
    }
    for (std::size_t index = 0; index < switches.size(); ++index) {
        bench.windows.*rows()[index].on = switches[index];
    }
    for (std::size_t index = 0; index < switches.size(); ++index) {
        if (!switches[index]) {
            continue;
        }
        try {
            openWindow(rows()[index], reader);
        } catch (...) {
            // A switch that stays true without a window would count the window as open for the whole run.
            for (std::size_t rest = index; rest < switches.size(); ++rest) {
                giveUp(rows()[rest]);
            }
            throw;
        }
    }
}

Form& Workspace::create(const Row& row) const {
    return row.tool ? bench.tools.create(*row.tool) : createPanel(row.window);
}

void Workspace::openWindow(const Row& row, RecordReader& reader) {
    if (row.opening == Row::Opening::AsChosen) {
        openPanel(row.window);
    }
    Form& shown = row.shown ? bench.tools.create(*row.shown) : createPanel(row.window);
    if (row.opening == Row::Opening::Show) {
        shown.hide();
    }
    Form& form = create(row);
    for (Value value : row.values) {
        apply(reader.integer(), form, value);
    }
    shown.show();
}

void Workspace::giveUp(const Row& row) const {
    Form* form = bench.desk.find(row.window);
    if (form != nullptr && form->isOpen()) {
        return;
    }
    if (form != nullptr) {
        form->close();
    }
    bench.windows.*row.on = false;
}

} // namespace zor
