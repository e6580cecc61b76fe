// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/wire_recorder.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace zor {

/// What crossed the wire, line by line, with its outcome and its meaning. The past is there when the window
/// is opened, for the recorder has listened all along; pausing stops the view, not the recording.
class WireLog : public Form {
  public:
    explicit WireLog(Bench& ownBench);
    ~WireLog() override;

    Label LabelFilter;
    /// Shows only what holds this text, in any case, in line, answer, result or meaning.
    TextField Filter;
    Label LabelResult;
    ListBox Result;
    TickBox Pause;
    /// The newest row stays in sight.
    TickBox Follow;
    Label LabelDock;
    /// Where the window stands: inside the main window, or at its bottom or right edge.
    ListBox Dock;
    Grid Log;
    Label Count;
    Button Clear;
    Button Copy;
    Button Save;

    /// The user chose where it stands; `changed` follows.
    Signal<> placeChosen;
    /// An entry of Dock; another text leaves it where it is.
    void putPlace(const std::string& place);

  protected:
    void unload() override;

  private:
    void refill();
    void take_Timer();
    void Save_Click();
    [[nodiscard]] bool passes(const WireEntry& entry) const;
    [[nodiscard]] GridRow rowOf(const WireEntry& entry) const;
    /// The shown rows, cells joined by the separator.
    [[nodiscard]] std::string asText() const;
    [[nodiscard]] std::string asCsv() const;
    void showCount();
    void dropForgotten();

    Bench& bench;
    WireRecorder& recorder;
    /// The numbers of the entries that the rows show.
    std::deque<std::uint64_t> shown;
    /// The first entry that has not been looked at.
    std::uint64_t next = 0;
    Timer taking;
    Subscription additions;
    Subscription clearing;
};

/// Bytes of the wire as a table shows them: control characters as \r, \n or \xNN.
[[nodiscard]] std::string printable(std::string_view bytes);

} // namespace zor
