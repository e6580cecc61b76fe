// SPDX-License-Identifier: MIT
#include "simulator/program/options.h"
#include "simulator/program/server.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

/// The signals that end the program, as a descriptor. They stay blocked, so none can be lost.
int endingSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGHUP);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return ::signalfd(-1, &set, SFD_CLOEXEC);
}

} // namespace

int main(int argc, char** argv) {
    using namespace zor::sim;
    try {
        Options options = parseOptions({argv + 1, argv + argc});
        if (options.help) {
            std::fputs(helpText().c_str(), stdout);
            return 0;
        }
        if (options.version) {
            std::puts("loadboard-sim " ZOR_VERSION);
            return 0;
        }
        // A reader of the trace that goes away ends nothing.
        std::signal(SIGPIPE, SIG_IGN);
        int signals = endingSignals();
        Server server(options);
        for (const std::string& path : server.paths()) {
            std::printf("%s\n", path.c_str());
        }
        std::fflush(stdout);
        server.run(signals);
        ::close(signals);
        return 0;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "loadboard-sim: %s\nTry --help.\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "loadboard-sim: %s\n", error.what());
        return 1;
    }
}
