// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"
#include "elements/plot_scale.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace zor {

/// What an axis measures.
struct PlotAxis {
    std::string caption;
    /// Empty for a bare number.
    std::string unit;
    enum class Scale { Linear, Logarithmic };
    Scale scale = Scale::Linear;
    enum class Ticks { Any, WholeNumbers };
    Ticks ticks = Ticks::Any;
    /// Where the axis ends at least, whatever the values are; a logarithmic one never ends at 0.
    std::optional<double> from;
    std::optional<double> to;

    /// "Length (bytes)".
    [[nodiscard]] std::string text() const { return unit.empty() ? caption : caption + " (" + unit + ")"; }
};

/// One value of a plot; without a `y` there is a gap at its place.
struct PlotPoint {
    double x = 0;
    std::optional<double> y;
    friend bool operator==(const PlotPoint&, const PlotPoint&) = default;
};

/// An upright line over the values, with what stands at its head.
struct PlotMark {
    std::string caption;
    double x = 0;
    friend bool operator==(const PlotMark&, const PlotMark&) = default;
};

/// One line of values over a common axis: a title, two axes with units and round ticks, gaps where a value is
/// missing, and the newest so many values only. Its caption is its title. A view draws it; its values can be
/// had as CSV without one.
class Plot : public Element {
  public:
    enum class Style { Line, Bars };

    struct Traits {
        std::string title;
        PlotAxis x;
        PlotAxis y;
        Style style = Style::Line;
        /// How many points are kept.
        std::size_t capacity = 1000;
        /// What a gap stands for ("lost"); a plot that says so marks its gaps, another one just breaks off.
        std::string gapCaption;
    };

    Plot(Form& owner, std::string name, Traits plotTraits);

    [[nodiscard]] const Traits& traits() const { return own; }
    void setAxes(PlotAxis x, PlotAxis y);

    /// Adds the newest point; the oldest goes where there is no more room. A value that is no finite number
    /// is a gap.
    void add(PlotPoint point);
    void setPoints(const std::vector<PlotPoint>& points);
    void clear();
    [[nodiscard]] const std::deque<PlotPoint>& points() const { return held; }

    /// The axes' ends with room for so many marks, from the values that are held. On a logarithmic axis what
    /// is not positive lies at the low end.
    [[nodiscard]] PlotRange xRange(int most) const;
    [[nodiscard]] PlotRange yRange(int most) const;
    [[nodiscard]] std::vector<PlotTick> xTicks(int most) const;
    [[nodiscard]] std::vector<PlotTick> yTicks(int most) const;
    /// How far along an axis a value lies, from 0 to 1; what lies beyond is held at the ends.
    [[nodiscard]] static double share(double value, PlotRange range, PlotAxis::Scale scale);

    /// The value that lies there, the other way round.
    [[nodiscard]] static double valueAt(double share, PlotRange range, PlotAxis::Scale scale);

    [[nodiscard]] const std::vector<PlotMark>& marks() const { return ownMarks; }
    void setMarks(std::vector<PlotMark> marks);

    /// Where the cursor stands; nothing while there is none.
    [[nodiscard]] std::optional<double> cursor() const { return cursorPlace; }
    /// Puts it at the nearest point, or takes it away; no action runs.
    void putCursor(std::optional<double> x);
    /// The point that lies nearest; nullptr if there is none.
    [[nodiscard]] const PlotPoint* nearest(double x) const;

    // The user's door; refused by a plot without a cursor's action.
    /// Puts the cursor at the point nearest to a place.
    bool placeCursor(double x);
    /// Moves it so many points on, or back; from the newest one if there was none.
    bool stepCursor(int points);
    std::function<void()> onCursor;

    /// One line a point under a line with the axes' names, lines ended by CR LF, a decimal point; a gap has
    /// an empty value.
    [[nodiscard]] std::string csv() const;

    /// Set by a view: the plot as the bytes of a PNG picture. Empty without one.
    std::function<std::string()> picture;

  private:
    void keepNewest();
    bool takeCursorTo(std::ptrdiff_t number);

    Traits own;
    std::deque<PlotPoint> held;
    std::vector<PlotMark> ownMarks;
    std::optional<double> cursorPlace;
};

} // namespace zor
