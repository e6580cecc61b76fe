// SPDX-License-Identifier: MIT
#include "rftools/tx_search_run.h"

#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

/// What CommState shows.
enum Step : std::int32_t { preparing = 1, searching = 2, giving = 100 };
constexpr int neverStarted = -10'000;

} // namespace

SearchRun::SearchRun(Bench& ownBench, ChipPanel& ownPanel, const SearchChip& ownChip,
                     const Settings& ownSettings)
    : bench(ownBench)
    , panel(ownPanel)
    , chip(ownChip)
    , settings(ownSettings)
    , ownPlan(ownSettings.span, ownSettings.rates)
    , words(ownPanel)
    , timer(ownBench.platform.loop, [this] { tick(); }) {}

SearchRun::~SearchRun() = default;

bool SearchRun::start() {
    claim = bench.link.port.claim(preparing);
    if (!claim.held()) {
        return false;
    }
    Connect& connect = *bench.connect;
    // The port is still there when it is closed on purpose; behind that, and without the device, it is not.
    subscriptions.push_back(connect.closing.subscribe([this] {
        try {
            end(End::PortGone, Patience::UntilSilence);
        } catch (const ActionDropped&) {
            // Closed once more while it waited: the closing goes on.
            finish();
        }
    }));
    subscriptions.push_back(connect.portClosed.subscribe([this] {
        ending = ending.value_or(End::PortGone);
        finish();
    }));
    subscriptions.push_back(panel.closed.subscribe([this] { end(End::PanelGone, Patience::UntilSilence); }));
    words.set("Ctrlw", "band", settings.band);
    for (const FieldSetting& field : chip.listening) {
        words.set(field.word, field.field, field.code);
    }
    timer.start(std::chrono::milliseconds(1));
    return true;
}

void SearchRun::tick() {
    auto alive = shared_from_this();
    inTick = true;
    try {
        step();
        inTick = false;
        if (ending && !isOver && !restoring) {
            putBack(Patience::EveryWord);
        }
    } catch (...) {
        // The program is being left, or the port was closed on purpose.
        inTick = false;
        finish();
        throw;
    }
}

void SearchRun::step() {
    if (!claim.held() || !bench.connect->isOpen()) {
        ending = End::PortGone;
        finish();
        return;
    }
    if (bench.openPanel() != &panel) {
        ending = End::PanelGone;
        return;
    }
    if (!prepared) {
        if (!prepare()) {
            return;
        }
        prepared = true;
        claim.setStep(searching);
    } else if (!words.unset().empty()) {
        // The panel has sent its own words in the meantime; what is read now would be another receiver's.
        startedAt = neverStarted;
        controlsFrequency = false;
    } else {
        SearchSetting setting = ownPlan.next();
        auto reading = read(setting);
        if (!reading) {
            return;
        }
        last = Heard{setting, *reading};
        ownPlan.take(*reading);
        progressed.emit();
    }
    if (isOver || ending) {
        return;
    }
    if (ownPlan.done()) {
        ending = End::Complete;
        return;
    }
    SearchSetting next = ownPlan.next();
    if (apply(next)) {
        timer.start(waitFor(next));
    }
}

void SearchRun::end(End reason, Patience patience) {
    if (isOver || restoring) {
        return;
    }
    ending = ending.value_or(reason);
    // A tick that waits for an answer does the rest when it has it, unless there will be no port or no panel
    // by then.
    if (!inTick || patience == Patience::UntilSilence) {
        putBack(patience);
    }
}

void SearchRun::putBack(Patience patience) {
    auto alive = shared_from_this();
    restoring = true;
    timer.stop();
    claim.setStep(giving);
    progressed.emit();
    bool heeded = true;
    auto mayGoOn = [&] {
        return !isOver && bench.connect->isOpen() && (heeded || patience == Patience::EveryWord);
    };
    try {
        if (selected && mayGoOn()) {
            selected = false;
            heeded = bench.connect->Send_To_LoadBoard("H2\r").served();
        }
        // The receiver starts last, on the frequency that it had.
        std::vector<ControlWord*> lent = words.borrowed();
        std::stable_partition(lent.begin(), lent.end(), [this](const ControlWord* word) {
            return word->name() != chip.start.front().word;
        });
        for (ControlWord* word : lent) {
            if (mayGoOn()) {
                heeded = giveBack(*word);
            }
        }
        restored = !isOver && words.borrowed().empty();
    } catch (...) {
        finish();
        throw;
    }
    finish();
}

bool SearchRun::giveBack(ControlWord& word) {
    std::string text = words.original(word);
    // Where the receiver is on it starts anew, so that its synthesizer calibrates on the panel's frequency.
    std::uint32_t value = readHex(text).value_or(word.value());
    std::uint32_t off = value;
    for (const FieldSetting& field : chip.start) {
        off = word.name() == field.word ? withField(off, word, field.field, 0) : off;
    }
    bool startsAnew = off != value && prepared;
    if (startsAnew && !bench.connect->Send_To_LoadBoard("S2" + hexText(off) + "\r").served()) {
        startsAnew = false;
    }
    if (isOver) {
        return false;
    }
    bool answered =
        bench.connect->Send_To_LoadBoard("S2" + text + "\r").outcome == Exchange::Outcome::Answered;
    // The panel's words are gone where the search has ended meanwhile.
    if (answered && !isOver) {
        words.givenBack(word);
    }
    return answered;
}

void SearchRun::finish() {
    if (isOver) {
        return;
    }
    isOver = true;
    timer.stop();
    subscriptions.clear();
    claim.giveBack();
    progressed.emit();
}

} // namespace zor
