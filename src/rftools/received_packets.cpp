// SPDX-License-Identifier: MIT
#include "rftools/received_packets.h"

#include "link/connect.h"
#include "link/file_dialog.h"
#include "link/plot_file.h"
#include "support/csv.h"
#include "support/error.h"
#include "support/hex_text.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace zor {

namespace {

enum Column : std::size_t { sign, number, time, length, frequencyOffset, text, hex };

constexpr const char* filePattern = "*.csv";
/// Of a long loss so many gaps are drawn; the strip has no room for more.
constexpr std::int64_t mostGaps = 200;

/// Hours, minutes, seconds and milliseconds since the window listens.
std::string clockText(EventLoop::Duration since) {
    auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%lld:%02lld:%02lld.%03lld",
                  static_cast<long long>(whole / 3'600'000), static_cast<long long>(whole / 60'000 % 60),
                  static_cast<long long>(whole / 1000 % 60), static_cast<long long>(whole % 1000));
    return text.data();
}

/// Bytes as they can be read in a line: what is no plain character shows as a point.
std::string printable(const std::string& payload) {
    std::string shown = payload;
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c < 0x20 || c > 0x7E; }, '.');
    return shown;
}

/// Two digits a byte with blanks between.
std::string spacedHex(const std::string& payload) {
    std::string digits = hexOfText(payload);
    std::string spaced;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        spaced += (at == 0 ? "" : " ") + digits.substr(at, 2);
    }
    return spaced;
}

std::vector<GridColumn> columns() {
    return {{.caption = "", .characters = 2},
            {.caption = "No.", .characters = 7},
            {.caption = "Time", .characters = 12},
            {.caption = "Length", .characters = 6},
            {.caption = "Offset kHz", .characters = 9},
            {.caption = "Text", .characters = 26, .fixedPitch = true},
            {.caption = "Hex", .characters = 40, .fixedPitch = true}};
}

Plot::Traits lengths() {
    return {.title = "Length of the last " + std::to_string(PacketLog::window) + " packets",
            .x = {.caption = "Packet number", .unit = "", .ticks = PlotAxis::Ticks::WholeNumbers},
            .y = {.caption = "Length",
                  .unit = "bytes",
                  .ticks = PlotAxis::Ticks::WholeNumbers,
                  .from = 0.0,
                  .to = 8.0},
            .style = Plot::Style::Bars,
            .capacity = PacketLog::window,
            .gapCaption = "lost"};
}

} // namespace

ReceivedPackets::ReceivedPackets(Form& owner, Bench& ownBench, std::function<std::string()> panelsOffset)
    : Packets(owner, "Packets", columns())
    , PacketNote(owner, "PacketNote", "newest on top, the last 5,000 kept")
    , CopyPackets(owner, "CopyPackets", "Copy")
    , SavePackets(owner, "SavePackets", "Save...")
    , ClearPackets(owner, "ClearPackets", "Clear table")
    , PacketLengths(owner, "PacketLengths", lengths())
    , SaveLengths(owner, "SaveLengths", "Save plot...")
    , PacketFigures(owner, "PacketFigures")
    , bench(ownBench)
    , offset(std::move(panelsOffset)) {
    Packets.setTip("Packets as the board reported them, byte for byte");
    CopyPackets.setTip("Copies the picked packet, or all of them, with tabs between the columns");
    SavePackets.setTip("Saves all packets of the table as comma separated values");
    ClearPackets.setTip("Empties the table and the plot and begins the figures anew");
    SaveLengths.setTip("Saves the plot as a picture, or its values");
    CopyPackets.onClick = [this] { bench.platform.surroundings.copyText(tabbed()); };
    SavePackets.onClick = [this] { save(); };
    ClearPackets.onClick = [this] { clear(); };
    SaveLengths.onClick = [this] {
        savePlot(bench, PacketLengths, "Save Packet Lengths", "packet-lengths.png");
    };
    reader.found = [this](const std::string& payload) { show(log.add(payload, now, offset())); };
    reader.damaged = [this] { show({log.addDamaged(now)}); };
    showFigures();
}

void ReceivedPackets::listen() {
    start = bench.platform.loop.now();
    reader.reset();
    subscriptions.push_back(bench.connect->tap.bytes.subscribe([this](const WireBytes& heard) {
        if (heard.role != WireBytes::Port::Working) {
            return;
        }
        now = bench.platform.loop.now();
        if (heard.direction == WireBytes::Direction::FromBoard) {
            hear(heard.bytes);
        } else {
            // A board that takes a line has said what it had to say.
            reader.silence();
        }
    }));
}

void ReceivedPackets::ignore() {
    subscriptions.clear();
}

void ReceivedPackets::hear(std::string_view bytes) {
    for (char c : bytes) {
        reader.take(c);
    }
}

void ReceivedPackets::show(const std::vector<PacketEvent>& fresh) {
    for (const PacketEvent& event : fresh) {
        addRow(event);
        addPoints(event);
    }
    showFigures();
}

void ReceivedPackets::addRow(const PacketEvent& event) {
    GridRow row(columns().size());
    row[time] = {clockText(event.time - start), CellLook::Soft};
    if (event.number) {
        row[number] = std::to_string(*event.number);
    }
    switch (event.kind) {
    case PacketEvent::Kind::Received:
        row[length] = std::to_string(event.payload.size());
        row[frequencyOffset] = event.offset;
        row[text] = printable(event.payload);
        row[hex] = {spacedHex(event.payload), CellLook::Soft};
        break;
    case PacketEvent::Kind::Lost:
        row[sign] = {"!", CellLook::Wrong};
        row[number].look = CellLook::Wrong;
        row[text] = {event.count == 1 ? "lost, number missing"
                                      : "lost, " + std::to_string(event.count) + " numbers missing",
                     CellLook::Wrong};
        break;
    case PacketEvent::Kind::Damaged:
        row[sign] = {"?", CellLook::Wrong};
        row[text] = {"report broke off", CellLook::Wrong};
        break;
    }
    Packets.insertRows(0, {std::move(row)});
    if (Packets.rowCount() > capacity) {
        Packets.removeRows(capacity, Packets.rowCount() - capacity);
    }
}

void ReceivedPackets::addPoints(const PacketEvent& event) {
    if (event.kind == PacketEvent::Kind::Damaged) {
        return;
    }
    double place = event.number ? static_cast<double>(*event.number) : nextPlace;
    if (!PacketLengths.points().empty() && place <= PacketLengths.points().back().x) {
        // Another count, or none: its places would run backwards.
        PacketLengths.clear();
    }
    if (event.kind == PacketEvent::Kind::Received) {
        PacketLengths.add({place, static_cast<double>(event.payload.size())});
        nextPlace = place + 1;
        return;
    }
    for (std::int64_t missing = std::max<std::int64_t>(0, event.count - mostGaps); missing < event.count;
         ++missing) {
        PacketLengths.add({place + static_cast<double>(missing), std::nullopt});
    }
}

void ReceivedPackets::showFigures() {
    LinkFigures figures = log.figures();
    std::string line = std::to_string(figures.received) + " received, " + std::to_string(figures.lost) +
                       " lost (" + decimalsText(figures.lostPercent, 1) + " %), " +
                       decimalsText(figures.perMinute, 0) + " a minute";
    if (figures.damaged > 0) {
        line += ", " + std::to_string(figures.damaged) + " broken off";
    }
    PacketFigures.setCaption(line);
}

void ReceivedPackets::clear() {
    log.clear();
    Packets.setRows({});
    PacketLengths.clear();
    nextPlace = 1;
    showFigures();
}

std::string ReceivedPackets::tabbed() const {
    std::string lines;
    auto add = [&](const GridRow& row) {
        for (std::size_t column = number; column <= hex; ++column) {
            lines += (column == number ? "" : "\t") + row[column].text;
        }
        lines += "\r\n";
    };
    if (Packets.picked()) {
        add(Packets.row(*Packets.picked()));
        return lines;
    }
    for (std::size_t row = 0; row < Packets.rowCount(); ++row) {
        add(Packets.row(row));
    }
    return lines;
}

std::string ReceivedPackets::csv() const {
    std::string lines = "Number,Time,Length,Offset (kHz),Text,Hex\r\n";
    for (std::size_t row = Packets.rowCount(); row-- > 0;) {
        for (std::size_t column = number; column <= hex; ++column) {
            lines += (column == number ? "" : ",") + csvField(Packets.cell(row, column).text);
        }
        lines += "\r\n";
    }
    return lines;
}

void ReceivedPackets::save() {
    saveByDialog(
        bench,
        {.mode = FileRequest::Mode::Save,
         .title = "Save Packets",
         .folder = {},
         .startName = filePattern,
         .filter = "Values (*.csv)|*.csv|All files (*.*)|*.*",
         .defaultExtension = "csv"},
        "packets.csv", [this](const std::string&) { return csv(); }, "Please try again");
}

} // namespace zor
