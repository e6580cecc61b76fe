// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "elements/history.h"
#include "elements/tab_strip.h"
#include "link/bench.h"
#include "link/connect.h"
#include "registertool/batch_page.h"
#include "registertool/board_supply.h"
#include "registertool/differences.h"
#include "registertool/editor_notes.h"
#include "registertool/error_rates.h"
#include "registertool/fifo_page.h"
#include "registertool/fifo_test.h"
#include "registertool/macro_rows.h"
#include "registertool/register_editor.h"
#include "registertool/register_filter.h"
#include "registertool/register_naming.h"
#include "registertool/register_search.h"
#include "registertool/run_report.h"
#include "registertool/setting_table.h"
#include "registertool/status_viewer.h"
#include "registertool/table_files.h"
#include "registertool/text_files.h"
#include "registertool/whole_table.h"

#include <array>
#include <functional>
#include <memory>

namespace zor {

/// The register tool: a browser over a database of registers for any chip on the board's bus.
///
/// Choosing a chip copies its registers from the master tables into the worktables; all else reads and writes
/// the worktables, so that the database shows what the tool believes the chip holds. A store that fails is
/// told once and leaves the tool open and empty.
class SPI : public Form, public Undoable {
  public:
    explicit SPI(Bench& ownBench);
    ~SPI() override;

    Bench& bench;
    /// The open database; nullptr if there is none that can be used.
    std::unique_ptr<RegisterStore> store;
    SettingTable table;

    // Elements of both pages.
    ListBox ChipSelect;
    Label ProjectLabel;
    /// The chip's project number.
    TextField Text3;
    Label NotesLabel;
    TextField Notes;
    TabStrip TabStrip1;
    std::array<Frame, 2> Frame_tabs;
    Label GuiNotesLabel;
    TextField GuiNotes;
    /// Ends a long action within one exchange.
    Button Stop;
    /// Leftovers: the first two move the place among the chips, which nothing shows.
    Button Command1;
    Button Command2;
    Button Command3;
    /// The palette that bits and values are coloured by, never seen themselves.
    Swatch One;
    Swatch Zero;
    Swatch nodata;
    Swatch Blue;
    Swatch LightGray;

    // What can be undone: the registers' values and the editor's.
    [[nodiscard]] Aspects keptAspects(const Element& element) const override {
        return isSetting(element) ? keepsContent : keepsNothing;
    }
    [[nodiscard]] bool isSetting(const Element& element) const override;
    [[nodiscard]] std::string settingCaption(const Element&) const override { return "Register"; }
    [[nodiscard]] ElementState takeElement(const Element& element, Aspects aspects) const override;
    void putElement(Element& element, const ElementState& state, Aspects aspects) override;
    [[nodiscard]] std::string changeName(const Element& element, const ElementState& before,
                                         const ElementState& after) const override;

    /// The number of the page that is up, from 1.
    int CurrentTab = 1;

    RegisterFilter filter;
    RegisterEditor editor;
    MacroRows macros;
    StatusViewer status;
    WholeTable whole;
    BoardSupply supply;
    FifoPage fifo;
    FifoTest fifoTest;
    BatchPage batch;
    TextFiles files;
    RegisterSearch search;
    Differences differences;
    EditorNotes notes;
    RunReport report;
    ErrorRates rates;
    TableFiles tables;

    /// Empties the worktables and what is known of the chip. Throws StoreError.
    void ClearWorktables();
    /// Long actions disable what would disturb them.
    void LoadboardBusy();
    void LoadboardReady();
    /// What LoadboardBusy disables.
    std::vector<Element*> whileReady;

    /// The database has other chips; the one that is chosen stays so. Throws StoreError.
    void reofferChips();
    /// The search or the view of differences wants other rows in sight; the picked one stays picked.
    void narrow();

    /// Runs an action of the user; a failure of the store in it is told, and the tool is empty then.
    void guarded(const std::function<void()>& action);
    /// Runs an action that sends once no exchange of this tool is on its way: between two exchanges of a run,
    /// so that no answer is taken for another's.
    void whenFree(std::function<void()> action);
    /// Sends a line and waits. @return whether there is an answer, and still somebody to take it
    bool send(const std::string& line);
    /// The same for a register of the chosen chip. The answer is nobody's any more where the user has chosen
    /// another chip meanwhile.
    bool exchange(const std::string& line);

  protected:
    void unload() override;

  private:
    friend class LongAction;

    void openStore();
    void offerChips();
    void ChipSelect_Click();
    void fillWorktables(const std::string& chip);
    void showChip();
    void TabStrip1_Click();
    void filterChanged();
    void tellStoreFailure(const StoreError& error);
    void detachStore();

    /// The record sources that the product calls by these names.
    std::unique_ptr<RecordSource> Chips;
    std::unique_ptr<RecordSource> Registers;
    Subscription opening;
    Subscription valueStored;
    void runWaiting();

    RegisterNaming naming;
    bool sending = false;
    /// An exchange met a closed port or lost it; whatever runs ends there.
    bool portGone = false;
    std::vector<std::function<void()>> waiting;
    int longActions = 0;
    bool stopping = false;
};

/// A run of many exchanges: the tool is busy while it lives, and it tells whether the run goes on. It ends
/// when the user stops it, when the port has gone, when the window was closed, and when the registers are no
/// longer those it began with.
class LongAction {
  public:
    /// What the run works on: the registers of the chip, or nothing that a choice of chip changes.
    enum class Works { OnRegisters, OnTheBoard };
    explicit LongAction(SPI& ownTool, Works works = Works::OnRegisters);
    LongAction(const LongAction&) = delete;
    LongAction& operator=(const LongAction&) = delete;
    /// Frees the tool, also where the run was dropped in its middle.
    ~LongAction() { end(); }

    [[nodiscard]] bool goesOn() const;
    /// Lets what the user asked for meanwhile go first, which may change any value. @return whether the run
    /// goes on behind it
    [[nodiscard]] bool readyForNext();
    /// Sends a line and waits. @return whether there is an answer, and still somebody to take it
    bool send(const std::string& line);
    /// The tool is open and has the registers that the run began with.
    [[nodiscard]] bool sameTable() const;
    /// Frees the tool before the run's last words.
    void end();

  private:
    [[nodiscard]] bool hasItsGround() const;

    SPI& tool;
    Works works;
    unsigned generation;
    bool ended = false;
};

} // namespace zor
