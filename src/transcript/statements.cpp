// SPDX-License-Identifier: MIT
#include "transcript/statements.h"

#include "elements/form.h"
#include "elements/grid.h"
#include "shell/main_window.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zor::transcript {

namespace {

const StatementRow* findRow(std::span<const StatementRow> rows, std::string_view name) {
    auto row = std::find_if(rows.begin(), rows.end(),
                            [name](const StatementRow& candidate) { return candidate.name == name; });
    return row == rows.end() ? nullptr : &*row;
}

/// A statement without the `refused` or `after MS` in front of it.
Statement without(const Statement& statement, std::size_t tokens) {
    Statement inner = statement;
    inner.tokens.erase(inner.tokens.begin(), inner.tokens.begin() + static_cast<std::ptrdiff_t>(tokens));
    return inner;
}

/// In the order of the alphabet.
constexpr std::array<std::string_view, 11> simulatedBench = {
    "air", "asked", "board", "database", "eeprom", "fifo", "file", "image", "register", "start", "usb"};

const StatementRow& rowOf(const Scene& scene, const Statement& statement) {
    const Token& name = statement.tokens.front();
    for (std::span<const StatementRow> table :
         {scene.ownStatements(), commonStatements(), gestureStatements(), checkStatements()}) {
        const StatementRow* row = name.quoted ? nullptr : findRow(table, name.text);
        if (row != nullptr) {
            return *row;
        }
    }
    if (!name.quoted && needsSimulatedBench(name.text)) {
        throw Failure(name.text +
                      " is for a simulated bench; this transcript cannot be played on a real one");
    }
    throw Failure("unknown statement " + name.text);
}

bool begins(const Statement& statement, std::string_view word) {
    return !statement.tokens.front().quoted && statement.tokens.front().text == word;
}

const StatementRow& gestureOf(const Statement& statement) {
    const StatementRow* row =
        statement.tokens.empty() ? nullptr : findRow(gestureStatements(), statement.tokens.front().text);
    if (row == nullptr) {
        throw Failure("expected a gesture behind refused");
    }
    return *row;
}

/// What stands behind `after MS` or `within MS`.
Statement delayed(const Statement& statement) {
    Arguments(statement).expectCount(2, StatementRow::anyCount);
    return without(statement, 2);
}

/// A mouse that reaches for something in a window brings the window to the front.
void bringToFront(Scene& scene, const Arguments& gesture) {
    // "pick row GRID N" is the one gesture that names what it is for in front.
    const std::string& name = gesture.text(gesture.isWord(0, "row") ? 1 : 0);
    Form* form = scene.findWindow(name.substr(0, name.find('.')));
    if (form != nullptr) {
        form->userActivate();
    }
}

} // namespace

const std::string& Arguments::text(std::size_t position) const {
    expectCount(position + 1, StatementRow::anyCount);
    return statement.tokens[begin + position].text;
}

bool Arguments::isWord(std::size_t position, std::string_view word) const {
    return position < count() && !statement.tokens[begin + position].quoted && text(position) == word;
}

int Arguments::integer(std::size_t position, int lowest, int highest) const {
    const std::string& digits = text(position);
    int value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || value < lowest || value > highest) {
        throw Failure("expected a whole number from " + std::to_string(lowest) + " to " +
                      std::to_string(highest) + ", found " + digits);
    }
    return value;
}

std::uint8_t Arguments::hexByte(std::size_t position) const {
    auto value = text(position).size() == 2 ? readHex(text(position)) : std::nullopt;
    if (!value) {
        throw Failure("expected two hexadecimal digits, found " + text(position));
    }
    return static_cast<std::uint8_t>(*value);
}

std::uint32_t Arguments::hexNumber(std::size_t position, std::size_t digits) const {
    auto value = text(position).size() <= digits ? readHex(text(position)) : std::nullopt;
    if (!value) {
        throw Failure("expected hexadecimal of at most " + std::to_string(digits) + " digits, found " +
                      text(position));
    }
    return *value;
}

std::vector<std::uint8_t> Arguments::hexBytes(std::size_t position) const {
    std::string digits = text(position);
    std::erase(digits, ' ');
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        auto value = digits.size() - at < 2 ? std::nullopt : readHex(digits.substr(at, 2));
        if (!value) {
            throw Failure("expected bytes of two hexadecimal digits, found " + text(position));
        }
        bytes.push_back(static_cast<std::uint8_t>(*value));
    }
    return bytes;
}

double Arguments::number(std::size_t position) const {
    const std::string& digits = text(position);
    double value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        throw Failure("expected a number, found " + digits);
    }
    return value;
}

std::chrono::milliseconds Arguments::milliseconds(std::size_t position) const {
    return std::chrono::milliseconds(integer(position, 0, 36'000'000));
}

EventLoop::Duration Arguments::time(std::size_t position) const {
    const std::string& digits = text(position);
    std::size_t point = digits.find('.');
    std::string fraction = point == std::string::npos ? "" : digits.substr(point + 1);
    bool decimal = !fraction.empty() && fraction.size() <= 3 && std::ranges::all_of(fraction, isDigit);
    if (!decimal) {
        return milliseconds(position);
    }
    fraction.append(3 - fraction.size(), '0');
    Statement parts{0, {{digits.substr(0, point), false}, {fraction, false}}, {}};
    Arguments numbers(parts, 0);
    return numbers.milliseconds(0) + EventLoop::Duration(numbers.integer(1, 0, 999));
}

std::vector<std::string> Arguments::rest(std::size_t position) const {
    std::vector<std::string> texts;
    for (std::size_t at = begin + position; at < statement.tokens.size(); ++at) {
        texts.push_back(statement.tokens[at].text);
    }
    return texts;
}

void Arguments::expectCount(std::size_t least, std::size_t most) const {
    if (count() < least) {
        throw Failure(statement.tokens.front().text + " needs more behind it");
    }
    if (count() > most) {
        throw Failure(statement.tokens.front().text + " has too much behind it, from " +
                      statement.tokens[begin + most].text + " on");
    }
}

Grid& gridNamed(Scene& scene, const std::string& name) {
    auto* grid = dynamic_cast<Grid*>(&scene.element(name));
    if (grid == nullptr) {
        throw Failure("expected a grid, but " + name + " is none");
    }
    return *grid;
}

std::size_t columnNamed(const Grid& grid, const std::string& caption) {
    auto column = grid.column(caption);
    if (!column) {
        throw Failure("there is no column " + asQuoted(caption) + " in " + grid.name());
    }
    return *column;
}

namespace {

const StatementRow& checkOf(const Statement& statement) {
    const StatementRow* row = findRow(checkStatements(), statement.tokens.front().text);
    if (row == nullptr || statement.tokens.front().quoted) {
        throw Failure("expected a check behind within");
    }
    return *row;
}

/// A check that may take its time: it is made again whenever something has happened.
void carryOutWithin(Scene& scene, const Statement& statement) {
    Statement check = delayed(statement);
    const StatementRow& row = checkOf(check);
    std::string last;
    auto holds = [&] {
        try {
            row.carryOut(scene, Arguments(check));
            return true;
        } catch (const Failure& failure) {
            last = failure.what();
            return false;
        }
    };
    if (!scene.waitFor(holds, Arguments(statement).time(0))) {
        throw Failure("within " + Arguments(statement).text(0) + " ms: " + last);
    }
}

} // namespace

bool needsSimulatedBench(std::string_view statement) {
    return std::ranges::find(simulatedBench, statement) != simulatedBench.end();
}

void checkForm(const Scene& scene, const Statement& statement) {
    if (begins(statement, "refused")) {
        Statement gesture = without(statement, 1);
        const StatementRow& row = gestureOf(gesture);
        Arguments(gesture).expectCount(row.least, row.most);
        return;
    }
    if (begins(statement, "after") || begins(statement, "within")) {
        if (!statement.block.empty()) {
            throw Failure("a statement with lines of its own cannot wait");
        }
        Statement inner = delayed(statement);
        (void)Arguments(statement).time(0);
        if (begins(inner, "after")) {
            throw Failure("after cannot stand behind " + statement.tokens.front().text);
        }
        if (begins(statement, "within")) {
            (void)checkOf(inner);
        }
        checkForm(scene, inner);
        return;
    }
    const StatementRow& row = rowOf(scene, statement);
    Arguments(statement).expectCount(row.least, row.most);
}

void checkForms(const Scene& scene, const std::vector<Statement>& statements) {
    for (const Statement& statement : statements) {
        try {
            checkForm(scene, statement);
        } catch (const Failure& failure) {
            throw LineFailure(statement.line, failure.what());
        }
    }
}

void carryOut(Scene& scene, const Statement& statement) {
    checkForm(scene, statement);
    if (begins(statement, "after")) {
        scene.later(Arguments(statement).time(0), delayed(statement));
        return;
    }
    if (begins(statement, "within")) {
        carryOutWithin(scene, statement);
        return;
    }
    if (!begins(statement, "refused")) {
        if (findRow(gestureStatements(), statement.tokens.front().text) != nullptr) {
            bringToFront(scene, Arguments(statement));
        }
        rowOf(scene, statement).carryOut(scene, Arguments(statement));
        return;
    }
    Statement gesture = without(statement, 1);
    try {
        gestureOf(gesture).carryOut(scene, Arguments(gesture));
    } catch (const Refused&) {
        return;
    }
    throw Failure("expected " + gesture.tokens.front().text + " " + Arguments(gesture).text(0) +
                  " to be refused, found that a user can do it");
}

void checkEnd(Scene& scene, int lastLine) {
    if (!scene.waitingLines.empty()) {
        throw LineFailure(scene.waitingLines.front(),
                          "expected this to be carried out, found the transcript at its end before");
    }
    if (!scene.dialogs().boxes.empty()) {
        const Box& box = scene.dialogs().boxes.front();
        throw LineFailure(lastLine, "expected no box left at the end, found " + asQuoted(box.title) + " " +
                                        asQuoted(box.text));
    }
}

} // namespace zor::transcript
