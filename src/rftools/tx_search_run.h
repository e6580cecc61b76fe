// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "link/bench.h"
#include "link/exchange.h"
#include "link/port_owner.h"
#include "platform/event_loop.h"
#include "rftools/borrowed_words.h"
#include "rftools/tx_search_chips.h"
#include "rftools/tx_search_plan.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// One search for transmitters on the board: sets the open panel's chip as the plan says, waits, reads its
/// status, and puts the chip back as the panel has it, whichever way it ends.
///
///     preparing --> searching --> (puts back) --> over
///         |             |
///         +-------------+---- the port is gone: nothing can be put back ----> over
///
/// It works in ticks of a timer and owns the port from its start to its end. A tick may still wait for the
/// board when the search is over; it then does nothing more.
class SearchRun : public std::enable_shared_from_this<SearchRun> {
  public:
    enum class End {
        Complete,
        Stopped,
        PanelGone,  ///< another panel, or none, is on the screen
        Unanswered, ///< the board fell silent
        Refused,    ///< the board refused a line
        Unreadable, ///< its answers held no status
        PortGone,
    };
    struct Settings {
        SearchPlan::Span span;
        std::vector<RateSetting> rates;
        /// The band's field of the configuration word.
        int band = 0;
        /// From a setting to its reading.
        std::chrono::milliseconds dwell{10};
    };

    SearchRun(Bench& ownBench, ChipPanel& ownPanel, const SearchChip& ownChip, const Settings& ownSettings);
    SearchRun(const SearchRun&) = delete;
    SearchRun& operator=(const SearchRun&) = delete;
    ~SearchRun();

    /// Takes the port. @return false, with nothing done, if somebody has it
    [[nodiscard]] bool start();
    /// Ends it behind the line that is under way.
    void stop() { end(End::Stopped); }

    [[nodiscard]] bool over() const { return isOver; }
    /// It is putting the chip back.
    [[nodiscard]] bool puttingBack() const { return ending && !isOver; }
    [[nodiscard]] std::optional<End> how() const { return ending; }
    /// The chip has all its words again.
    [[nodiscard]] bool chipPutBack() const { return restored; }
    [[nodiscard]] const SearchPlan& plan() const { return ownPlan; }
    /// The last reading, and where it was taken.
    struct Heard {
        SearchSetting setting;
        SearchReading reading;
    };
    [[nodiscard]] const std::optional<Heard>& heard() const { return last; }

    /// Another reading is in, or it is over.
    Signal<> progressed;

  private:
    enum class Patience { EveryWord, UntilSilence };

    void tick();
    void step();
    [[nodiscard]] bool prepare();
    [[nodiscard]] bool apply(const SearchSetting& setting);
    [[nodiscard]] bool putUnsetWords();
    [[nodiscard]] bool startReceiver();
    [[nodiscard]] bool controlFrequency(bool on, int times);
    [[nodiscard]] std::optional<SearchReading> read(const SearchSetting& setting);
    [[nodiscard]] std::chrono::milliseconds waitFor(const SearchSetting& setting) const;
    [[nodiscard]] bool send(const std::string& line);
    Exchange exchange(const std::string& line);
    void end(End reason, Patience patience = Patience::EveryWord);
    void putBack(Patience patience);
    [[nodiscard]] bool giveBack(ControlWord& word);
    void finish();

    Bench& bench;
    ChipPanel& panel;
    const SearchChip& chip;
    Settings settings;
    SearchPlan ownPlan;
    BorrowedWords words;
    PortClaim claim;
    Timer timer;
    std::vector<Subscription> subscriptions;
    bool prepared = false;
    bool isOver = false;
    bool inTick = false;
    bool restoring = false;
    bool restored = false;
    /// The chip's select line is low.
    bool selected = false;
    bool controlsFrequency = false;
    int startedAt = 0;
    int unreadable = 0;
    std::optional<End> ending;
    std::optional<Heard> last;
};

} // namespace zor
