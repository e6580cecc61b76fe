// SPDX-License-Identifier: MIT
#include "registertool/error_rates.h"

#include "link/plot_file.h"
#include "registertool/spi.h"
#include "support/numbers.h"

namespace zor {

namespace {

enum Kind { BitErrors, PacketErrors };
enum Axis { OverReads, OverTime };

const char* const kinds[] = {"Bit errors (BER)", "Packet errors (PER)"};
const char* const axes[] = {"over reads", "over time"};

PlotAxis across(int axis) {
    return axis == OverTime
               ? PlotAxis{.caption = "Time", .unit = "s"}
               : PlotAxis{.caption = "Reads", .unit = "", .ticks = PlotAxis::Ticks::WholeNumbers};
}

PlotAxis up(int kind, bool logarithmic) {
    PlotAxis axis = kind == PacketErrors ? PlotAxis{.caption = "Packet error rate", .unit = "lost per packet"}
                                         : PlotAxis{.caption = "Bit error rate", .unit = "errors per bit"};
    axis.scale = logarithmic ? PlotAxis::Scale::Logarithmic : PlotAxis::Scale::Linear;
    return axis;
}

double rateOf(const TextField& part, const TextField& whole) {
    double divisor = numericPrefix(whole.text());
    return divisor == 0 ? 0 : numericPrefix(part.text()) / divisor;
}

} // namespace

ErrorRates::ErrorRates(SPI& ownTool)
    : RatePlot(ownTool, "RatePlot",
               {.title = "Error rates",
                .x = across(OverReads),
                .y = up(BitErrors, true),
                .style = Plot::Style::Line,
                .capacity = kept,
                .gapCaption = {}})
    , RateKind(ownTool, "RateKind", {std::begin(kinds), std::end(kinds)}, kinds[BitErrors])
    , RateAxis(ownTool, "RateAxis", {std::begin(axes), std::end(axes)}, axes[OverReads])
    , RateLogScale(ownTool, "RateLogScale", "Log scale", true)
    , SaveRates(ownTool, "SaveRates", "Save...")
    , tool(ownTool) {
    RatePlot.setTip("The rate after each of the last 1,000 reads, as the counters had it");
    RateKind.setTip("Which rate the plot shows");
    RateAxis.setTip("Over the reads' numbers, or over the time since the first one");
    RateLogScale.setTip("A decade is as high as the next one; no error at all lies at the foot");
    SaveRates.setTip("Saves the plot as a picture, or its values (CSV)");
    RateKind.onChange = [this] { show(); };
    RateAxis.onChange = [this] { show(); };
    RateLogScale.onChange = [this] { show(); };
    SaveRates.onClick = [this] { savePlot(tool.bench, RatePlot, "Save Error Rates", "error-rates.png"); };
}

void ErrorRates::add() {
    const FifoTest& test = tool.fifoTest;
    EventLoop::Duration now = tool.bench.platform.loop.now();
    if (count == 0) {
        begun = now;
    }
    count += 1;
    reads.push_back({count, std::chrono::duration<double>(now - begun).count(),
                     rateOf(test.Errors, test.Databits), rateOf(test.PacketLost, test.Packets)});
    if (reads.size() > kept) {
        reads.pop_front();
    }
    RatePlot.add(pointOf(reads.back()));
}

void ErrorRates::clear() {
    reads.clear();
    count = 0;
    RatePlot.clear();
}

PlotPoint ErrorRates::pointOf(const Read& read) const {
    return {RateAxis.position() == OverTime ? read.seconds : read.number,
            RateKind.position() == PacketErrors ? read.packetErrorRate : read.bitErrorRate};
}

void ErrorRates::show() {
    RatePlot.setAxes(across(RateAxis.position()), up(RateKind.position(), RateLogScale.ticked()));
    std::vector<PlotPoint> points;
    points.reserve(reads.size());
    for (const Read& read : reads) {
        points.push_back(pointOf(read));
    }
    RatePlot.setPoints(points);
}

} // namespace zor
