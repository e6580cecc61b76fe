// SPDX-License-Identifier: MIT
// Runs the benchmarks and prints, for every declared ratio, the median of the subject over the median of its
// yardstick beside the limit. Exits 1 if a limit is passed.
#include "ratio.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>

namespace zor::benchmarks {

namespace {

std::vector<Ratio>& ratios() {
    static std::vector<Ratio> declared;
    return declared;
}

/// Keeps the medians that the console shows.
class MedianReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            failed = failed || run.error_occurred;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                medians[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> medians;
    /// One did not run at all, so its limit was not tried.
    bool failed = false;
};

/// @return how many limits were passed
int printRatios(const std::map<std::string, double>& medians) {
    int passed = 0;
    std::printf("\n%-36s %-36s %8s %8s\n", "subject", "yardstick", "ratio", "limit");
    for (const Ratio& ratio : declaredRatios()) {
        auto subject = medians.find(ratio.subject);
        auto yardstick = medians.find(ratio.yardstick);
        if (subject == medians.end() || yardstick == medians.end()) {
            continue;
        }
        double value = subject->second / yardstick->second;
        bool over = value > ratio.limit;
        passed += over ? 1 : 0;
        std::printf("%-36s %-36s %8.3f %8.2f%s\n", ratio.subject.c_str(), ratio.yardstick.c_str(), value,
                    ratio.limit, over ? "  over the limit" : "");
    }
    return passed;
}

} // namespace

DeclareRatio::DeclareRatio(std::string subject, std::string yardstick, double limit) {
    ratios().push_back({std::move(subject), std::move(yardstick), limit});
}

const std::vector<Ratio>& declaredRatios() {
    return ratios();
}

} // namespace zor::benchmarks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // Interleaved repetitions, so that a machine whose speed drifts drifts for both sides.
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=7";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data()});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    zor::benchmarks::MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    int passed = zor::benchmarks::printRatios(reporter.medians);
    return passed == 0 && !reporter.failed ? 0 : 1;
}
