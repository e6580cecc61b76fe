// SPDX-License-Identifier: MIT
// Runs the benchmarks and prints every declared ratio beside its limit: the median of those that were
// measured in turns, of the others the median of the subject over that of its yardstick. Exits 1 if a limit
// is passed.
#include "in_turns.h"
#include "ratio.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
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
                if (auto ratio = run.counters.find(ratioCounter); ratio != run.counters.end()) {
                    ratios[run.run_name.function_name] = ratio->second;
                }
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> medians;
    /// Of those that were measured with their yardstick, in turns.
    std::map<std::string, double> ratios;
    /// One did not run at all, so its limit was not tried.
    bool failed = false;
};

/// The median of the ratios that were measured in turns, or else of the subject over that of the yardstick;
/// nothing if one of them did not run.
std::optional<double> valueOf(const Ratio& ratio, const MedianReporter& reporter) {
    if (auto inTurns = reporter.ratios.find(ratio.subject); inTurns != reporter.ratios.end()) {
        return inTurns->second;
    }
    auto subject = reporter.medians.find(ratio.subject);
    auto yardstick = reporter.medians.find(ratio.yardstick);
    if (subject == reporter.medians.end() || yardstick == reporter.medians.end()) {
        return std::nullopt;
    }
    return subject->second / yardstick->second;
}

/// @return how many limits were passed
int printRatios(const MedianReporter& reporter) {
    int passed = 0;
    std::printf("\n%-36s %-36s %8s %8s\n", "subject", "yardstick", "ratio", "limit");
    for (const Ratio& ratio : declaredRatios()) {
        if (std::optional<double> value = valueOf(ratio, reporter)) {
            bool over = *value > ratio.limit;
            passed += over ? 1 : 0;
            std::printf("%-36s %-36s %8.3f %8.2f%s\n", ratio.subject.c_str(), ratio.yardstick.c_str(), *value,
                        ratio.limit, over ? "  over the limit" : "");
        }
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
    int passed = zor::benchmarks::printRatios(reporter);
    return passed == 0 && !reporter.failed ? 0 : 1;
}
