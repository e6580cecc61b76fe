// SPDX-License-Identifier: MIT
// Lets random engineers work at the bench, each in a process of its own. What goes wrong (a fault that a
// sanitizer sees, an exception that nobody caught, an action without an end, a port that stays taken) is
// shrunk to a few statements and written down as a transcript.
#include "soak/recorded_run.h"
#include "soak/soak_run.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned longestRun = 120; // seconds of a process
constexpr int mostTrials = 400;

struct Options {
    unsigned seed = 1;
    int runs = 100;
    int steps = 200;
    int minutes = 0;
    std::string play;
    /// Gestures to record and play again, in sessions of so many steps.
    std::size_t recorded = 0;
};

/// Does something in a process of its own.
/// @return whether it ended well
bool apart(const std::function<bool()>& action, bool silent) {
    std::cout.flush();
    pid_t child = ::fork();
    if (child == 0) {
        ::alarm(longestRun);
        if (silent) {
            (void)!std::freopen("/dev/null", "w", stderr);
        }
        bool well = action();
        std::cout.flush();
        std::exit(well ? 0 : 1); // the leak check sees what is left
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool goesWell(const std::vector<std::string>& statements, bool silent) {
    return apart(
        [&] {
            std::string wrong = zor::testing::workAsTold(statements);
            if (!wrong.empty()) {
                std::cerr << wrong << "\n";
            }
            return wrong.empty();
        },
        silent);
}

/// Takes stretches of statements out for as long as what is left still goes wrong.
std::vector<std::string> shrunk(std::vector<std::string> statements) {
    int trials = 0;
    for (std::size_t stretch = statements.size() / 2; stretch > 0; stretch /= 2) {
        for (std::size_t at = 0; at < statements.size() && trials < mostTrials;) {
            std::vector<std::string> less = statements;
            auto from = less.begin() + static_cast<std::ptrdiff_t>(at);
            less.erase(from, from + static_cast<std::ptrdiff_t>(std::min(stretch, less.size() - at)));
            ++trials;
            if (goesWell(less, true)) {
                at += stretch;
            } else {
                statements = std::move(less);
            }
        }
    }
    return statements;
}

std::vector<std::string> linesOf(const std::string& name) {
    std::vector<std::string> lines;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.front() != '#') {
            lines.push_back(line);
        }
    }
    return lines;
}

/// @return whether it went well
bool run(unsigned seed, int steps) {
    std::string name = "soak-" + std::to_string(seed) + ".bench";
    bool well = apart(
        [&] {
            std::ofstream kept(name);
            std::string wrong = zor::testing::workAtRandom(
                seed, steps, [&kept](const std::string& statement) { kept << statement << std::endl; });
            if (!wrong.empty()) {
                std::cerr << "seed " << seed << ": " << wrong << "\n";
            }
            return wrong.empty();
        },
        false);
    if (well) {
        ::unlink(name.c_str());
        return true;
    }
    std::vector<std::string> statements = linesOf(name);
    std::cout << "seed " << seed << " went wrong after " << statements.size() << " statements; shrinking\n";
    if (goesWell(statements, true)) {
        std::cout << "it does not go wrong again; all statements are in " << name << "\n";
        return false;
    }
    std::vector<std::string> few = shrunk(statements);
    std::ofstream kept(name);
    for (const std::string& statement : few) {
        kept << statement << "\n";
        std::cout << "    " << statement << "\n";
    }
    kept.close();
    std::cout << "kept in " << name << "\n";
    (void)goesWell(few, false); // once more, to be read
    return false;
}

/// Sessions of random engineers, recorded and played on a fresh bench, until so many gestures were made.
/// @return whether none differs
bool recordAndPlayAll(const Options& options) {
    std::size_t gestures = 0;
    int sessions = 0;
    int endless = 0;
    bool well = true;
    for (unsigned seed = options.seed; gestures < options.recorded; ++seed) {
        zor::testing::RecordedRun run = zor::testing::recordAndPlay(seed, options.steps);
        ++(run.endless ? endless : sessions);
        gestures += run.endless ? 0 : run.gestures;
        if (!run.difference.empty()) {
            well = false;
            std::string name = "recorded-" + std::to_string(seed) + ".bench";
            std::ofstream(name) << run.transcript;
            std::cout << "seed " << seed << ": " << run.difference << "; kept in " << name << std::endl;
        }
    }
    std::cout << gestures << " gestures in " << sessions << " sessions recorded and played; " << endless
              << " sessions without an end of their own left out" << std::endl;
    return well;
}

Options optionsOf(int count, char** arguments) {
    Options options;
    const std::map<std::string, std::function<void(const char*)>> known = {
        {"--seed", [&](const char* value) { options.seed = static_cast<unsigned>(std::atoi(value)); }},
        {"--runs", [&](const char* value) { options.runs = std::atoi(value); }},
        {"--steps", [&](const char* value) { options.steps = std::atoi(value); }},
        {"--minutes", [&](const char* value) { options.minutes = std::atoi(value); }},
        {"--recorded", [&](const char* value) { options.recorded = std::strtoul(value, nullptr, 10); }},
        {"--play", [&](const char* value) { options.play = value; }},
    };
    for (int at = 1; at + 1 < count; at += 2) {
        auto option = known.find(arguments[at]);
        if (option == known.end()) {
            std::cerr << "usage: zor-soak [--seed N] [--runs N] [--steps N] [--minutes N] [--play FILE] "
                         "[--recorded GESTURES]\n";
            std::exit(2);
        }
        option->second(arguments[at + 1]);
    }
    return options;
}

} // namespace

int main(int count, char** arguments) {
    Options options = optionsOf(count, arguments);
    if (!options.play.empty()) {
        return goesWell(linesOf(options.play), false) ? 0 : 1;
    }
    if (options.recorded > 0) {
        return recordAndPlayAll(options) ? 0 : 1;
    }
    auto begun = Clock::now();
    auto late = [&] {
        return options.minutes > 0 && Clock::now() - begun > std::chrono::minutes(options.minutes);
    };
    int done = 0;
    int wrong = 0;
    for (unsigned seed = options.seed; options.minutes > 0 ? !late() : done < options.runs; ++seed, ++done) {
        wrong += run(seed, options.steps) ? 0 : 1;
    }
    std::cout << done << " runs of " << options.steps << " statements, " << wrong << " went wrong\n";
    return wrong == 0 ? 0 : 1;
}
