// SPDX-License-Identifier: MIT
#include "elements/coloured_log.h"
#include "transcript/checks.h"

#include <algorithm>
#include <array>

namespace zor::transcript {

namespace {

/// In the order of LogColour.
constexpr std::array<const char*, 4> colourNames = {"blue", "red", "green", "black"};

std::string nameOf(LogColour colour) {
    return colourNames[static_cast<std::size_t>(colour)];
}

const ColouredLog& logOf(Scene& scene, const Arguments& arguments) {
    auto* log = dynamic_cast<ColouredLog*>(&scene.element(arguments.text(0)));
    if (log == nullptr) {
        throw Failure("expected a coloured log, but " + arguments.text(0) + " is none");
    }
    return *log;
}

/// The oldest line that was not seen; what was cleared unseen is gone. nullptr if there is none.
const ColouredLog::Line* oldestUnseen(Scene& scene, const ColouredLog& log) {
    std::size_t& seen = scene.seenLines[&log];
    seen = std::max(seen, log.clearedLines());
    std::size_t at = seen - log.clearedLines();
    return at < log.lines().size() ? &log.lines()[at] : nullptr;
}

std::string shown(const ColouredLog::Line* line) {
    return line == nullptr ? "none" : nameOf(line->colour) + " " + asQuoted(line->text);
}

} // namespace

void expectLogLine(Scene& scene, const Arguments& arguments) {
    const ColouredLog& log = logOf(scene, arguments);
    const std::string& colour = arguments.text(1);
    if (std::find(colourNames.begin(), colourNames.end(), colour) == colourNames.end()) {
        throw Failure("expected blue, red, green or black, found " + colour);
    }
    const ColouredLog::Line* line = oldestUnseen(scene, log);
    if (line == nullptr || nameOf(line->colour) != colour || line->text != arguments.text(2)) {
        throw Failure("expected line " + colour + " " + asQuoted(arguments.text(2)) + " in " +
                      arguments.text(0) + ", found " + shown(line));
    }
    ++scene.seenLines[&log];
}

void expectNoLogLines(Scene& scene, const Arguments& arguments) {
    const ColouredLog& log = logOf(scene, arguments);
    if (!arguments.isWord(1, "none")) {
        throw Failure("expected lines " + arguments.text(0) + " none, found " + arguments.text(1));
    }
    const ColouredLog::Line* line = oldestUnseen(scene, log);
    if (line != nullptr) {
        throw Failure("expected no further line in " + arguments.text(0) + ", found " + shown(line));
    }
}

} // namespace zor::transcript
