// SPDX-License-Identifier: MIT
#include "simulator/air.h"

#include "simulator/command_arguments.h"

#include <utility>

namespace zor::sim {

namespace {

constexpr int longestInterval = 3'600'000; // ms
constexpr int shortestInterval = 10;
constexpr int greatestLoss = 300; // dB
constexpr int greatestCrystalError = 1000;
constexpr int lastNumber = 99'999;
constexpr int lowestBeacon = 100'000'000; // Hz
constexpr int highestBeacon = 1'000'000'000;
constexpr int fastestBeacon = 1'000'000; // bit/s

std::pair<std::string_view, std::string_view> split(std::string_view text) {
    auto blank = text.find(' ');
    return {text.substr(0, blank),
            blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1)};
}

bool setFarEnd(Air& air, std::size_t, std::string_view text) {
    auto [name, interval] = split(text);
    auto mode = farEndMode(name);
    auto time =
        interval.empty() ? std::optional(1000) : readNumber(interval, shortestInterval, longestInterval);
    if (!mode || !time || air.farEnd() == nullptr) {
        return false;
    }
    air.farEnd()->setMode(*mode, std::chrono::milliseconds(*time));
    return true;
}

bool setBeacon(Air& air, std::size_t, std::string_view text) {
    auto [frequencyText, rateText] = split(text);
    auto frequency = readNumber(frequencyText, lowestBeacon, highestBeacon);
    auto rate = rateText.empty() ? std::nullopt : readNumber(rateText, 1, fastestBeacon);
    if (!frequency || (!rate && !rateText.empty()) || air.farEnd() == nullptr) {
        return false;
    }
    air.farEnd()->setBeacon(*frequency, rate ? std::optional<double>(*rate) : std::nullopt);
    return true;
}

bool loseNumber(Air& air, std::size_t, std::string_view text) {
    auto number = readNumber(text, 1, lastNumber);
    if (!number || air.farEnd() == nullptr) {
        return false;
    }
    air.farEnd()->lose(*number);
    return true;
}

bool setLoss(Air& air, std::size_t, std::string_view text) {
    auto loss = readNumber(text, 0, greatestLoss);
    if (loss) {
        air.ether().setPathLoss(*loss);
    }
    return loss.has_value();
}

bool setCrystal(Air& air, std::size_t index, std::string_view text) {
    auto ppm = readNumber(text, -greatestCrystalError, greatestCrystalError);
    if (ppm) {
        air.station(index).setCrystalError(*ppm);
    }
    return ppm.has_value();
}

bool setFarCrystal(Air& air, std::size_t, std::string_view text) {
    auto ppm = readNumber(text, -greatestCrystalError, greatestCrystalError);
    if (!ppm || air.farEnd() == nullptr) {
        return false;
    }
    air.farEnd()->setCrystalError(*ppm);
    return true;
}

struct Statement {
    std::string_view word;
    std::string_view form;
    std::string_view meaning;
    bool (*run)(Air& air, std::size_t index, std::string_view text);
};

// clang-format off
constexpr Statement statements[] = {
    {"loss",       "loss DB",         "path loss between any two stations, at first 60",     setLoss},
    {"crystal",    "crystal PPM",     "how far the board's crystal is off",                  setCrystal},
    {"far",        "far MODE [MS]",   "far end: silent, numbered, echo, carrier, lively; each MS", setFarEnd},
    {"beacon",     "beacon HZ [BITS]", "far end: a carrier there, with BITS a second of data", setBeacon},
    {"farcrystal", "farcrystal PPM",  "how far the far end's crystal is off",                setFarCrystal},
    {"lose",       "lose N",          "the far end's packet of that number fades away",      loseNumber},
};
// clang-format on

} // namespace

void Air::add(Board& board) {
    first = first == nullptr ? &board : first;
    stations.push_back(std::make_unique<RadioStation>(board, space));
}

void Air::addFarEnd() {
    far = std::make_unique<FarEnd>(*first, space);
}

std::optional<ControlResult> airControl(Air& air, std::size_t index, std::string_view statement) {
    auto [word, text] = split(statement);
    for (const Statement& known : statements) {
        if (known.word == word) {
            bool good = known.run(air, index, text);
            return good ? ControlResult{}
                        : ControlResult{ControlOutcome::failed, "expected: " + std::string(known.form)};
        }
    }
    return std::nullopt;
}

std::string airControlHelp() {
    std::string help;
    for (const Statement& statement : statements) {
        std::string form(statement.form);
        form.resize(20, ' ');
        help += "  " + form + std::string(statement.meaning) + "\n";
    }
    return help;
}

} // namespace zor::sim
