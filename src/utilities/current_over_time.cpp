// SPDX-License-Identifier: MIT
#include "utilities/current_over_time.h"

#include "link/number_reading.h"
#include "link/plot_file.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

constexpr const char* showCaption = "Show Plot";
constexpr const char* hideCaption = "Hide Plot";
constexpr const char* keptNote = "At most 4,096 stretches; older readings are merged, none dropped.";

Plot::Traits plotTraits() {
    // One axis for both ranges of the converter; a reading of 0 lies at its low end.
    return {.title = "Current over time",
            .x = {.caption = "Time", .unit = "s"},
            .y = {.caption = "Current",
                  .unit = "uA",
                  .scale = PlotAxis::Scale::Logarithmic,
                  .from = 10.0,
                  .to = 10'000.0},
            // The trace bounds itself; the plot only follows.
            .capacity = CurrentTrace::capacity + 1};
}

std::string secondsText(double seconds) {
    return numberText(roundToDecimals(seconds, 2));
}

std::string rounded(double value, const char* unit) {
    return numberText(roundToDecimals(value, 3)) + " " + unit;
}

PlotPoint pointOf(const CurrentStretch& stretch) {
    return {stretch.begin, stretch.measured ? std::optional(stretch.mean) : std::nullopt};
}

} // namespace

std::string currentText(double microamps) {
    return microamps < 1000 ? rounded(microamps, "uA") : rounded(microamps / 1000, "mA");
}

std::string chargeText(double microampSeconds) {
    constexpr double milliampHour = 3.6e6; // uAs
    return microampSeconds >= milliampHour ? rounded(microampSeconds / milliampHour, "mAh")
           : microampSeconds >= 1000       ? rounded(microampSeconds / 1000, "mAs")
                                           : rounded(microampSeconds, "uAs");
}

CurrentOverTime::CurrentOverTime(Form& owner, Bench& ownBench)
    : ShowPlot(owner, "ShowPlot", showCaption)
    , PlotArea(owner, "PlotArea")
    , CurrentPlot(owner, "CurrentPlot", plotTraits())
    , CursorAt(owner, "CursorAt")
    , CursorCurrent(owner, "CursorCurrent", "", TextField::Access::ReadOnly)
    , SetMarkA(owner, "SetMarkA", "Mark A")
    , SetMarkB(owner, "SetMarkB", "Mark B")
    , MarkA(owner, "MarkA")
    , MarkB(owner, "MarkB")
    , MeanCurrent(owner, "MeanCurrent", "", TextField::Access::ReadOnly)
    , LowestCurrent(owner, "LowestCurrent", "", TextField::Access::ReadOnly)
    , HighestCurrent(owner, "HighestCurrent", "", TextField::Access::ReadOnly)
    , Charge(owner, "Charge", "", TextField::Access::ReadOnly)
    , SavePlot(owner, "SavePlot", "Save Plot...")
    , ClearPlot(owner, "ClearPlot", "Clear")
    , PlotNote(owner, "PlotNote", keptNote)
    , form(owner)
    , bench(ownBench) {
    for (Element* element : {static_cast<Element*>(&CurrentPlot), static_cast<Element*>(&CursorAt),
                             static_cast<Element*>(&CursorCurrent), static_cast<Element*>(&SetMarkA),
                             static_cast<Element*>(&SetMarkB), static_cast<Element*>(&MarkA),
                             static_cast<Element*>(&MarkB), static_cast<Element*>(&MeanCurrent),
                             static_cast<Element*>(&LowestCurrent), static_cast<Element*>(&HighestCurrent),
                             static_cast<Element*>(&Charge), static_cast<Element*>(&SavePlot),
                             static_cast<Element*>(&ClearPlot), static_cast<Element*>(&PlotNote)}) {
        element->setContainer(&PlotArea);
    }
    PlotArea.setVisible(false);
    wire();
}

void CurrentOverTime::wire() {
    ShowPlot.setTip("Folds the plot of the continuous readings out or in");
    CurrentPlot.setTip("The continuous readings; a click or the arrow keys move the cursor");
    CursorAt.setTip("Where the cursor stands, in s; empty takes it away");
    SetMarkA.setTip("Puts the mark where the cursor stands");
    SetMarkB.setTip(SetMarkA.tip());
    MarkA.setTip("From here on the figures count, in s; without both marks all readings count");
    MarkB.setTip("As far as here the figures count, in s; without both marks all readings count");
    MeanCurrent.setTip("Mean over the time that readings stand for, between the marks");
    Charge.setTip("What the chip drew between the marks");
    SavePlot.setTip("Saves the plot as a picture, or its values as CSV");
    ClearPlot.setTip("Forgets the readings; time counts from the next one");
    ShowPlot.onClick = [this] { fold(!PlotArea.visible()); };
    CurrentPlot.onCursor = [this] { CursorAt.type(secondsText(CurrentPlot.cursor().value_or(0))); };
    CursorAt.onCommit = [this] { commitCursor(); };
    SetMarkA.onClick = [this] { setMark(MarkA); };
    SetMarkB.onClick = [this] { setMark(MarkB); };
    MarkA.onCommit = [this] { commitMark(MarkA); };
    MarkB.onCommit = [this] { commitMark(MarkB); };
    tellReadingsOf(bench, {&CursorAt, &MarkA, &MarkB});
    SavePlot.onClick = [this] { savePlot(bench, CurrentPlot, "Save Current", "current.png"); };
    ClearPlot.onClick = [this] { clear(); };
}

void CurrentOverTime::fold(bool shown) {
    PlotArea.setVisible(shown);
    ShowPlot.setCaption(shown ? hideCaption : showCaption);
    if (shown) {
        foldedExtent = form.extent();
        form.setExtent({std::max(foldedExtent.height, openExtent.height),
                        std::max(foldedExtent.width, openExtent.width)});
    } else {
        form.setExtent(foldedExtent);
    }
}

double CurrentOverTime::secondsNow() {
    EventLoop::Duration now = bench.platform.loop.now();
    if (!start) {
        start = now;
    }
    // To the millisecond: the line is no faster.
    auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(now - *start);
    return static_cast<double>(whole.count()) / 1000;
}

void CurrentOverTime::take(const std::optional<CurrentReading>& reading) {
    if (!reading || !reading->answered) {
        pause();
        return;
    }
    std::size_t before = recorded.stretches().size();
    recorded.add(secondsNow(), reading->microamps());
    if (recorded.stretches().size() > before) {
        CurrentPlot.add(pointOf(recorded.stretches().back()));
    } else {
        showPoints();
    }
    showFigures();
}

void CurrentOverTime::pause() {
    if (!start) {
        return;
    }
    recorded.addGap(secondsNow());
    showPoints();
    showFigures();
}

void CurrentOverTime::showPoints() {
    std::vector<PlotPoint> points;
    points.reserve(recorded.stretches().size());
    for (const CurrentStretch& stretch : recorded.stretches()) {
        points.push_back(pointOf(stretch));
    }
    CurrentPlot.setPoints(points);
}

void CurrentOverTime::cursorMoved() {
    std::optional<double> place = CurrentPlot.cursor();
    CursorAt.setText(place ? secondsText(*place) : std::string());
    const CurrentStretch* stretch = place ? recorded.at(*place) : nullptr;
    CursorCurrent.setText(stretch == nullptr   ? std::string()
                          : !stretch->measured ? "no reading"
                                               : currentText(stretch->mean));
}

void CurrentOverTime::commitCursor() {
    CurrentPlot.putCursor(readNumericPrefix(CursorAt.text()));
    cursorMoved();
}

void CurrentOverTime::setMark(TextField& mark) {
    mark.setText(CursorAt.text());
    commitMark(mark);
}

void CurrentOverTime::commitMark(TextField& mark) {
    std::optional<double> seconds = readNumericPrefix(mark.text());
    mark.setText(seconds ? secondsText(*seconds) : std::string());
    showFigures();
}

void CurrentOverTime::showFigures() {
    std::vector<PlotMark> marks;
    std::optional<double> a = readNumericPrefix(MarkA.text());
    std::optional<double> b = readNumericPrefix(MarkB.text());
    if (a) {
        marks.push_back({"A", *a});
    }
    if (b) {
        marks.push_back({"B", *b});
    }
    CurrentPlot.setMarks(std::move(marks));
    std::optional<CurrentFigures> figures;
    if (const auto& all = recorded.stretches(); !all.empty()) {
        bool both = a && b;
        figures = recorded.between(both ? *a : all.front().begin, both ? *b : all.back().end);
    }
    MeanCurrent.setText(figures ? currentText(figures->mean) : std::string());
    LowestCurrent.setText(figures ? currentText(figures->lowest) : std::string());
    HighestCurrent.setText(figures ? currentText(figures->highest) : std::string());
    Charge.setText(figures ? chargeText(figures->charge) : std::string());
}

void CurrentOverTime::clear() {
    recorded.clear();
    start.reset();
    CurrentPlot.clear();
    CurrentPlot.putCursor(std::nullopt);
    for (TextField* field : {&CursorAt, &CursorCurrent, &MarkA, &MarkB}) {
        field->setText("");
    }
    showFigures();
}

} // namespace zor
