// SPDX-License-Identifier: MIT
#include "registertool/spi.h"

#include "registertool/cell_values.h"
#include "registertool/register_file.h"
#include "support/local_time.h"
#include "support/numbers.h"

#include <utility>

namespace zor {

namespace {

constexpr const char* selectChip = "Select Chip ...";
constexpr const char* storeTitle = "Register database";

} // namespace

SPI::SPI(Bench& ownBench)
    : Form(ownBench.desk, "SPI", "Universal SPI Tool")
    , bench(ownBench)
    , ChipSelect(*this, "ChipSelect", {}, selectChip)
    , ProjectLabel(*this, "ProjectLabel", "P#:")
    , Text3(*this, "Text3", "", TextField::Access::ReadOnly)
    , NotesLabel(*this, "NotesLabel", "Notes:")
    , Notes(*this, "Notes")
    , TabStrip1(*this, "TabStrip1", {"Register List", "FIFO, Batch windows"})
    , Frame_tabs{{Frame(*this, "Frame_tabs(0)"), Frame(*this, "Frame_tabs(1)")}}
    , GuiNotesLabel(*this, "GuiNotesLabel", "GUI Configuration Notes:")
    , GuiNotes(*this, "GuiNotes")
    , Stop(*this, "Stop", "Stop")
    , Command1(*this, "Command1", "Cmd1")
    , Command2(*this, "Command2", "Cmd2")
    , Command3(*this, "Command3", "Cmd3")
    , One(*this, "One", oneColour)
    , Zero(*this, "Zero", oneColour)
    , nodata(*this, "nodata", noDataColour)
    , Blue(*this, "Blue", editedColour)
    , LightGray(*this, "LightGray", idleColour)
    , filter(*this)
    , editor(*this)
    , macros(*this)
    , status(*this)
    , whole(*this)
    , supply(*this)
    , fifo(*this)
    , fifoTest(*this)
    , batch(*this)
    , files(*this)
    , search(*this)
    , differences(*this)
    , notes(*this)
    , report(*this)
    , rates(*this)
    , tables(*this)
    , naming(*this) {
    setExtent({9900, 18000});
    Zero.setBackground(colourOf(BitState::Zero));
    for (Swatch* swatch : {&One, &Zero, &nodata, &Blue, &LightGray}) {
        swatch->setVisible(false);
    }
    Stop.setEnabled(false);
    Stop.setTip("Ends what is running, behind the exchange that it is at");
    whileReady = {&ChipSelect,        &whole.Defaults,     &whole.UpdateChip,  &whole.RefreshTable,
                  &status.StatusRead, &fifoTest.WriteTXff, &fifoTest.ReadRXff, &tables.Import};
    for (Batch& script : batch.batches) {
        whileReady.push_back(&script.BatchRun);
    }

    ChipSelect.onChange = [this] { guarded([this] { ChipSelect_Click(); }); };
    TabStrip1.onTurn = [this] { TabStrip1_Click(); };
    Stop.onClick = [this] { stopping = true; };
    Command1.onClick = [this] {
        if (Chips) {
            guarded([this] { Chips->find("ChipID = 3"); });
        }
    };
    Command2.onClick = [this] {
        if (Chips) {
            Chips->moveFirst();
        }
    };
    table.wanted = [this](const Setting& setting) {
        return search.wants(setting) && differences.wants(setting);
    };
    filter.onChange = [this] { guarded([this] { filterChanged(); }); };
    filter.onReread = [this] { guarded([this] { table.rereadShown(); }); };
    TabStrip1_Click();
    valueStored = table.stored.subscribe([this](std::size_t) { editor.SettingsDataGrid.changed.emit(); });
    beginHistory(*this);
    // Its failure is told over the open window.
    opening = bench.desk.opened.subscribe([this](Form& form) {
        if (&form == this && !store) {
            guarded([this] { openStore(); });
        }
    });
}

SPI::~SPI() {
    // The next tool may be open already when this one is discarded.
    if (!isClosed()) {
        unload();
    }
}

void SPI::unload() {
    waiting.clear();
    bench.tools.close(Tool::SPIsub2);
    detachStore();
}

void SPI::guarded(const std::function<void()>& action) {
    try {
        action();
    } catch (const StoreError& error) {
        tellStoreFailure(error);
    }
}

void SPI::whenFree(std::function<void()> action) {
    if (sending) {
        waiting.push_back(std::move(action));
        return;
    }
    guarded(action);
    runWaiting();
}

void SPI::runWaiting() {
    while (!waiting.empty() && !sending) {
        std::function<void()> next = std::move(waiting.front());
        waiting.erase(waiting.begin());
        guarded(next);
    }
}

bool SPI::send(const std::string& line) {
    // Also where the port is closed on purpose, and this is left by an exception.
    struct Sending {
        SPI& tool;
        Sending(SPI& owner, const std::string& line)
            : tool(owner) {
            tool.sending = true;
            tool.naming.lineOnItsWay = line;
        }
        ~Sending() {
            tool.sending = false;
            tool.naming.lineOnItsWay.clear();
            if (!answered) {
                // What was to follow is dropped with it.
                tool.waiting.clear();
            }
        }
        bool answered = false;
    } guard(*this, line);
    if (bench.connect->Send_To_LoadBoard(line).portGone()) {
        portGone = true;
        return false;
    }
    guard.answered = true;
    return !isClosed();
}

bool SPI::exchange(const std::string& line) {
    const unsigned generation = table.generation();
    return send(line) && table.generation() == generation;
}

void SPI::tellStoreFailure(const StoreError& error) {
    detachStore();
    // A window that was closed meanwhile has nothing more to say.
    if (!isClosed()) {
        bench.tellError(error, storeTitle);
    }
}

void SPI::detachStore() {
    ChipSelect.setEntries({});
    ChipSelect.putText(selectChip);
    Text3.setText("");
    Chips.reset();
    Registers.reset();
    fifo.detach();
    table.detach();
    macros.offerNames();
    macros.reset();
    editor.forbid();
    status.forget();
    store.reset();
    history()->forget();
}

void SPI::openStore() {
    store = openRegisterFile(bench.platform);
    Chips = store->select("Select * from Chip");
    // Its registers go from table to table inside the store.
    Registers = store->select("Select * from Register where ChipID = 1", RegisterStore::Values::WhenAsked);
    table.attach(*store);
    fifo.attach(*store);
    {
        StoreTransaction transaction(*store);
        ClearWorktables();
        transaction.commit();
    }
    offerChips();
}

void SPI::ClearWorktables() {
    fifo.forgetChip();
    for (const char* text : {"delete * from Setting", "delete * from RXFIFO", "delete * from TXFIFO"}) {
        store->run(text);
    }
    table.reread();
    fifo.TX->reread();
    fifo.RX->reread();
}

void SPI::offerChips() {
    std::vector<std::string> names;
    for (Chips->moveFirst(); !Chips->pastLast(); Chips->moveNext()) {
        names.push_back(Chips->value("Name").value_or(std::string()));
    }
    ChipSelect.setEntries(std::move(names));
}

void SPI::ChipSelect_Click() {
    auto position = static_cast<std::size_t>(ChipSelect.position());
    if (!Chips || position >= Chips->count()) {
        return;
    }
    Chips->moveTo(position);
    // The key becomes part of a text as a number, never as the text it may be.
    std::string chip = std::to_string(roundToInt(numericPrefix(Chips->value("ChipID").value_or("0"))));
    Chips->moveFirst();
    Chips->find("ChipID = " + chip);
    Registers->setQuery("Select * from Register where ChipID = " + chip + " AND Databits = 8 ORDER BY " +
                        orderColumn(filter.order()));
    fillWorktables(chip);
    showChip();
}

void SPI::fillWorktables(const std::string& chip) {
    StoreTransaction transaction(*store);
    ClearWorktables();
    table.fill(*Registers);
    filter.tickAll();
    table.show(allSettings);
    fifo.takeChip(*Chips);
    Registers->setQuery("Select * from Register where ChipID = " + chip + " AND StatusReg = True");
    transaction.commit();
}

void SPI::showChip() {
    Text3.setText(Chips->value("ProjectNr").value_or(std::string()));
    editor.forbid();
    status.offer(*Registers);
    status.clear();
    macros.offerNames();
    macros.reset();
    whole.ProgressBar1.putValue(0);
    Notes.setText(ChipSelect.text() + ", " + localTime(std::chrono::system_clock::now(), "%Y-%m-%d"));
    // The steps were another chip's.
    history()->forget();
}

void SPI::TabStrip1_Click() {
    CurrentTab = TabStrip1.page();
    for (std::size_t page = 0; page < Frame_tabs.size(); ++page) {
        Frame_tabs[page].setVisible(static_cast<int>(page) + 1 == CurrentTab);
    }
}

void SPI::filterChanged() {
    table.show(filterQuery(filter.classes(), filter.order()));
}

void SPI::reofferChips() {
    if (Chips) {
        Chips->reread();
        offerChips();
    }
}

void SPI::narrow() {
    std::string kept = editor.pickedAddress();
    table.narrow();
    editor.findAgain(kept, RegisterEditor::Editor::Stays);
}

void SPI::LoadboardBusy() {
    for (Element* element : whileReady) {
        element->setEnabled(false);
    }
}

void SPI::LoadboardReady() {
    for (Element* element : whileReady) {
        element->setEnabled(true);
    }
}

LongAction::LongAction(SPI& ownTool, Works ownWorks)
    : tool(ownTool)
    , works(ownWorks)
    , generation(ownTool.table.generation()) {
    tool.LoadboardBusy();
    if (tool.longActions++ == 0) {
        tool.stopping = false;
        tool.portGone = false;
    }
    tool.Stop.setEnabled(true);
}

void LongAction::end() {
    if (std::exchange(ended, true)) {
        return;
    }
    tool.Stop.setEnabled(--tool.longActions > 0);
    tool.LoadboardReady();
    tool.report.free();
}

bool LongAction::sameTable() const {
    return !tool.isClosed() && tool.table.generation() == generation;
}

bool LongAction::hasItsGround() const {
    return works == Works::OnRegisters ? sameTable() : !tool.isClosed();
}

bool LongAction::goesOn() const {
    return !tool.portGone && !tool.stopping && hasItsGround();
}

bool LongAction::readyForNext() {
    // What the user asked for meanwhile goes between two exchanges.
    tool.runWaiting();
    return goesOn();
}

bool LongAction::send(const std::string& line) {
    return readyForNext() && tool.send(line) && hasItsGround();
}

} // namespace zor
