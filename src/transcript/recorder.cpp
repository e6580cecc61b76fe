// SPDX-License-Identifier: MIT
#include "transcript/recorder.h"

#include "elements/form.h"
#include "elements/text_field.h"
#include "link/connect.h"
#include "shell/main_window.h"
#include "support/file_name.h"
#include "transcript/transcript.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace zor::transcript {

namespace {

using namespace std::chrono_literals;

/// A hand that goes on at once; what it does in that time may be one statement.
constexpr auto joinTime = 500ms;
/// Lines told behind one gesture; a long run has thousands of exchanges.
constexpr std::size_t mostComments = 24;
/// The longest pause of one statement.
constexpr auto longestRun = std::chrono::milliseconds(36'000'000);

bool types(GestureKind kind) {
    return kind == GestureKind::Edit || kind == GestureKind::Replace;
}

/// Whether nobody looks at a field's text before it is committed.
bool quiet(const Gesture& gesture) {
    const auto* field = dynamic_cast<const TextField*>(gesture.element);
    return field != nullptr && !field->onEdit;
}

bool takesLines(const Gesture& gesture) {
    const auto* field = dynamic_cast<const TextField*>(gesture.element);
    return field == nullptr || field->multiLine();
}

/// The statement that is as good as two that follow one another; nothing where both are needed.
/// @param a  its element may be gone
std::optional<std::string> joined(const Gesture& a, const std::string& text, const Gesture& b) {
    using enum GestureKind;
    if (a.kind == Activate && a.form == b.form) {
        return statementOf(b);
    }
    if (a.form != b.form || a.element != b.element) {
        return std::nullopt;
    }
    Gesture both = b;
    if (a.kind == Press && b.kind == Press) {
        std::string keys = text + std::string(b.text);
        both.text = keys;
        return statementOf(both);
    }
    if (types(a.kind) && b.kind == Enter && (a.kind == Edit || quiet(b)) && !takesLines(b)) {
        both.kind = Edit;
        both.text = text;
        return "type" + statementOf(both).substr(std::string_view("edit").size());
    }
    bool replaces = (types(a.kind) && b.kind == Replace && quiet(b)) ||
                    (a.kind == PlaceCaret && (b.kind == PlaceCaret || types(b.kind))) ||
                    (a.kind == Click && b.kind == SecondClick) || (a.kind == Move && b.kind == Move) ||
                    (a.kind == Resize && b.kind == Resize);
    return replaces ? std::optional(statementOf(b)) : std::nullopt;
}

} // namespace

Recorder::Recorder(MainWindow& program, WatchedDialogs& dialogs, std::filesystem::path ownFolder,
                   Sink lineSink, Ignored ignoredGestures, Times precision)
    : main(program)
    , folder(std::move(ownFolder))
    , sink(std::move(lineSink))
    , ignored(std::move(ignoredGestures))
    , times(precision)
    , mark(program.loop().now()) {
    Desk& desk = main.desk();
    subscriptions.push_back(desk.gestureBegins.subscribe([this](const Gesture& g) { begin(g); }));
    subscriptions.push_back(desk.gestureEnded.subscribe([this](const Gesture&) { end(); }));
    subscriptions.push_back(dialogs.boxComes.subscribe([this](const Box&) { boxCame = now(); }));
    subscriptions.push_back(
        dialogs.boxAnswered.subscribe([this](const Box& box, Answer given) { boxAnswered(box, given); }));
    subscriptions.push_back(
        dialogs.fileDialogComes.subscribe([this](const FileRequest&) { boxCame = now(); }));
    subscriptions.push_back(
        dialogs.fileDialogAnswered.subscribe([this](const FileRequest& request, const FileChoice& choice) {
            answer(choice.name == request.startName ? "answer cancel"
                                                    : "answer file " + asQuoted(shortName(choice.name)));
        }));
    subscriptions.push_back(
        main.bench().connect->tap.exchanges.subscribe([this](const WireExchange& e) { crossed(e); }));
    lastNotice = main.Notice.caption();
    subscriptions.push_back(main.Notice.changed.subscribe([this] { noticed(); }));
}

Recorder::~Recorder() = default;

EventLoop::Duration Recorder::now() const {
    return main.loop().now();
}

std::string Recorder::shortName(const std::string& name) const {
    std::filesystem::path inside = pathOf(name).lexically_relative(folder);
    bool outside = inside.empty() || *inside.begin() == "..";
    // With slashes, so that the transcript plays on any system.
    return outside ? name : slashedNameOf(inside);
}

bool Recorder::running(Role role) const {
    return std::ranges::find(roles, role) != roles.end();
}

Recorder::Role Recorder::roleOf(const Gesture& gesture) const {
    if (running(Role::Outside) || (ignored && ignored(gesture))) {
        return Role::Outside;
    }
    // A window that is in front is not brought there by the next click into it.
    bool idle = gesture.kind == GestureKind::Activate &&
                (gesture.form->kind() != Form::Kind::Window || main.desk().front() == gesture.form);
    if (idle || !gesture.byUser) {
        return Role::Part;
    }
    if (running(Role::Block)) {
        return Role::Nested;
    }
    return main.loop().waiting() > 0 ? Role::Ahead : Role::Block;
}

void Recorder::begin(const Gesture& gesture) {
    Role role = roleOf(gesture);
    switch (role) {
    case Role::Outside:
    case Role::Part:
        break;
    case Role::Nested:
        block->before.push_back("after " + timeText(now() - block->begun) + " " + statementOf(gesture));
        break;
    case Role::Ahead:
        // The file's clock stands before the wait in which this comes.
        ahead.push_back("after " + timeText(now() - mark) + " " + statementOf(gesture));
        break;
    case Role::Block:
        beginBlock(gesture);
        break;
    }
    count += role == Role::Nested || role == Role::Ahead ? 1 : 0;
    roles.push_back(role);
}

void Recorder::beginBlock(const Gesture& gesture) {
    Block next;
    next.gesture = gesture;
    next.text = std::string(gesture.text);
    next.begun = now();
    next.pause = now() - mark;
    next.statement = statementOf(gesture);
    if (join(next)) {
        return;
    }
    ++count;
    writeBlock();
    if (!ahead.empty()) {
        // They count from where the file's clock stands, so the pause comes behind them.
        next.before = std::exchange(ahead, {});
        next.before.push_back("run " + timeText(next.pause));
        next.pause = {};
    }
    if (std::exchange(boxAhead, false)) {
        next.before.emplace_back("box *");
    }
    block = std::move(next);
    block->gesture.text = {};
}

void Recorder::end() {
    if (roles.empty()) {
        // It began before the recording did.
        return;
    }
    Role role = roles.back();
    roles.pop_back();
    if (role == Role::Block) {
        block->ended = now();
        mark = now();
    }
}

bool Recorder::join(const Block& next) {
    if (!block || next.pause > joinTime || !ahead.empty() || boxAhead || block->asked ||
        !block->comments.empty() || !block->before.empty()) {
        return false;
    }
    auto statement = joined(block->gesture, block->text, next.gesture);
    if (!statement) {
        return false;
    }
    bool keys = block->gesture.kind == GestureKind::Press && next.gesture.kind == GestureKind::Press;
    block->pause += (block->ended - block->begun) + next.pause;
    block->text = keys ? block->text + next.text : next.text;
    block->gesture = next.gesture;
    block->gesture.text = {};
    block->statement = *statement;
    block->begun = next.begun;
    return true;
}

std::string Recorder::timeText(Duration time) const {
    long long whole = time.count() / 1000;
    long long fraction = times == Times::Exact ? time.count() % 1000 : 0;
    std::string text = std::to_string(whole);
    if (fraction != 0) {
        std::string digits = std::to_string(fraction);
        text += "." + std::string(3 - digits.size(), '0') + digits;
    }
    return text;
}

void Recorder::writePause(Duration pause) {
    for (; pause > longestRun; pause -= longestRun) {
        sink("run " + timeText(longestRun));
    }
    if (std::string time = timeText(pause); time != "0") {
        sink("run " + time);
    }
}

void Recorder::writeBlock() {
    if (!block) {
        return;
    }
    Block done = std::move(*block);
    block.reset();
    writePause(done.pause);
    for (const std::string& line : done.before) {
        sink(line);
    }
    sink(done.statement);
    for (const std::string& line : done.comments) {
        sink(line);
    }
    if (done.untold > 0) {
        sink("# and " + std::to_string(done.untold) + " more lines to the board");
    }
    if (done.asked) {
        sink("box *");
    }
}

void Recorder::finish() {
    bool within = running(Role::Block);
    writeBlock();
    for (const std::string& line : std::exchange(ahead, {})) {
        sink(line);
    }
    if (!within) {
        writePause(now() - mark);
    }
    if (std::exchange(boxAhead, false)) {
        sink("box *");
    }
    roles.clear();
    mark = now();
}

void Recorder::comment(const std::string& text) {
    if (block && !running(Role::Outside)) {
        block->comments.push_back("# " + text);
    }
}

void Recorder::boxAnswered(const Box& box, Answer given) {
    bool asks = box.buttons == BoxButtons::YesNo;
    answer(!asks ? std::string() : given == Answer::Yes ? "answer yes" : "answer no");
    comment("box " + asQuoted(box.title) + " " + asQuoted(box.text));
    if (running(Role::Block)) {
        block->asked = true;
    } else if (!running(Role::Outside)) {
        boxAhead = true;
    }
}

void Recorder::answer(const std::string& statement) {
    if (running(Role::Outside)) {
        return;
    }
    std::vector<std::string>& lines = running(Role::Block) ? block->before : ahead;
    if (std::string stood = timeText(now() - boxCame); stood != linger) {
        lines.push_back("linger " + stood);
        linger = std::move(stood);
    }
    if (!statement.empty()) {
        lines.push_back(statement);
    }
}

void Recorder::crossed(const WireExchange& exchange) {
    if (!block || running(Role::Outside)) {
        return;
    }
    if (block->comments.size() >= mostComments) {
        ++block->untold;
        return;
    }
    std::string_view line = exchange.line;
    while (line.ends_with('\r') || line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    comment("wire " + asQuoted(line) + " " + asQuoted(exchange.result.answer));
}

void Recorder::noticed() {
    const std::string& text = main.Notice.caption();
    if (!text.empty() && text != lastNotice) {
        comment("text main.Notice " + asQuoted(text));
    }
    lastNotice = text;
}

} // namespace zor::transcript
