// SPDX-License-Identifier: MIT
#include "utilities/tx_search_run.h"

#include "link/connect.h"
#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zor {

namespace {

/// What CommState shows.
enum Step : std::int32_t { preparing = 1, searching = 2, giving = 100 };

/// Where a byte's two digits stand in the last 15 characters, from 1.
constexpr std::size_t byteAt = 6;
/// The receiver starts anew, and its synthesizer calibrates, when it has been tuned so far away: a tenth of
/// the band.
constexpr int startEvery = 400;
constexpr int neverStarted = -10'000;
/// A clock recovery needs so many bits to lock.
constexpr double bitsToLock = 64;
/// Readings in a row without a status in them.
constexpr int mostUnreadable = 3;

bool isSet(StatusBit place, const std::uint32_t (&bytes)[2]) {
    return (bytes[place.byte] >> place.bit & 1U) != 0;
}

int signedOffset(std::uint32_t byte, int width) {
    auto span = 1U << width;
    auto value = static_cast<int>(byte & (span - 1));
    return value >= static_cast<int>(span / 2) ? value - static_cast<int>(span) : value;
}

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

bool SearchRun::prepare() {
    const SearchSetting& first = ownPlan.next();
    words.set("Freqw", "frequency parameter", first.frequency);
    words.set("Recw", "DRSSI threshold", first.threshold);
    return putUnsetWords() && startReceiver();
}

bool SearchRun::apply(const SearchSetting& setting) {
    words.set("Freqw", "frequency parameter", setting.frequency);
    words.set("Recw", "DRSSI threshold", setting.threshold);
    if (setting.rate) {
        const RateSetting& rate = ownPlan.rates()[*setting.rate];
        words.set("Dataratew", "prescaler", rate.prescaler ? 1 : 0);
        words.set("Dataratew", "R", rate.divider);
    }
    if (!putUnsetWords()) {
        return false;
    }
    if (std::abs(setting.frequency - startedAt) > startEvery && !startReceiver()) {
        return false;
    }
    return setting.offset == controlsFrequency || controlFrequency(setting.offset, 1);
}

/// What has changed; and what the panel has sent in the meantime, which is not what the search needs.
bool SearchRun::putUnsetWords() {
    for (ControlWord* word : words.unset()) {
        std::string line = words.put(*word);
        Exchange result = exchange(line);
        if (isOver) {
            return false;
        }
        if (result.outcome != Exchange::Outcome::Answered) {
            words.notPut(*word);
        }
        if (ending) {
            return false;
        }
    }
    return true;
}

bool SearchRun::startReceiver() {
    startedAt = ownPlan.next().frequency;
    for (const FieldSetting& field : chip.start) {
        words.set(field.word, field.field, 0);
    }
    if (!putUnsetWords()) {
        return false;
    }
    for (const FieldSetting& field : chip.start) {
        words.set(field.word, field.field, 1);
    }
    return putUnsetWords();
}

bool SearchRun::controlFrequency(bool on, int times) {
    controlsFrequency = on;
    words.set("AFCw", "enable", on ? 1 : 0);
    ControlWord* word = words.find("AFCw");
    for (int time = 0; time < times; ++time) {
        if (!send(words.put(*word))) {
            return false;
        }
    }
    return true;
}

std::optional<SearchReading> SearchRun::read(const SearchSetting& setting) {
    // The offset must stand still while it is read.
    if (setting.offset && !controlFrequency(false, chip.controlStops)) {
        return std::nullopt;
    }
    std::uint32_t bytes[2] = {0, 0};
    bool readable = true;
    if (!send("H2\r")) {
        return std::nullopt;
    }
    selected = true;
    if (!send("L2\r") || !send("L0\r")) {
        return std::nullopt;
    }
    for (std::uint32_t& byte : bytes) {
        Exchange result = exchange("RS\r");
        if (isOver || ending) {
            return std::nullopt;
        }
        auto value = result.byteAt(byteAt);
        readable = readable && value.has_value();
        byte = value.value_or(0);
    }
    selected = false;
    if (!send("H2\r")) {
        return std::nullopt;
    }
    unreadable = readable ? 0 : unreadable + 1;
    if (unreadable >= mostUnreadable) {
        ending = End::Unreadable;
        return std::nullopt;
    }
    SearchReading reading;
    reading.signal = readable && isSet(chip.signal, bytes);
    reading.clockLocked = readable && isSet(chip.clock, bytes);
    if (chip.offsetBits > 0 && readable) {
        reading.offset = signedOffset(bytes[1], chip.offsetBits);
    }
    return reading;
}

std::chrono::milliseconds SearchRun::waitFor(const SearchSetting& setting) const {
    if (!setting.rate) {
        return settings.dwell;
    }
    // kbit/s are bits a millisecond.
    double bits = std::ceil(bitsToLock / ownPlan.rates()[*setting.rate].kilobits);
    return std::max(settings.dwell, std::chrono::milliseconds(static_cast<long>(bits)));
}

bool SearchRun::send(const std::string& line) {
    exchange(line);
    return !isOver && !ending;
}

/// A line and its answer. What ends the search by it is noted; the tick then puts the chip back.
Exchange SearchRun::exchange(const std::string& line) {
    Exchange result = bench.connect->Send_To_LoadBoard(line);
    if (isOver || restoring) {
        return result;
    }
    // The search for boards may have taken the port.
    if (result.portGone() || !claim.held()) {
        ending = End::PortGone;
        finish();
    } else if (!ending && result.outcome == Exchange::Outcome::TimedOut) {
        ending = End::Unanswered;
    } else if (!ending && result.outcome == Exchange::Outcome::Refused) {
        ending = End::Refused;
    }
    return result;
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
