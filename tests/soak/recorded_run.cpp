// SPDX-License-Identifier: MIT
#include "soak/recorded_run.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "shell/main_window.h"
#include "soak/random_engineer.h"
#include "transcript/recorder.h"
#include "transcript_runner/world.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <vector>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

constexpr auto endlessAfter = 20min;
constexpr std::uint64_t mostEvents = 30'000'000;

/// What belongs to the bench and not to its user, and what ends or records the session itself.
bool left(const std::string& statement) {
    static constexpr std::array words = {"board ",      "start",    "mnuFileExit", "mnuFileRecord",
                                         "mnuFilePlay", "frm_Play", "close main"};
    return std::ranges::any_of(words,
                               [&](const char* word) { return statement.find(word) != std::string::npos; });
}

/// What a session leaves: the lines to the boards and the files, without the folder's own name.
struct Left {
    std::vector<std::string> sent;
    std::map<std::string, std::string> files;
};

/// A file may say what the clock on the wall said; the play has another one.
std::string withoutClock(const std::string& text) {
    static const std::regex clock(R"(\d\d:\d\d:\d\d(\.\d\d\d)?)");
    return std::regex_replace(text, clock, "CLOCK");
}

std::string withoutFolder(std::string text, const std::string& folder) {
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
        text.replace(at, folder.size(), "FOLDER");
    }
    return text;
}

Left leftBy(World& world) {
    Left all;
    for (const VirtualPorts::SentLine& line : world.machine.ports.sent) {
        all.sent.push_back(std::to_string(line.port) + " " + line.text);
    }
    std::filesystem::path root = world.machine.folder.path();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (entry.is_regular_file()) {
            std::ifstream file(entry.path(), std::ios::binary);
            std::string bytes{std::istreambuf_iterator<char>(file), {}};
            all.files[entry.path().lexically_relative(root).string()] =
                withoutClock(withoutFolder(std::move(bytes), root.string()));
        }
    }
    return all;
}

std::string differenceOf(const Left& recorded, const Left& played) {
    auto [a, b] = std::ranges::mismatch(recorded.sent, played.sent);
    if (a != recorded.sent.end() || b != played.sent.end()) {
        return "line " + std::to_string(a - recorded.sent.begin()) + " to the boards: recorded " +
               (a == recorded.sent.end() ? "none" : asQuoted(*a)) + ", played " +
               (b == played.sent.end() ? "none" : asQuoted(*b));
    }
    for (const auto& [name, bytes] : recorded.files) {
        auto other = played.files.find(name);
        if (other == played.files.end()) {
            return "file " + name + " was not made by the play";
        }
        if (other->second != bytes) {
            auto at = std::ranges::mismatch(bytes, other->second).in1 - bytes.begin();
            auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(at - 40, 0));
            return "file " + name + " differs: recorded " + asQuoted(bytes.substr(from, 80)) + ", played " +
                   asQuoted(other->second.substr(std::min(from, other->second.size()), 80));
        }
    }
    return recorded.files.size() == played.files.size() ? "" : "the play left more files";
}

/// A bench with a limit to each statement.
class LimitedBench {
  public:
    /// @return whether it came to its end
    bool carryOut(const Statement& statement) {
        VirtualLoop& loop = world.machine.loop;
        loop.setLimits(loop.eventCount() + mostEvents, loop.now() + endlessAfter);
        try {
            transcript::carryOut(world, statement);
        } catch (const Failure& failure) {
            // Out of a user's reach, or not there at all.
            refusal = failure.what();
        } catch (const VirtualTimeError&) {
            return false;
        }
        world.machine.dialogs.boxes.clear();
        world.machine.dialogs.fileDialogs.clear();
        world.machine.asked.clear();
        return true;
    }
    bool carryOut(const std::string& text) {
        for (const Statement& statement : readTranscript(text + "\n")) {
            if (!carryOut(statement)) {
                return false;
            }
        }
        return true;
    }

    World world;
    std::string refusal;
};

/// The record on a fresh bench; every statement must be one that can be made.
std::string played(const std::string& transcript, const Left& recorded) {
    LimitedBench bench;
    for (const Statement& statement : readTranscript(transcript)) {
        bench.refusal.clear();
        if (!bench.carryOut(statement)) {
            return "the play did not end at line " + std::to_string(statement.line);
        }
        if (!bench.refusal.empty() || bench.world.lateFailure) {
            return bench.world.lateFailure ? "line " + std::to_string(bench.world.lateFailure->line) + ": " +
                                                 bench.world.lateFailure->what()
                                           : "line " + std::to_string(statement.line) + ": " + bench.refusal;
        }
    }
    return differenceOf(recorded, leftBy(bench.world));
}

} // namespace

RecordedRun recordAndPlay(unsigned seed, int steps) {
    RecordedRun result;
    auto bench = std::make_unique<LimitedBench>();
    RandomEngineer engineer(seed);
    std::string lines;
    for (const std::string& statement : engineer.preparations()) {
        lines += statement + "\n";
        (void)bench->carryOut(statement);
    }
    World& world = bench->world;
    transcript::Recorder recorder(
        world.program(), world.machine.watchedDialogs, world.folder(),
        [&lines](const std::string& line) { lines += line + "\n"; }, nullptr,
        transcript::Recorder::Times::Exact);
    for (int step = 0; step < steps;) {
        std::string statement = engineer.next(world);
        if (left(statement)) {
            continue;
        }
        ++step;
        if (!bench->carryOut(statement)) {
            result.endless = true;
            return result;
        }
    }
    // What waits for its time comes to it.
    if (!bench->carryOut("linger 0") || !bench->carryOut("run 3000")) {
        result.endless = true;
        return result;
    }
    recorder.finish();
    result.gestures = recorder.gestures();
    result.transcript = lines;
    result.difference = played(lines, leftBy(world));
    return result;
}

} // namespace zor::testing
