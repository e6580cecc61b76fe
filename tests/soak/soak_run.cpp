// SPDX-License-Identifier: MIT
#include "soak/soak_run.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "shell/main_window.h"
#include "soak/random_engineer.h"
#include "transcript_runner/world.h"

#include <chrono>
#include <exception>
#include <vector>

namespace zor::testing {

namespace {

using namespace std::chrono_literals;

/// A script that loops for ever is ended by whoever pulls the plug; nothing may outlast that for long.
constexpr auto plugPulledAfter = 60s;
constexpr auto hangsAfter = 20min;
constexpr std::uint64_t mostEventsOfAStatement = 30'000'000;

class Bench {
  public:
    /// @return what went wrong
    std::string carryOut(const std::string& text) {
        VirtualLoop& loop = world.machine.loop;
        loop.setLimits(loop.eventCount() + mostEventsOfAStatement, loop.now() + hangsAfter);
        auto plug = loop.startTimer(plugPulledAfter, EventLoop::Repeat::Once, [this] { setPlugged(false); });
        std::string wrong = tryOut(text);
        loop.stopTimer(plug);
        setPlugged(true);
        world.machine.dialogs.boxes.clear();
        world.machine.dialogs.fileDialogs.clear();
        world.machine.ports.sent.clear();
        world.machine.asked.clear();
        world.lateFailure.reset();
        return wrong;
    }

    /// Whatever was done to it: a bench in order brings the program to rest.
    std::string settle() {
        std::vector<std::string> order = {"linger 0", "run 100"};
        for (auto& [number, seat] : world.machine.ports.seats()) {
            seat->busy = false;
            seat->plug();
            for (const char* repair : {" unmute", " delay 0"}) {
                order.push_back("board " + std::to_string(number) + repair);
            }
        }
        order.emplace_back("run 120000");
        for (const std::string& statement : order) {
            if (std::string wrong = carryOut(statement); !wrong.empty()) {
                return wrong;
            }
        }
        if (std::string wrong = closeWindows(); !wrong.empty()) {
            return wrong;
        }
        return atRest();
    }

    World world;

  private:
    void setPlugged(bool plugged) {
        for (auto& [number, seat] : world.machine.ports.seats()) {
            if (!plugged && seat->plugged()) {
                seat->unplug();
                pulled.push_back(number);
            }
        }
        if (plugged) {
            for (int number : pulled) {
                world.machine.ports.seat(number).plug();
            }
            pulled.clear();
        }
    }

    std::string tryOut(const std::string& text) {
        try {
            for (const Statement& statement : readTranscript(text + "\n")) {
                transcript::carryOut(world, statement);
            }
        } catch (const Failure&) {
            // Out of a user's reach, or not there at all.
        } catch (const std::exception& failure) {
            return std::string("an action let this escape: ") + failure.what();
        }
        return {};
    }

    std::string closeWindows() {
        std::vector<std::string> names;
        for (Form* form : world.program().desk().forms()) {
            if (form->isOpen() && form->kind() != Form::Kind::Main) {
                names.push_back(form->name());
            }
        }
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            if (std::string wrong = carryOut("close " + *name); !wrong.empty()) {
                return wrong;
            }
        }
        return carryOut("run 60000");
    }

    std::string atRest() {
        MainWindow& program = world.program();
        if (program.isOpen() && program.bench().link.CommState() != 0) {
            return "the port is still held by step " + std::to_string(program.bench().link.CommState()) +
                   " with every window closed";
        }
        return {};
    }

    std::vector<int> pulled;
};

} // namespace

std::string workAtRandom(unsigned seed, int steps, const Log& log) {
    Bench bench;
    RandomEngineer engineer(seed);
    for (const std::string& statement : engineer.preparations()) {
        log(statement);
        if (std::string wrong = bench.carryOut(statement); !wrong.empty()) {
            return wrong;
        }
    }
    for (int step = 0; step < steps; ++step) {
        std::string statement = engineer.next(bench.world);
        log(statement);
        if (std::string wrong = bench.carryOut(statement); !wrong.empty()) {
            return wrong;
        }
    }
    return bench.settle();
}

std::string workAsTold(const std::vector<std::string>& statements) {
    Bench bench;
    bool started = false;
    for (const std::string& statement : statements) {
        if (std::string wrong = bench.carryOut(statement); !wrong.empty()) {
            return wrong;
        }
        started = started || statement == "start";
    }
    return started ? bench.settle() : std::string();
}

} // namespace zor::testing
