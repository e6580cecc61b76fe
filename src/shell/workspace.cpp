// SPDX-License-Identifier: MIT
#include "shell/workspace.h"

#include "elements/tick_box.h"
#include "shell/settings.h"
#include "support/error.h"
#include "support/record_file.h"

#include <utility>

namespace zor {

namespace {

constexpr const char* fileName = "ZOR.wsp";
constexpr std::string_view banner = "# ZOR workspace file version 1.3.4";

enum class Value { Script, Top, Left, Height, Width };
using Values = std::vector<Value>;

const Values placed = {Value::Top, Value::Left};
const Values placedAndSized = {Value::Top, Value::Left, Value::Height, Value::Width};
const Values terminalValues = {Value::Script, Value::Top, Value::Left, Value::Height, Value::Width};

/// A first line of another form is no banner either; only an empty file is something else.
bool startsWithBanner(RecordReader& reader) {
    try {
        return reader.text() == banner;
    } catch (const ToolError& error) {
        if (error.number() == typeMismatch) {
            return false;
        }
        throw;
    }
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
        form.setExtent({length, form.extent().width});
        return;
    case Value::Width:
        form.setExtent({form.extent().height, length});
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
        Panel,
    };

    bool Bench::*on;
    /// Whose values the block holds.
    const char* window;
    const Values& values;
    Opening opening = Opening::Show;
    /// Which window is hidden while the block is read, and shown after it.
    const char* shown = window;
};

const std::vector<Workspace::Row>& Workspace::rows() {
    using Opening = Row::Opening;
    static const std::vector<Row> table = {
        {&Bench::Terminalon, "Terminal", terminalValues},
        {&Bench::EEPROMon, "eeprom", placedAndSized},
        {&Bench::TX0on, "OpalV2", placed, Opening::Panel},
        {&Bench::TX1on, "JadeV1", placed, Opening::Panel},
        {&Bench::RXon, "AmberV1", placed, Opening::Panel},
        {&Bench::RX1on, "Coral", placed, Opening::Panel},
        {&Bench::RxLinkOn, "AmberV1rflink", placedAndSized},
        // Kept as users' files know it: the values go to the generation 2 window, the other one is shown.
        {&Bench::RxLinkOn_LB2, "AmberV1rflink_LB2", placedAndSized, Opening::Show, "AmberV1rflink"},
        {&Bench::OpalV2testOn, "OpalV2test", placed},
        {&Bench::TRXon, "BerylV3", placed},
        {&Bench::TRX1on, "FRM_Topaz", placed},
    };
    return table;
}

bool Workspace::isOpen(const Row& row) const {
    return bench.*row.on && bench.desk.find(row.window) != nullptr;
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
    open(readFile(settingsFileToRead(bench.platform, fileName)));
}

void Workspace::open(std::string bytes) {
    RecordReader reader(std::move(bytes));
    if (!startsWithBanner(reader)) {
        throw ToolError(wrongBanner, "Incorrect workspace file version");
    }
    std::vector<bool> switches;
    for ([[maybe_unused]] const Row& row : rows()) {
        switches.push_back(reader.boolean());
    }
    for (std::size_t index = 0; index < switches.size(); ++index) {
        bench.*rows()[index].on = switches[index];
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

Form& Workspace::create(std::string_view window) const {
    auto row = bench.createTool.find(window);
    if (row == bench.createTool.end()) {
        throw ToolError(cannotCreate, "Window " + std::string(window) + " cannot be created");
    }
    return row->second();
}

void Workspace::openWindow(const Row& row, RecordReader& reader) {
    if (row.opening == Row::Opening::Panel) {
        openPanel(row.window);
    }
    Form& shown = create(row.shown);
    if (row.opening == Row::Opening::Show) {
        shown.hide();
    }
    Form& form = create(row.window);
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
    bench.*row.on = false;
}

} // namespace zor
