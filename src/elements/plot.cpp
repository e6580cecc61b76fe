// SPDX-License-Identifier: MIT
#include "elements/plot.h"

#include "elements/form.h"
#include "support/csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zor {

namespace {

/// The low end of a logarithmic axis that has no positive value to go by.
constexpr double smallestOfNone = 0.1;

using Scale = PlotAxis::Scale;

PlotPoint checked(PlotPoint point) {
    if (point.y && !std::isfinite(*point.y)) {
        point.y.reset();
    }
    return point;
}

/// From the least to the greatest value; nothing where there is none. A logarithmic axis counts positive
/// values alone.
template <class Value>
std::optional<PlotRange> spanOf(const std::deque<PlotPoint>& points, Scale scale, Value value) {
    std::optional<PlotRange> span;
    for (const PlotPoint& point : points) {
        std::optional<double> number = value(point);
        if (!number || (scale == Scale::Logarithmic && *number <= 0)) {
            continue;
        }
        if (!span) {
            span = PlotRange{*number, *number};
        }
        span->low = std::min(span->low, *number);
        span->high = std::max(span->high, *number);
    }
    return span;
}

/// The values' span, stretched to where the axis ends at least.
PlotRange stretched(std::optional<PlotRange> span, const PlotAxis& axis) {
    if (!span) {
        bool decades = axis.scale == Scale::Logarithmic;
        double low = axis.from.value_or(decades ? smallestOfNone : 0);
        return {low, std::max(axis.to.value_or(decades ? low : low + 1), low)};
    }
    return {std::min(span->low, axis.from.value_or(span->low)),
            std::max(span->high, axis.to.value_or(span->high))};
}

PlotRange endsOf(const std::optional<PlotRange>& span, const PlotAxis& axis, int most) {
    PlotRange range = stretched(span, axis);
    return axis.scale == Scale::Logarithmic
               ? decadeRange(range, smallestOfNone)
               : roundedRange(range, most, axis.ticks == PlotAxis::Ticks::WholeNumbers);
}

std::vector<PlotTick> ticksOf(PlotRange range, const PlotAxis& axis, int most) {
    return axis.scale == Scale::Logarithmic
               ? decadeTicks(range, most)
               : roundTicks(range, most, axis.ticks == PlotAxis::Ticks::WholeNumbers);
}

std::string number(double value) {
    std::array<char, 40> text{};
    auto end = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end.ptr};
}

} // namespace

Plot::Plot(Form& owner, std::string name, Traits plotTraits)
    : Element(owner, std::move(name))
    , own(std::move(plotTraits)) {
    setCaption(own.title);
}

void Plot::setAxes(PlotAxis x, PlotAxis y) {
    own.x = std::move(x);
    own.y = std::move(y);
    changed.emit();
}

void Plot::add(PlotPoint point) {
    if (!std::isfinite(point.x)) {
        return;
    }
    held.push_back(checked(point));
    keepNewest();
    changed.emit();
}

void Plot::setPoints(const std::vector<PlotPoint>& points) {
    held.clear();
    for (const PlotPoint& point : points) {
        if (std::isfinite(point.x)) {
            held.push_back(checked(point));
        }
    }
    keepNewest();
    changed.emit();
}

void Plot::clear() {
    if (!held.empty()) {
        held.clear();
        changed.emit();
    }
}

void Plot::keepNewest() {
    while (held.size() > own.capacity) {
        held.pop_front();
    }
}

PlotRange Plot::xRange(int most) const {
    auto span =
        spanOf(held, own.x.scale, [](const PlotPoint& point) { return std::optional<double>(point.x); });
    if (own.x.scale == Scale::Linear) {
        // The axis runs from the oldest to the newest value: room before and behind them would say nothing.
        PlotRange range = stretched(span, own.x);
        if (own.style == Style::Bars) {
            return {range.low - 0.5, range.high + 0.5};
        }
        return range.high > range.low ? range : roundedRange(range, most);
    }
    return endsOf(span, own.x, most);
}

PlotRange Plot::yRange(int most) const {
    return endsOf(spanOf(held, own.y.scale, [](const PlotPoint& point) { return point.y; }), own.y, most);
}

std::vector<PlotTick> Plot::xTicks(int most) const {
    return ticksOf(xRange(most), own.x, most);
}

std::vector<PlotTick> Plot::yTicks(int most) const {
    return ticksOf(yRange(most), own.y, most);
}

double Plot::share(double value, PlotRange range, Scale scale) {
    double place = 0;
    if (scale == Scale::Logarithmic) {
        place = value > 0 ? std::log(value / range.low) / std::log(range.high / range.low) : 0;
    } else {
        place = (value - range.low) / (range.high - range.low);
    }
    return std::isfinite(place) ? std::clamp(place, 0.0, 1.0) : 0;
}

double Plot::valueAt(double share, PlotRange range, Scale scale) {
    double place = std::clamp(share, 0.0, 1.0);
    return scale == Scale::Logarithmic ? range.low * std::pow(range.high / range.low, place)
                                       : range.low + place * (range.high - range.low);
}

void Plot::setMarks(std::vector<PlotMark> marks) {
    if (marks != ownMarks) {
        ownMarks = std::move(marks);
        changed.emit();
    }
}

const PlotPoint* Plot::nearest(double x) const {
    auto distance = [x](const PlotPoint& point) { return std::abs(point.x - x); };
    auto found = std::min_element(held.begin(), held.end(), [&](const PlotPoint& a, const PlotPoint& b) {
        return distance(a) < distance(b);
    });
    return found == held.end() ? nullptr : &*found;
}

void Plot::putCursor(std::optional<double> x) {
    const PlotPoint* point = x ? nearest(*x) : nullptr;
    std::optional<double> place = point != nullptr ? std::optional(point->x) : std::nullopt;
    if (place != cursorPlace) {
        cursorPlace = place;
        changed.emit();
    }
}

bool Plot::takeCursorTo(std::ptrdiff_t number) {
    if (!onCursor || held.empty() || !usable()) {
        return false;
    }
    // No gesture of its own: whoever hears of it brings the place into a field, and that one is told.
    form().perform([this, number] {
        auto last = static_cast<std::ptrdiff_t>(held.size()) - 1;
        auto place = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(number, 0, last));
        cursorPlace = held[place].x;
        changed.emit();
        onCursor();
    });
    return true;
}

bool Plot::placeCursor(double x) {
    const PlotPoint* point = nearest(x);
    if (point == nullptr) {
        return false;
    }
    auto found = std::find_if(held.begin(), held.end(),
                              [point](const PlotPoint& candidate) { return &candidate == point; });
    return takeCursorTo(found - held.begin());
}

bool Plot::stepCursor(int points) {
    auto last = static_cast<std::ptrdiff_t>(held.size()) - 1;
    if (!cursorPlace) {
        return takeCursorTo(last);
    }
    auto at = std::find_if(held.begin(), held.end(),
                           [this](const PlotPoint& point) { return point.x >= *cursorPlace; });
    return takeCursorTo(at - held.begin() + points);
}

std::string Plot::csv() const {
    std::string text = csvLine({own.x.text(), own.y.text()});
    for (const PlotPoint& point : held) {
        text += number(point.x) + "," + (point.y ? number(*point.y) : std::string()) + "\r\n";
    }
    return text;
}

} // namespace zor
