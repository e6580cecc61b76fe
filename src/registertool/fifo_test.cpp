// SPDX-License-Identifier: MIT
#include "registertool/fifo_test.h"

#include "link/number_reading.h"
#include "registertool/register_lines.h"
#include "registertool/spi.h"
#include "support/numbers.h"

#include <cmath>
#include <cstdlib>

namespace zor {

namespace {

constexpr const char* noCount = "0";
constexpr const char* noRate = "0.00E+00";
// The select line of receivers' and transceivers' FIFOs is the board's channel 3.
constexpr const char* selectFifo = "L3\r";
constexpr const char* releaseFifo = "H3\r";
constexpr std::size_t bitsOfAByte = 8;
constexpr double wholeProgress = 100;
constexpr int divisionByZero = 11;

/// Bits that differ as characters; without anything to compare with, all of them do.
int differingBits(const std::string& hex, const StoredValue& expected) {
    if (!expected) {
        return bitsOfAByte;
    }
    std::string found = HexToBinary(hex);
    std::string wanted = HexToBinary(*expected);
    int errors = 0;
    for (std::size_t bit = 0; bit < bitsOfAByte; ++bit) {
        errors += found[bit] != wanted[bit] ? 1 : 0;
    }
    return errors;
}

void grow(TextField& counter, double amount) {
    counter.setText(numberText(numericPrefix(counter.text()) + amount));
}

void showRate(TextField& rate, const TextField& part, const TextField& whole) {
    double divisor = numericPrefix(whole.text());
    if (divisor == 0) {
        throw ToolError(divisionByZero, "Division by zero");
    }
    rate.setText(rateText(numericPrefix(part.text()) / divisor));
}

} // namespace

std::string rateText(double rate) {
    if (rate == 0 || !std::isfinite(rate)) {
        return noRate;
    }
    double size = std::abs(rate);
    int exponent = static_cast<int>(std::floor(std::log10(size)));
    int hundredths = roundToInt(roundToDecimals(size / std::pow(10.0, exponent), 2) * 100);
    if (hundredths >= 1000) {
        hundredths /= 10;
        ++exponent;
    } else if (hundredths < 100) {
        // The logarithm of a power of ten may fall just beside its whole number.
        hundredths = roundToInt(roundToDecimals(size / std::pow(10.0, --exponent), 2) * 100);
    }
    std::string digits = std::to_string(hundredths);
    std::string power = std::to_string(std::abs(exponent));
    return (rate < 0 ? "-" : "") + digits.substr(0, 1) + "." + digits.substr(1) +
           (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

FifoTest::FifoTest(SPI& ownTool)
    : FifoFrame(ownTool, "FifoFrame", "FIFO Read / Write")
    , WriteTXff(ownTool, "WriteTXff", "Write")
    , ReadRXff(ownTool, "ReadRXff", "Read")
    , ResetBER(ownTool, "ResetBER", "Reset")
    , PacketsLabel(ownTool, "PacketsLabel", "Packets:")
    , Packets(ownTool, "Packets", noCount)
    , PacketLostLabel(ownTool, "PacketLostLabel", "Lost:")
    , PacketLost(ownTool, "PacketLost", noCount)
    , PERLabel(ownTool, "PERLabel", "PER:")
    , PER(ownTool, "PER", noRate)
    , ErrorsLabel(ownTool, "ErrorsLabel", "Bit errors:")
    , Errors(ownTool, "Errors", noCount)
    , DatabitsLabel(ownTool, "DatabitsLabel", "Databits:")
    , Databits(ownTool, "Databits", noCount)
    , BERLabel(ownTool, "BERLabel", "BER:")
    , BER(ownTool, "BER", noRate)
    , tool(ownTool) {
    placeAndWire();
    tellReadingsOf(tool.bench, {&Packets, &PacketLost, &Errors, &Databits});
}

void FifoTest::placeAndWire() {
    for (Element* element : std::initializer_list<Element*>{
             &WriteTXff, &ReadRXff, &ResetBER, &PacketsLabel, &Packets, &PacketLostLabel, &PacketLost,
             &PERLabel, &PER, &ErrorsLabel, &Errors, &DatabitsLabel, &Databits, &BERLabel, &BER}) {
        element->setContainer(&FifoFrame);
    }
    WriteTXff.setTip("Writes the transmit FIFO's bytes to the chip");
    ReadRXff.setTip("Reads the receive FIFO and compares it with what is expected");
    ResetBER.setTip("Sets all counters to 0");
    PER.setTip("Packet error rate: lost packets of all packets");
    BER.setTip("Bit error rate: differing bits of all bits");
    WriteTXff.onClick = [this] { tool.whenFree([this] { WriteTXff_Click(); }); };
    ReadRXff.onClick = [this] { tool.whenFree([this] { ReadRXff_Click(); }); };
    ResetBER.onClick = [this] { ResetBER_Click(); };
    tool.fifo.TXFIFO.onCellEdit = [this](std::size_t row, std::size_t, const std::string& text) {
        tool.guarded([&] { tool.fifo.store(FifoPage::Column::Hex, row, text); });
    };
    tool.fifo.RXFIFO.onCellEdit = [this](std::size_t row, std::size_t, const std::string& text) {
        tool.guarded([&] { tool.fifo.store(FifoPage::Column::Expected, row, text); });
    };
}

void FifoTest::ResetBER_Click() {
    for (TextField* counter : {&Packets, &PacketLost, &Databits, &Errors}) {
        counter->setText(noCount);
    }
    BER.setText(noRate);
    PER.setText(noRate);
    tool.rates.clear();
}

void FifoTest::showProgress(std::size_t done, int size) {
    tool.whole.ProgressBar1.putValue(roundToInt(static_cast<double>(done) * wholeProgress / size));
}

std::optional<bool> FifoTest::begin(int size, LongAction& busy) {
    tool.report.begin();
    if (size < 1) {
        return std::nullopt;
    }
    tool.whole.ProgressBar1.putValue(0);
    const bool bySelectLine = tool.fifo.FifoSelectLine;
    if (bySelectLine && !busy.send(selectFifo)) {
        return std::nullopt;
    }
    return bySelectLine;
}

void FifoTest::end(bool bySelectLine, LongAction& busy) {
    // A run that was stopped or whose window was closed leaves no FIFO selected either.
    if (bySelectLine && !busy.send(releaseFifo) && tool.bench.connect->isOpen()) {
        (void)tool.send(releaseFifo);
    }
}

void FifoTest::WriteTXff_Click() {
    LongAction busy(tool);
    const int size = tool.fifo.TxSize;
    std::optional<bool> bySelectLine = begin(size, busy);
    if (!bySelectLine) {
        return;
    }
    std::size_t row = 0;
    for (; row < static_cast<std::size_t>(size) && writeRow(row, busy); ++row) {
        showProgress(row + 1, size);
    }
    if (row == static_cast<std::size_t>(size)) {
        tool.report.end("transmit FIFO written");
    }
    end(*bySelectLine, busy);
}

bool FifoTest::writeRow(std::size_t row, LongAction& busy) {
    if (!busy.goesOn()) {
        return false;
    }
    const FifoPage& fifo = tool.fifo;
    tool.report.at("writing the transmit FIFO, byte", row + 1, static_cast<std::size_t>(fifo.TxSize));
    std::string hex = fifo.value(FifoPage::Column::Hex, row).value_or(std::string());
    return busy.send(fifo.FifoSelectLine ? "WS " + hex + "\r" : writeLine(fifo.TxAddress, hex));
}

void FifoTest::ReadRXff_Click() {
    LongAction busy(tool);
    const int size = tool.fifo.RxSize;
    std::optional<bool> bySelectLine = begin(size, busy);
    if (!bySelectLine) {
        return;
    }
    int packetErrors = 0;
    std::size_t row = 0;
    for (; row < static_cast<std::size_t>(size); ++row) {
        std::optional<int> rowErrors = readRow(row, busy);
        if (!rowErrors) {
            break;
        }
        packetErrors += *rowErrors;
        showProgress(row + 1, size);
    }
    // A packet that was not read to its end is none.
    if (row == static_cast<std::size_t>(size)) {
        countRead(packetErrors);
        tool.report.end("receive FIFO read", packetErrors == 0
                                                 ? "no bit differs"
                                                 : std::to_string(packetErrors) +
                                                       (packetErrors == 1 ? " bit differs" : " bits differ"));
    }
    end(*bySelectLine, busy);
}

std::optional<int> FifoTest::readRow(std::size_t row, LongAction& busy) {
    tool.report.at("reading the receive FIFO, byte", row + 1, static_cast<std::size_t>(tool.fifo.RxSize));
    if (!busy.send(tool.fifo.FifoSelectLine ? "RS \r" : tableReadLine(tool.fifo.RxAddress))) {
        return std::nullopt;
    }
    std::string hex = answeredByte(tool.bench.link.Last15);
    int errors = differingBits(hex, tool.fifo.value(FifoPage::Column::Expected, row));
    tool.fifo.storeRead(row, hex, errors == 0 ? std::string() : std::to_string(errors));
    return errors;
}

void FifoTest::countRead(int packetErrors) {
    try {
        grow(Packets, 1);
        grow(PacketLost, packetErrors > 0 ? 1 : 0);
        showRate(PER, PacketLost, Packets);
        grow(Errors, packetErrors);
        grow(Databits, static_cast<double>(bitsOfAByte) * tool.fifo.RxSize);
        showRate(BER, Errors, Databits);
        tool.rates.add();
    } catch (const ToolError& error) {
        tool.bench.tellError(error, productTitle);
    }
}

} // namespace zor
