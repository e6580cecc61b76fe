// SPDX-License-Identifier: MIT
#include "transcript/statements.h"

#include "elements/cell_picture.h"
#include "elements/document.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/kept_text.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/monitor.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"

#include <algorithm>
#include <limits>

namespace zor::transcript {

namespace {

/// A gesture that came to nothing is one that a user could not make.
void demand(bool done, const Arguments& arguments) {
    if (!done) {
        throw Refused("expected a user to reach " + arguments.text(0) + ", found it out of reach");
    }
}

/// The element as the kind that the gesture needs: an unfit gesture is a mistake, not a refusal.
template <class Kind>
Kind& as(Scene& scene, const Arguments& arguments, const char* kind) {
    Element& element = scene.element(arguments.text(0));
    auto* fitting = dynamic_cast<Kind*>(&element);
    if (fitting == nullptr) {
        throw Failure("expected " + std::string(kind) + ", but " + arguments.text(0) + " is none");
    }
    return *fitting;
}

bool namesWindow(const Arguments& arguments) {
    return arguments.text(0).find('.') == std::string::npos;
}

void click(Scene& scene, const Arguments& arguments) {
    demand(namesWindow(arguments) ? scene.window(arguments.text(0)).userClick()
                                  : scene.element(arguments.text(0)).click(),
           arguments);
}

void doubleclick(Scene& scene, const Arguments& arguments) {
    demand(namesWindow(arguments) ? scene.window(arguments.text(0)).userDoubleClick()
                                  : scene.element(arguments.text(0)).doubleClick(),
           arguments);
}

/// A field, or a text that takes its keys one by one.
Element& typedInto(Scene& scene, const Arguments& arguments) {
    Element& element = scene.element(arguments.text(0));
    if (dynamic_cast<Monitor*>(&element) == nullptr) {
        as<TextField>(scene, arguments, "a field that takes keys");
    }
    return element;
}

void type(Scene& scene, const Arguments& arguments) {
    demand(typedInto(scene, arguments).type(arguments.text(1)), arguments);
}

void edit(Scene& scene, const Arguments& arguments) {
    demand(typedInto(scene, arguments).edit(arguments.text(1)), arguments);
}

void key(Scene& scene, const Arguments& arguments) {
    typedInto(scene, arguments);
    for (char c : arguments.text(1)) {
        demand(scene.element(arguments.text(0)).press(c), arguments);
    }
}

/// The whole text at once, as a paste puts it there.
void put(Scene& scene, const Arguments& arguments) {
    auto& field = as<TextField>(scene, arguments, "a text field");
    const std::string& text = arguments.text(1);
    int last = static_cast<int>(text.size());
    int position = arguments.count() == 3 ? arguments.integer(2, 0, last) : last;
    demand(field.replace(text, static_cast<std::size_t>(position)), arguments);
}

void point(Scene& scene, const Arguments& arguments) {
    auto& picture = as<CellPicture>(scene, arguments, "a picture of cells");
    demand(picture.clickCell(static_cast<std::size_t>(arguments.integer(1, 0, 1'000'000))), arguments);
}

void recall(Scene& scene, const Arguments& arguments) {
    demand(as<KeptText>(scene, arguments, "a text that keeps its lines")
               .recall(arguments.integer(1, -1000, 1000)),
           arguments);
}

void caret(Scene& scene, const Arguments& arguments) {
    auto& field = as<TextField>(scene, arguments, "a text field");
    int last = static_cast<int>(field.text().size());
    demand(field.placeCaret(static_cast<std::size_t>(arguments.integer(1, 0, last))), arguments);
}

void chooseEntry(Scene& scene, const Arguments& arguments) {
    const std::string& entry = arguments.text(1);
    if (auto* button = dynamic_cast<BarButton*>(&scene.element(arguments.text(0)))) {
        auto has = [&entry](const DropDownEntry& candidate) { return candidate.key == entry; };
        if (std::none_of(button->entries().begin(), button->entries().end(), has)) {
            throw Failure("there is no entry " + asQuoted(entry) + " at " + arguments.text(0));
        }
        demand(button->chooseText(entry), arguments);
        return;
    }
    if (auto* document = dynamic_cast<Document*>(&scene.element(arguments.text(0)))) {
        demand(document->chooseText(entry), arguments);
        return;
    }
    auto& list = as<ListBox>(scene, arguments, "a list");
    if (list.find(entry) < 0) {
        throw Failure("there is no entry " + asQuoted(entry) + " in " + arguments.text(0));
    }
    demand(list.chooseText(entry), arguments);
}

void choose(Scene& scene, const Arguments& arguments) {
    if (arguments.count() == 1) {
        demand(as<Option>(scene, arguments, "an option").click(), arguments);
        return;
    }
    // A quoted text is an entry, even one that begins with the mark of a position.
    const Token& choice = arguments.whole().tokens.back();
    if (choice.quoted || !choice.text.starts_with('#')) {
        chooseEntry(scene, arguments);
        return;
    }
    auto& list = as<ListBox>(scene, arguments, "a list");
    Statement position{0, {{"choose", false}, {choice.text.substr(1), false}}, {}};
    int last = static_cast<int>(list.entries().size()) - 1;
    demand(list.choosePosition(Arguments(position).integer(0, 0, last)), arguments);
}

void slide(Scene& scene, const Arguments& arguments) {
    auto& slider = as<Slider>(scene, arguments, "a slider");
    demand(slider.slide(arguments.integer(1, slider.minimum(), slider.maximum())), arguments);
}

void page(Scene& scene, const Arguments& arguments) {
    auto& strip = as<TabStrip>(scene, arguments, "a tab strip");
    demand(strip.choosePosition(arguments.integer(1, 1, static_cast<int>(strip.titles().size()))), arguments);
}

/// A row as a user counts it, from 1; one that is not there is out of a user's reach.
std::size_t rowOf(const Arguments& arguments, std::size_t position) {
    return static_cast<std::size_t>(arguments.integer(position, 1, 1'000'000) - 1);
}

void pick(Scene& scene, const Arguments& arguments) {
    if (!arguments.isWord(0, "row")) {
        throw Failure("expected pick row, found pick " + arguments.text(0));
    }
    Grid& grid = gridNamed(scene, arguments.text(1));
    demand(grid.pickRow(rowOf(arguments, 2)), Arguments(arguments.whole(), 2));
}

/// A column's caption, or its bare position from 0 behind the mark of one.
std::size_t columnOf(const Grid& grid, const Arguments& arguments) {
    const std::string& name = arguments.text(2);
    if (!name.starts_with('#') || !arguments.isWord(2, name)) {
        return columnNamed(grid, name);
    }
    Statement position{0, {{"cell", false}, {name.substr(1), false}}, {}};
    return static_cast<std::size_t>(
        Arguments(position).integer(0, 0, static_cast<int>(grid.columns().size()) - 1));
}

void cell(Scene& scene, const Arguments& arguments) {
    Grid& grid = gridNamed(scene, arguments.text(0));
    std::size_t column = columnOf(grid, arguments);
    demand(grid.editCell(rowOf(arguments, 1), column, arguments.text(3)), arguments);
}

void move(Scene& scene, const Arguments& arguments) {
    demand(scene.window(arguments.text(0))
               .userMove({static_cast<Twips>(arguments.number(1)), static_cast<Twips>(arguments.number(2))}),
           arguments);
}

void size(Scene& scene, const Arguments& arguments) {
    demand(
        scene.window(arguments.text(0))
            .userResize({static_cast<Twips>(arguments.number(1)), static_cast<Twips>(arguments.number(2))}),
        arguments);
}

// clang-format off
constexpr StatementRow rows[] = {
    {"click",       1, 1, click},
    {"doubleclick", 1, 1, doubleclick},
    {"type",        2, 2, type},
    {"edit",        2, 2, edit},
    {"put",         2, 3, put},
    {"enter",       1, 1, [](Scene& w, const Arguments& a) { demand(as<TextField>(w, a, "a text field").enter(), a); }},
    {"point",       2, 2, point},
    {"recall",      2, 2, recall},
    {"front",       1, 1, [](Scene& w, const Arguments& a) { demand(w.window(a.text(0)).userActivate(), a); }},
    {"leave",       1, 1, [](Scene& w, const Arguments& a) { demand(w.element(a.text(0)).leave(), a); }},
    {"focus",       1, 1, [](Scene& w, const Arguments& a) { demand(w.element(a.text(0)).takeFocus(), a); }},
    {"choose",      1, 2, choose},
    {"tick",        1, 1, [](Scene& w, const Arguments& a) { demand(as<TickBox>(w, a, "a tick box").tick(true), a); }},
    {"untick",      1, 1, [](Scene& w, const Arguments& a) { demand(as<TickBox>(w, a, "a tick box").tick(false), a); }},
    {"slide",       2, 2, slide},
    {"up",          1, 1, [](Scene& w, const Arguments& a) { demand(as<UpDown>(w, a, "an up-down control").stepUp(), a); }},
    {"down",        1, 1, [](Scene& w, const Arguments& a) { demand(as<UpDown>(w, a, "an up-down control").stepDown(), a); }},
    {"key",         2, 2, key},
    {"caret",       2, 2, caret},
    {"pick",        3, 3, pick},
    {"cell",        4, 4, cell},
    {"close",       1, 1, [](Scene& w, const Arguments& a) { demand(w.window(a.text(0)).userClose(), a); }},
    {"move",        3, 3, move},
    {"size",        3, 3, size},
    {"page",        2, 2, page},
};
// clang-format on

} // namespace

std::span<const StatementRow> gestureStatements() {
    return rows;
}

} // namespace zor::transcript
