// SPDX-License-Identifier: MIT
// What views are put together with. A view reads as its window looks:
//
//     QWidget* crystalGroup(ChipPanel& p) {
//         return group("Crystal", {
//             line(option(p.StdCrystal), option(p.NonStdCrystal), stretch()),
//             line(labelled("Frequency", field(p.Crystalfreq), "MHz"), labelled("Load", list(p.Cxtal, 8))),
//         });
//     }
//     QWidget* opalView(Form& form) {
//         auto& p = static_cast<OpalV2&>(form);
//         return panelWindow(p, columns({crystalGroup(p), autoPowerGroup(p), supplyGroup(p)},
//                                       {frequencyGroup(p), autoModulationGroup(p), revisionGroup(p)}));
//     }
//
// Everything is 8 px apart, groups have 10 px inside. The first captions of a group's lines stand under one
// another in one column, the fields in the next; units follow their fields in a softer colour.
#pragma once

#include "desktop/widgets/binders.h"

#include <QString>

#include <utility>
#include <vector>

class QLabel;
class QLayout;

namespace zor {

inline constexpr int spaceBetween = 8;
inline constexpr int spaceInside = 10;

/// One place in a line: a widget, perhaps with a caption before and a unit behind it.
struct Cell {
    /// A bare widget; nullptr is room that stretches.
    Cell(QWidget* only)
        : widget(only) {}
    Cell(QWidget* captionLabel, QWidget* content, QWidget* unitLabel)
        : caption(captionLabel)
        , widget(content)
        , unit(unitLabel) {}

    QWidget* caption = nullptr;
    QWidget* widget = nullptr;
    QWidget* unit = nullptr;
};

/// A widget with its caption and unit, which are shown, hidden and greyed with it. A mnemonic in the caption
/// leads to the widget.
[[nodiscard]] Cell labelled(const QString& caption, QWidget* widget, const QString& unit = {});
/// The same with a caption that is an element of its own.
[[nodiscard]] Cell labelled(Button& caption, QWidget* widget, const QString& unit = {});
/// Room that stretches.
[[nodiscard]] inline Cell stretch() {
    return {nullptr};
}
/// A remark in the softer colour.
[[nodiscard]] QWidget* remark(const QString& text);
/// A plain caption that is no element.
[[nodiscard]] QWidget* caption(const QString& text);

/// One line of a group or window.
struct Line {
    Line(QWidget* only)
        : cells{Cell(only)} {}
    Line(Cell only)
        : cells{only} {}
    explicit Line(std::vector<Cell> all)
        : cells(std::move(all)) {}

    std::vector<Cell> cells;
};
using Lines = std::vector<Line>;

template <class... Cells>
[[nodiscard]] Line line(Cells... cells) {
    return Line(std::vector<Cell>{Cell(cells)...});
}

/// A titled group of lines. The line at `grows` takes the height that is left over; -1 leaves it at the
/// bottom.
[[nodiscard]] QWidget* group(const QString& title, Lines lines, int grows = -1);
/// A group that is an element: hidden and greyed with what stands in it; its caption is the title.
[[nodiscard]] QWidget* group(Frame& frame, Lines lines);
/// Lines without a title or frame.
[[nodiscard]] QWidget* plain(Lines lines);
/// An element's lines without a title or frame around them.
/// The line at `grows` takes the height that is left over; -1 leaves it at the bottom.
[[nodiscard]] QWidget* plain(Frame& frame, Lines lines, int grows = -1);
/// Widgets under one another, each as wide as the widest. Room that is left over goes to the bottom.
[[nodiscard]] QWidget* column(const std::vector<QWidget*>& widgets);
/// Widgets side by side, their tops level. The one at `grows` takes the room that is left over; -1 shares it.
[[nodiscard]] QWidget* across(std::vector<QWidget*> widgets, int grows = -1);
/// Widgets in so many columns, row by row, one under the other.
[[nodiscard]] QWidget* grid(int columns, std::vector<QWidget*> widgets);

/// Captions on the left and words on the right, under one another: the column that the eye runs down.
[[nodiscard]] QWidget* wordsGroup(const QString& title,
                                  const std::vector<std::pair<QString, QWidget*>>& words);

/// A text of any length: it folds rather than widens its window.
[[nodiscard]] QWidget* folding(Label& element, Tone tone = Tone::Normal);

/// For what comes and goes: its room stays, so that nothing moves with it.
[[nodiscard]] QWidget* keepRoom(QWidget* widget);

/// The whole content of a window. The line at `grows` takes the height that is left over; -1 leaves it at
/// the bottom.
[[nodiscard]] QWidget* window(Lines lines, int grows = -1);

} // namespace zor
