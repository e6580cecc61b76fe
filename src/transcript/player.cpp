// SPDX-License-Identifier: MIT
#include "transcript/player.h"

#include "shell/main_window.h"
#include "transcript/statements.h"

#include <algorithm>
#include <utility>

namespace zor::transcript {

namespace {

using namespace std::chrono_literals;

/// How long the search for boards that the program starts with is waited for.
constexpr auto searchTime = std::chrono::milliseconds(60s);
constexpr auto searchLook = std::chrono::milliseconds(50);

bool isWord(const Statement& statement, std::size_t position, const char* word) {
    return position < statement.tokens.size() && !statement.tokens[position].quoted &&
           statement.tokens[position].text == word;
}

bool isCheck(const Statement& statement) {
    auto rows = checkStatements();
    auto names = [&](std::string_view name) {
        return std::ranges::find(rows, name, &StatementRow::name) != rows.end();
    };
    return isWord(statement, 0, "within") || isWord(statement, 0, "refused") ||
           names(statement.tokens.front().text);
}

} // namespace

Player::Player(MainWindow& program, WatchedDialogs& dialogs)
    : main(program)
    , watched(dialogs)
    , board(program) {
    board.portClosed = [this] {
        if (ownState == State::Playing && !busy && pausing()) {
            // Nobody waits for the end of a pause whose board has gone.
            schedule(0ms);
        }
    };
}

Player::~Player() {
    main.loop().stopTimer(timer);
}

bool Player::passed() const {
    return ownState == State::Ended && failed == 0 && at == statements.size();
}

void Player::setState(State state) {
    ownState = state;
    changed.emit();
}

void Player::begin() {
    for (PlayedLine& line : played) {
        line.result = PlayedLine::Result::Waiting;
        line.message.clear();
        line.took = {};
    }
    at = 0;
    failed = 0;
    scene.reset();
    scene = std::make_unique<LiveScene>(main, watched, ownFile.parent_path());
    begun = end = main.loop().now();
}

void Player::hold(bool held) {
    isHeld = held;
    changed.emit();
}

void Player::play() {
    if (isHeld) {
        return;
    }
    if (busy && ownState == State::Paused) {
        setState(State::Playing);
        return;
    }
    if (ownState == State::Ready || ownState == State::Ended) {
        begin();
    } else if (ownState != State::Paused) {
        return;
    }
    single = false;
    scene->setAnswering(true);
    setState(State::Playing);
    schedule(0ms);
}

void Player::pause() {
    if (ownState == State::Playing) {
        main.loop().stopTimer(std::exchange(timer, 0));
        setState(State::Paused);
        if (!busy) {
            scene->setAnswering(false);
        }
    }
}

void Player::step() {
    if (busy || isHeld) {
        return;
    }
    if (ownState == State::Ready || ownState == State::Ended) {
        begin();
    } else if (ownState != State::Paused) {
        return;
    }
    single = true;
    // A pause that was halted is over with it.
    pauseEnd = main.loop().now();
    scene->setAnswering(true);
    setState(State::Playing);
    schedule(0ms);
}

void Player::stop(std::string reason) {
    if (ownState != State::Playing && ownState != State::Paused) {
        return;
    }
    main.loop().stopTimer(std::exchange(timer, 0));
    scene->stop();
    stopReason = std::move(reason);
    if (busy) {
        setState(State::Stopping);
    } else {
        finish(stopReason);
    }
}

void Player::leave() {
    if (busy || (ownState != State::Playing && ownState != State::Paused && ownState != State::Stopping)) {
        return;
    }
    main.loop().stopTimer(std::exchange(timer, 0));
    finish(at < statements.size() ? "the program was closed" : "");
}

void Player::schedule(EventLoop::Duration time) {
    main.loop().stopTimer(timer);
    timer = main.loop().startTimer(time, EventLoop::Repeat::Once, [this] {
        timer = 0;
        next();
    });
}

bool Player::pausing() const {
    return at > 0 && played[at - 1].result == PlayedLine::Result::Running;
}

void Player::next() {
    if (ownState != State::Playing || busy) {
        return;
    }
    if (at == 0) {
        if (board.searching() && main.loop().now() - begun < searchTime) {
            // The first statement finds the program as a user would who waited for its search.
            schedule(searchLook);
            return;
        }
        board.begin();
    }
    std::string hindrance = board.hindrance();
    EventLoop::Duration left = pauseEnd - main.loop().now();
    if (pausing() && left > 0ms && hindrance.empty()) {
        schedule(left);
        return;
    }
    if (pausing() && left <= 0ms) {
        settle(at - 1, PlayedLine::Result::Passed);
        if (std::exchange(single, false) && at < statements.size()) {
            scene->setAnswering(false);
            setState(State::Paused);
            return;
        }
    }
    if (!hindrance.empty() && (pausing() || at < statements.size())) {
        finish(hindrance);
        return;
    }
    if (scene->lateFailure) {
        failLine(scene->lateFailure->line, scene->lateFailure->what());
        scene->lateFailure.reset();
    }
    if (at == statements.size()) {
        finish();
        return;
    }
    carryOutNext();
}

void Player::carryOutNext() {
    const Statement& statement = statements[at];
    lineBegun = main.loop().now();
    settle(at, PlayedLine::Result::Running);
    if (isWord(statement, 0, "run")) {
        // Nothing waits inside anything else for a pause.
        ++at;
        pauseEnd = lineBegun + Arguments(statement).time(0);
        schedule(pauseEnd - lineBegun);
        changed.emit();
        return;
    }
    busy = true;
    bool goesOn = tryOut(statement);
    busy = false;
    ++at;
    if (ownState == State::Stopping) {
        finish(stopReason);
        return;
    }
    board.carriedOut(statement);
    if (main.isClosed()) {
        leave();
        return;
    }
    if (!goesOn) {
        finish();
        return;
    }
    if (single || ownState == State::Paused) {
        bool over = at == statements.size();
        single = false;
        if (over) {
            setState(State::Playing);
            schedule(0ms);
            return;
        }
        scene->setAnswering(false);
        setState(State::Paused);
        return;
    }
    changed.emit();
    schedule(0ms);
}

bool Player::tryOut(const Statement& statement) {
    std::size_t position = at;
    try {
        carryOut(*scene, statement);
        settle(position, PlayedLine::Result::Passed);
        return true;
    } catch (const ActionDropped&) {
        settle(position, PlayedLine::Result::Failed, "the program was closed");
        return false;
    } catch (const std::exception& failure) {
        settle(position, PlayedLine::Result::Failed, failure.what());
        return isCheck(statement);
    }
}

void Player::settle(std::size_t position, PlayedLine::Result result, std::string message) {
    PlayedLine& line = played[position];
    if (result == PlayedLine::Result::Failed && line.result != PlayedLine::Result::Failed) {
        ++failed;
    }
    line.result = result;
    line.message = std::move(message);
    if (result != PlayedLine::Result::Running) {
        line.took = main.loop().now() - lineBegun;
    }
    lineChanged.emit(position);
}

void Player::failLine(int number, const std::string& message) {
    auto line = std::ranges::find(played, number, &PlayedLine::line);
    if (line != played.end()) {
        settle(static_cast<std::size_t>(line - played.begin()), PlayedLine::Result::Failed, message);
    }
}

void Player::finish(const std::string& reason) {
    end = main.loop().now();
    if (!reason.empty() && !played.empty()) {
        // What runs, or would have come next, is where it ended.
        std::size_t where = at > 0 && played[at - 1].result == PlayedLine::Result::Running ? at - 1 : at;
        where = std::min(where, played.size() - 1);
        lineBegun = end;
        settle(where, PlayedLine::Result::Failed, reason);
    } else if (at == statements.size() && failed == 0) {
        try {
            checkEnd(*scene, statements.empty() ? 1 : statements.back().line);
        } catch (const LineFailure& failure) {
            failLine(failure.line, failure.what());
        }
    }
    scene->stop();
    scene->setAnswering(false);
    setState(State::Ended);
}

} // namespace zor::transcript
