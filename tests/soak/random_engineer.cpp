// SPDX-License-Identifier: MIT
#include "soak/random_engineer.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "shell/main_window.h"

#include <array>

namespace zor::testing {

namespace {

constexpr std::array texts = {
    "",
    "0",
    "1",
    "315",
    "868.3",
    "915",
    "-1",
    "1e9",
    "99999999999999999999",
    "FF",
    "A7D0",
    "12,5",
    "3.3",
    "T14,AA,2D,D4,00",
    "abc",
    "\xB5\xFF",
    "%s%n",
    "C605AA2DD4",
    "S2A7D0",
    "MACRO",
    "L2\r\nRS",
    "  ",
    "18446744073709551616",
    "nan",
    "0x12",
    "\"",
    "1;2;3",
};
constexpr std::array files = {"a.tc",  "a.tc1",         "a.tc2",      "a.rc",        "a.rc2",   "a.trc",
                              "a.lrc", "a.asc",         "a.hex",      "a.txt",       "a.h",     "a.wsp",
                              "a.scr", "none/there.tc", "deep",       "*.tc",        "*.txt",   "a.bin",
                              "a.csv", "a.out",         "garbage.tc", "garbage.asc", "long.txt"};
constexpr std::array emissions = {"\\n\\rOK\\n\\r>",
                                  "\\n\\r??\\n\\r>",
                                  "\\x00\\xFF\\x11\\x13",
                                  ">",
                                  "\\r\\n",
                                  "Ortolan Radio Bench System",
                                  "F12,34,56\\r\\n",
                                  "\\x13",
                                  "\\x11"};

} // namespace

std::string RandomEngineer::someText() {
    if (oneIn(3)) {
        return asQuoted(std::to_string(upTo(100000) / 100.0));
    }
    if (oneIn(40)) {
        return asQuoted(std::string(static_cast<std::size_t>(upTo(3000)), oneIn(2) ? '7' : 'A'));
    }
    return asQuoted(oneOf(texts));
}

std::string RandomEngineer::someFile() {
    return asQuoted(oneOf(files));
}

std::vector<std::string> RandomEngineer::preparations() {
    static constexpr std::array kinds = {"lb2", "lb2", "lb2", "lb1", "loader", "monitor", "silent"};
    std::vector<std::string> lines = {std::string("board 3 ") + oneOf(kinds)};
    if (oneIn(2)) {
        lines.push_back(std::string("board 5 ") + oneOf(kinds));
    }
    if (oneIn(3)) {
        lines.emplace_back("board 3 registers");
    } else if (oneIn(3)) {
        lines.emplace_back("board 3 eeprom");
    }
    std::string garbage;
    for (int count = upTo(600); count > 0; --count) {
        garbage += static_cast<char>(upTo(255));
    }
    for (const char* name : {"garbage.tc", "garbage.asc", "a.txt", "a.hex", "ZOR.ini"}) {
        if (oneIn(3)) {
            lines.push_back("file raw " + asQuoted(name) + " " + asQuoted(garbage));
        }
    }
    lines.push_back("file raw \"long.txt\" " +
                    asQuoted(std::string(static_cast<std::size_t>(upTo(4000)), 'x')));
    lines.emplace_back("start");
    lines.emplace_back("run 4000");
    return lines;
}

std::string RandomEngineer::fault() {
    static constexpr std::array boards = {"board 3 ", "board 5 "};
    static constexpr std::array faults = {"unplug",        "plug",         "mute",       "unmute",
                                          "delay 1500",    "delay 0",      "irq low",    "irq high",
                                          "data 1",        "data 0",       "fault 1001", "status 5F",
                                          "status 00 FF",  "stall 3",      "slow 200",   "eeprom busy always",
                                          "eeprom",        "busy",         "lb2",        "silent",
                                          "refuse \"RS\"", "refuse \"L2\""};
    std::string board = oneOf(boards);
    if (oneIn(4)) {
        return board + "emit \"" + oneOf(emissions) + "\"";
    }
    return board + oneOf(faults);
}

std::string RandomEngineer::answer() {
    switch (upTo(3)) {
    case 0:
        return "answer yes";
    case 1:
        return "answer cancel";
    default:
        return "answer file " + someFile();
    }
}

std::string RandomEngineer::toWindow(const Form& form) {
    switch (upTo(5)) {
    case 0:
        return "close " + form.name();
    case 1:
        return "move " + form.name() + " " + std::to_string(upTo(40000) - 10000) + " " +
               std::to_string(upTo(40000) - 10000);
    case 2:
        return "size " + form.name() + " " + std::to_string(upTo(40000)) + " " + std::to_string(upTo(40000));
    case 3:
        return "doubleclick " + form.name();
    default:
        return "click " + form.name();
    }
}

std::string RandomEngineer::gestureOn(const Element& element, const std::string& name) {
    if (const auto* grid = dynamic_cast<const Grid*>(&element)) {
        std::string row = std::to_string(1 + upTo(static_cast<int>(grid->rowCount())));
        if (grid->columns().empty() || oneIn(2)) {
            return "pick row " + name + " " + row;
        }
        return "cell " + name + " " + row + " " + asQuoted(oneOf(grid->columns()).caption) + " " + someText();
    }
    if (const auto* list = dynamic_cast<const ListBox*>(&element)) {
        return "choose " + name + " #" + std::to_string(upTo(static_cast<int>(list->entries().size()) - 1));
    }
    if (dynamic_cast<const TickBox*>(&element) != nullptr) {
        return (oneIn(2) ? "tick " : "untick ") + name;
    }
    if (dynamic_cast<const Option*>(&element) != nullptr) {
        return "choose " + name;
    }
    if (const auto* slider = dynamic_cast<const Slider*>(&element)) {
        return "slide " + name + " " +
               std::to_string(slider->minimum() + upTo(slider->maximum() - slider->minimum()));
    }
    if (dynamic_cast<const UpDown*>(&element) != nullptr) {
        return (oneIn(2) ? "up " : "down ") + name;
    }
    if (const auto* strip = dynamic_cast<const TabStrip*>(&element)) {
        return "page " + name + " " + std::to_string(1 + upTo(static_cast<int>(strip->titles().size()) - 1));
    }
    if (dynamic_cast<const TextField*>(&element) != nullptr) {
        static constexpr std::array ways = {"type ", "type ", "edit ", "key "};
        return oneIn(6) ? "leave " + name : oneOf(ways) + name + " " + someText();
    }
    if (const auto* button = dynamic_cast<const BarButton*>(&element)) {
        if (!button->entries().empty() && !oneIn(4)) {
            return "choose " + name + " " + asQuoted(oneOf(button->entries()).key);
        }
    }
    return (oneIn(8) ? "doubleclick " : "click ") + name;
}

std::string RandomEngineer::gesture(const World& world) {
    std::vector<Form*> open;
    for (Form* form : world.program().desk().forms()) {
        if (form->isOpen() && form->acceptsUser()) {
            open.push_back(form);
        }
    }
    if (open.empty()) {
        return "start";
    }
    // The main window has most of the ways to elsewhere, the windows most of the work.
    Form* chosen = oneOf(open);
    for (int again = 0; again < 2 && chosen->kind() == Form::Kind::Main; ++again) {
        chosen = oneOf(open);
    }
    Form& form = *chosen;
    if (oneIn(14) && form.kind() != Form::Kind::Main) {
        return toWindow(form);
    }
    std::vector<const Element*> reachable;
    for (const Element* element : form.elements()) {
        // Leaving the program ends what could still go wrong in it.
        if (element->usable() && (element->name() != "mnuFileExit" || oneIn(30))) {
            reachable.push_back(element);
        }
    }
    if (reachable.empty()) {
        return toWindow(form);
    }
    const Element& element = *oneOf(reachable);
    return gestureOn(element, form.name() + "." + element.name());
}

std::string RandomEngineer::next(const World& world) {
    switch (upTo(19)) {
    case 0:
        return fault();
    case 1:
        return answer();
    case 2:
        return "run " + std::to_string(upTo(3000));
    case 3:
        return "after " + std::to_string(upTo(900)) + " " + (oneIn(2) ? fault() : gesture(world));
    case 4:
        return oneIn(4) ? "linger " + std::to_string(oneIn(2) ? 0 : 1500) : gesture(world);
    default:
        return gesture(world);
    }
}

} // namespace zor::testing
