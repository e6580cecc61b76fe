// SPDX-License-Identifier: MIT
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/list_box.h"
#include "elements/options.h"
#include "transcript/recorder.h"
#include "transcript/transcript.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace zor::transcript {

namespace {

/// As few digits as bring the same number back.
std::string number(double value) {
    char digits[32];
    auto end = std::to_chars(std::begin(digits), std::end(digits), static_cast<float>(value)).ptr;
    return {digits, end};
}

std::string whole(double value) {
    return std::to_string(static_cast<long long>(value));
}

std::string entry(const Gesture& gesture) {
    const auto* list = dynamic_cast<const ListBox*>(gesture.element);
    bool byText = list != nullptr && list->find(gesture.text) == static_cast<int>(gesture.first);
    return byText ? asQuoted(gesture.text) : "#" + whole(gesture.first);
}

/// A column by its caption, or by its position where another one bears the same.
std::string column(const Gesture& gesture) {
    const auto* grid = dynamic_cast<const Grid*>(gesture.element);
    auto position = static_cast<std::size_t>(gesture.second);
    const std::string caption =
        grid != nullptr && position < grid->columns().size() ? grid->columns()[position].caption : "";
    bool byCaption = grid != nullptr && grid->column(caption) == position;
    return byCaption ? asQuoted(caption) : "#" + std::to_string(position);
}

/// The statement's name for the kind, and what stands behind the element's name.
struct Row {
    GestureKind kind;
    const char* statement;
    std::string (*rest)(const Gesture&);
};

std::string nothing(const Gesture&) {
    return {};
}
std::string quoted(const Gesture& g) {
    return " " + asQuoted(g.text);
}
std::string first(const Gesture& g) {
    return " " + whole(g.first);
}
std::string rowFromOne(const Gesture& g) {
    return " " + whole(g.first + 1);
}
std::string bothNumbers(const Gesture& g) {
    return " " + number(g.first) + " " + number(g.second);
}

// clang-format off
constexpr Row rows[] = {
    {GestureKind::Click,       "click",       nothing},
    {GestureKind::DoubleClick, "doubleclick", nothing},
    {GestureKind::SecondClick, "doubleclick", nothing},
    {GestureKind::Edit,        "edit",        quoted},
    {GestureKind::Replace,     "put",         [](const Gesture& g) { return quoted(g) + first(g); }},
    {GestureKind::Enter,       "enter",       nothing},
    {GestureKind::Press,       "key",         quoted},
    {GestureKind::PlaceCaret,  "caret",       first},
    {GestureKind::ChooseEntry, "choose",      [](const Gesture& g) { return " " + entry(g); }},
    {GestureKind::ChooseKey,   "choose",      quoted},
    {GestureKind::Slide,       "slide",       first},
    {GestureKind::StepUp,      "up",          nothing},
    {GestureKind::StepDown,    "down",        nothing},
    {GestureKind::TurnPage,    "page",        first},
    {GestureKind::PickRow,     "pick row",    rowFromOne},
    {GestureKind::EditCell,    "cell",        [](const Gesture& g) { return rowFromOne(g) + " " + column(g) + quoted(g); }},
    {GestureKind::ClickCell,   "point",       first},
    {GestureKind::Recall,      "recall",      first},
    {GestureKind::TakeFocus,   "focus",       nothing},
    {GestureKind::Leave,       "leave",       nothing},
    {GestureKind::Activate,    "front",       nothing},
    {GestureKind::Close,       "close",       nothing},
    {GestureKind::Move,        "move",        bothNumbers},
    {GestureKind::Resize,      "size",        bothNumbers},
};
// clang-format on

} // namespace

std::string statementOf(const Gesture& gesture) {
    std::string name = gesture.form->name();
    if (gesture.element != nullptr) {
        name += "." + gesture.element->name();
    }
    if (gesture.kind == GestureKind::Tick) {
        return (gesture.first != 0 ? "tick " : "untick ") + name;
    }
    if (gesture.kind == GestureKind::Click && dynamic_cast<const Option*>(gesture.element) != nullptr) {
        return "choose " + name;
    }
    const auto* row = std::ranges::find(rows, gesture.kind, &Row::kind);
    return std::string(row->statement) + " " + name + row->rest(gesture);
}

} // namespace zor::transcript
