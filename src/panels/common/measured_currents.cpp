// SPDX-License-Identifier: MIT
#include "panels/common/measured_currents.h"

#include "host/files.h"
#include "platform/platform.h"
#include "support/csv.h"
#include "support/error.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

constexpr const char* fileName = "ZOR-currents.csv";
/// No bench measures anywhere near so much. In bytes.
constexpr std::uintmax_t longestFile = 1U << 20;
const std::vector<std::string> columns = {"Chip",      "Supply (V)", "State", "Current (uA)",
                                          "Step (uA)", "Board",      "Time"};

std::filesystem::path userFile(const Platform& platform, bool toWrite) {
    bool own = mayWrite(platform.programFolder);
    std::filesystem::path users = platform.userFolder / fileName;
    std::error_code ignored;
    if (toWrite && !own) {
        std::filesystem::create_directories(platform.userFolder, ignored);
    }
    bool taken = !own && (toWrite || std::filesystem::exists(users, ignored));
    return taken ? users : platform.programFolder / fileName;
}

double numberAt(const CsvRow& row, std::size_t column) {
    const std::string& text = row.fields[column];
    std::optional<double> number = readNumericPrefix(text);
    if (!number || numericPrefixLength(text) != text.size() || *number < 0) {
        throw CsvError(row.line, column + 1, "no number");
    }
    return *number;
}

} // namespace

std::vector<MeasuredCurrent> parseCurrents(std::string_view text) {
    std::vector<MeasuredCurrent> found;
    std::vector<CsvRow> rows = readCsv(text);
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const CsvRow& row = rows[place];
        if (place == 0) {
            if (row.fields != columns) {
                throw CsvError(row.line, 1, "other columns");
            }
            continue;
        }
        if (row.fields.size() != columns.size()) {
            throw CsvError(row.line, row.fields.size(), "another number of fields");
        }
        found.push_back({row.fields[0], row.fields[1], row.fields[2], numberAt(row, 3), numberAt(row, 4),
                         row.fields[5], row.fields[6]});
    }
    return found;
}

std::string formatCurrents(const std::vector<MeasuredCurrent>& currents) {
    std::string text = csvLine(columns);
    for (const MeasuredCurrent& one : currents) {
        text += csvLine({one.chip, one.volts, one.state, numberText(one.microamps), numberText(one.step),
                         one.board, one.time});
    }
    return text;
}

void MeasuredCurrents::read(const Platform& platform) {
    currents.clear();
    std::filesystem::path file = userFile(platform, false);
    std::error_code unknown;
    if (std::filesystem::exists(file, unknown)) {
        currents = parseCurrents(readFile(file, longestFile));
    }
}

void MeasuredCurrents::replace(const Platform& platform, const std::vector<MeasuredCurrent>& fresh) {
    // Another window of the program may have measured meanwhile.
    read(platform);
    keep(fresh);
    writeFileWhole(userFile(platform, true), formatCurrents(currents));
}

void MeasuredCurrents::keep(const std::vector<MeasuredCurrent>& fresh) {
    std::erase_if(currents, [&fresh](const MeasuredCurrent& old) {
        return std::any_of(fresh.begin(), fresh.end(), [&old](const MeasuredCurrent& one) {
            return one.chip == old.chip && one.volts == old.volts;
        });
    });
    currents.insert(currents.end(), fresh.begin(), fresh.end());
}

std::string MeasuredCurrents::nearestVolts(std::string_view chip, double volts) const {
    const MeasuredCurrent* nearest = nullptr;
    auto distance = [volts](const MeasuredCurrent& one) {
        return std::abs(numericPrefix(one.volts) - volts);
    };
    for (const MeasuredCurrent& one : currents) {
        if (one.chip == chip && (nearest == nullptr || distance(one) < distance(*nearest))) {
            nearest = &one;
        }
    }
    return nearest == nullptr ? std::string() : nearest->volts;
}

const MeasuredCurrent* MeasuredCurrents::find(std::string_view chip, std::string_view volts,
                                              std::string_view state) const {
    auto found = std::find_if(currents.begin(), currents.end(), [&](const MeasuredCurrent& one) {
        return one.chip == chip && one.volts == volts && one.state == state;
    });
    return found == currents.end() ? nullptr : &*found;
}

} // namespace zor
