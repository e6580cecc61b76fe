// SPDX-License-Identifier: MIT
#include "transcript/statements.h"
#include "transcript/variables.h"

#include "elements/desk.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/monitor.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/connect.h"
#include "shell/main_window.h"
#include "transcript/checks.h"

#include <algorithm>

namespace zor::transcript {

namespace {

template <class Kind>
Kind& as(Scene& scene, const Arguments& arguments, const char* kind) {
    auto* fitting = dynamic_cast<Kind*>(&scene.element(arguments.text(0)));
    if (fitting == nullptr) {
        throw Failure("expected " + std::string(kind) + ", but " + arguments.text(0) + " is none");
    }
    return *fitting;
}

/// A row's check of something that is so or is not so.
void expectThat(bool found, const Arguments& arguments, const char* expected, const char* otherwise) {
    if (!found) {
        throw Failure("expected " + arguments.text(0) + " " + expected + ", found it " + otherwise);
    }
}

void text(Scene& scene, const Arguments& arguments) {
    std::string shown = scene.element(arguments.text(0)).text();
    if (arguments.isWord(1, "~")) {
        expectPart("in " + arguments.text(0), arguments.text(2), shown);
        return;
    }
    arguments.expectCount(2, 2);
    expectText("text of " + arguments.text(0), arguments.text(1), shown);
}

void lacks(Scene& scene, const Arguments& arguments) {
    std::string shown = scene.element(arguments.text(0)).text();
    if (shown.find(arguments.text(1)) != std::string::npos) {
        throw Failure("expected no " + asQuoted(arguments.text(1)) + " in " + arguments.text(0) + ", found " +
                      asQuoted(shown));
    }
}

void caption(Scene& scene, const Arguments& arguments) {
    const std::string& name = arguments.text(0);
    bool isWindow = name.find('.') == std::string::npos;
    expectText("caption of " + name, arguments.text(1),
               isWindow ? scene.window(name).title() : scene.element(name).caption());
}

void tip(Scene& scene, const Arguments& arguments) {
    expectText("tip of " + arguments.text(0), arguments.text(1), scene.element(arguments.text(0)).tip());
}

void hint(Scene& scene, const Arguments& arguments) {
    expectText("hint of " + arguments.text(0), arguments.text(1), scene.element(arguments.text(0)).hint());
}

void document(Scene& scene, const Arguments& arguments) {
    expectText("document of " + arguments.text(0), arguments.text(1),
               scene.window(arguments.text(0)).document());
}

void index(Scene& scene, const Arguments& arguments) {
    const auto* strip = dynamic_cast<TabStrip*>(&scene.element(arguments.text(0)));
    int position = strip != nullptr ? strip->page() - 1 : as<ListBox>(scene, arguments, "a list").position();
    expectNumber("position of " + arguments.text(0), arguments.integer(1, -1, 32767), position);
}

void entries(Scene& scene, const Arguments& arguments) {
    std::vector<std::string> found;
    if (auto* button = dynamic_cast<BarButton*>(&scene.element(arguments.text(0)))) {
        for (const DropDownEntry& entry : button->entries()) {
            found.push_back(entry.key);
        }
    } else if (const auto* strip = dynamic_cast<TabStrip*>(&scene.element(arguments.text(0)))) {
        found = strip->titles();
    } else {
        found = as<ListBox>(scene, arguments, "a list").entries();
    }
    expectLines("entries of " + arguments.text(0), arguments.rest(1), found);
}

bool ticked(Scene& scene, const Arguments& arguments) {
    if (auto* entry = dynamic_cast<MenuEntry*>(&scene.element(arguments.text(0)))) {
        return entry->checked();
    }
    return as<TickBox>(scene, arguments, "a tick box").ticked();
}

std::string colourText(const Colour& colour) {
    return std::to_string(colour.red) + " " + std::to_string(colour.green) + " " +
           std::to_string(colour.blue);
}

void back(Scene& scene, const Arguments& arguments) {
    auto backgroundOf = [&](std::size_t at) {
        return scene.element(arguments.text(at)).background().value_or(buttonFace);
    };
    Colour found = backgroundOf(0);
    Colour expected;
    if (arguments.isWord(1, "as")) {
        arguments.expectCount(3, 3);
        expected = backgroundOf(2);
    } else {
        auto part = [&arguments](std::size_t at) {
            return static_cast<std::uint8_t>(arguments.integer(at, 0, 255));
        };
        expected = Colour{part(1), part(2), part(3)};
    }
    if (found != expected) {
        throw Failure("expected background " + colourText(expected) + " of " + arguments.text(0) +
                      ", found " + colourText(found));
    }
}

void value(Scene& scene, const Arguments& arguments) {
    if (auto* arrows = dynamic_cast<UpDown*>(&scene.element(arguments.text(0)))) {
        expectNumber("value of " + arguments.text(0), arguments.number(1), arrows->value());
        return;
    }
    expectNumber("value of " + arguments.text(0), arguments.number(1),
                 as<Ranged>(scene, arguments, "a slider, progress or up-down").value());
}

void limit(Scene& scene, const Arguments& arguments) {
    std::optional<std::size_t> found = as<TextField>(scene, arguments, "a text field").limit();
    if (!found) {
        throw Failure("expected a limit of " + arguments.text(1) + " characters in " + arguments.text(0) +
                      ", found none");
    }
    expectNumber("limit of " + arguments.text(0), arguments.number(1), static_cast<double>(*found));
}

bool locked(Scene& scene, const Arguments& arguments) {
    if (auto* list = dynamic_cast<ListBox*>(&scene.element(arguments.text(0)))) {
        return list->locked();
    }
    if (auto* received = dynamic_cast<Monitor*>(&scene.element(arguments.text(0)))) {
        return received->locked();
    }
    return as<TextField>(scene, arguments, "a field or list").readOnly();
}

bool isOpen(Scene& scene, const Arguments& arguments) {
    Form* form = scene.findWindow(arguments.text(0));
    return form != nullptr && form->isOpen();
}

void expectPair(const Arguments& arguments, const char* what, double first, double second) {
    for (auto [position, found] : {std::pair(1, first), std::pair(2, second)}) {
        auto at = static_cast<std::size_t>(position);
        if (!arguments.isWord(at, "*")) {
            expectNumber(std::string(what) + " of " + arguments.text(0), arguments.number(at), found);
        }
    }
}

void at(Scene& scene, const Arguments& arguments) {
    Place place = scene.window(arguments.text(0)).place();
    expectPair(arguments, "place", place.top, place.left);
}

void sized(Scene& scene, const Arguments& arguments) {
    Extent extent = scene.window(arguments.text(0)).extent();
    expectPair(arguments, "size", extent.height, extent.width);
}

void rowCount(Scene& scene, const Arguments& arguments) {
    expectNumber("rows of " + arguments.text(0), arguments.integer(1, 0, 1'000'000),
                 static_cast<double>(gridNamed(scene, arguments.text(0)).rowCount()));
}

void seen(Scene& scene, const Arguments& arguments) {
    Grid& grid = gridNamed(scene, arguments.text(0));
    std::size_t column = columnNamed(grid, arguments.text(2));
    auto row = static_cast<std::size_t>(arguments.integer(1, 1, 1'000'000));
    if (row > grid.rowCount()) {
        throw Failure("expected a row " + arguments.text(1) + " in " + arguments.text(0) + ", found " +
                      std::to_string(grid.rowCount()) + " rows");
    }
    expectText(arguments.text(2) + " in row " + arguments.text(1) + " of " + arguments.text(0),
               arguments.text(3), grid.cell(row - 1, column).text);
}

void pickedRow(Scene& scene, const Arguments& arguments) {
    auto picked = gridNamed(scene, arguments.text(0)).picked();
    std::string expected =
        arguments.isWord(1, "none") ? "none" : std::to_string(arguments.integer(1, 1, 1'000'000));
    expectText("row of " + arguments.text(0), expected, picked ? std::to_string(*picked + 1) : "none");
}

void state(Scene& scene, const Arguments& arguments) {
    auto found = variable(scene.program(), arguments.text(0));
    if (!found) {
        throw Failure("there is no variable " + arguments.text(0));
    }
    expectText(arguments.text(0), arguments.text(1), *found);
}

// clang-format off
constexpr StatementRow rows[] = {
    {"text",     2, 3, text},
    {"lacks",    2, 2, lacks},
    {"caption",  2, 2, caption},
    {"tip",      2, 2, tip},
    {"hint",     2, 2, hint},
    {"document", 2, 2, document},
    {"index",    2, 2, index},
    {"entries",  1, StatementRow::anyCount, entries},
    {"pressed",  1, 1, [](Scene& w, const Arguments& a) { expectThat(as<BarButton>(w, a, "a bar button").pressed(), a, "pressed", "released"); }},
    {"released", 1, 1, [](Scene& w, const Arguments& a) { expectThat(!as<BarButton>(w, a, "a bar button").pressed(), a, "released", "pressed"); }},
    {"focused",  1, 1, [](Scene& w, const Arguments& a) { expectThat(w.element(a.text(0)).focused(), a, "focused", "without the focus"); }},
    {"ticked",   1, 1, [](Scene& w, const Arguments& a) { expectThat(ticked(w, a), a, "ticked", "unticked"); }},
    {"unticked", 1, 1, [](Scene& w, const Arguments& a) { expectThat(!ticked(w, a), a, "unticked", "ticked"); }},
    {"chosen",   1, 1, [](Scene& w, const Arguments& a) { expectThat(as<Option>(w, a, "an option").chosen(), a, "chosen", "not chosen"); }},
    {"enabled",  1, 1, [](Scene& w, const Arguments& a) { expectThat(w.element(a.text(0)).active(), a, "enabled", "disabled"); }},
    {"disabled", 1, 1, [](Scene& w, const Arguments& a) { expectThat(!w.element(a.text(0)).active(), a, "disabled", "enabled"); }},
    {"shown",    1, 1, [](Scene& w, const Arguments& a) { expectThat(w.element(a.text(0)).shown(), a, "shown", "hidden"); }},
    {"hidden",   1, 1, [](Scene& w, const Arguments& a) { expectThat(!w.element(a.text(0)).shown(), a, "hidden", "shown"); }},
    {"lit",      1, 1, [](Scene& w, const Arguments& a) { expectThat(as<Lamp>(w, a, "a lamp").lit(), a, "lit", "dark"); }},
    {"dark",     1, 1, [](Scene& w, const Arguments& a) { expectThat(!as<Lamp>(w, a, "a lamp").lit(), a, "dark", "lit"); }},
    {"back",     3, 4, back},
    {"value",    2, 2, value},
    {"limit",    2, 2, limit},
    {"locked",   1, 1, [](Scene& w, const Arguments& a) { expectThat(locked(w, a), a, "locked", "unlocked"); }},
    {"unlocked", 1, 1, [](Scene& w, const Arguments& a) { expectThat(!locked(w, a), a, "unlocked", "locked"); }},
    {"open",     1, 1, [](Scene& w, const Arguments& a) { expectThat(isOpen(w, a), a, "open", "closed"); }},
    {"closed",   1, 1, [](Scene& w, const Arguments& a) { expectThat(!isOpen(w, a), a, "closed", "open"); }},
    {"rows",     2, 2, rowCount},
    {"seen",     4, 4, seen},
    {"row",      2, 2, pickedRow},
    {"at",       3, 3, at},
    {"sized",    3, 3, sized},
    {"state",    2, 2, state},
    {"line",     3, 3, expectLogLine},
    {"lines",    2, 2, expectNoLogLines},
    {"sent",     0, StatementRow::anyCount, expectSent},
    {"box",      1, 3, expectBox},
    {"nobox",    0, 0, [](Scene& w, const Arguments&) { expectNoBox(w); }},
    {"dialog",   3, 4, expectDialog},
    {"content",  1, 3, expectContent},
    {"nofile",   1, 1, expectNoFile},
    {"port",     1, 1, expectPort},
    {"elapsed",  2, 2, expectElapsed},
    {"speed",    1, 1, expectSpeed},
};
// clang-format on

} // namespace

std::span<const StatementRow> checkStatements() {
    return rows;
}

} // namespace zor::transcript
