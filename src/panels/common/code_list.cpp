// SPDX-License-Identifier: MIT
#include "panels/common/code_list.h"

#include <utility>

namespace zor {

CodeList::CodeList(Form& owner, std::string name)
    : ListBox(owner, std::move(name))
    , codeTaking(chosen.subscribe([this] { takeCode(); })) {}

void CodeList::fill(std::vector<Entry> newEntries) {
    std::vector<std::string> texts;
    codes.clear();
    for (Entry& entry : newEntries) {
        texts.push_back(std::move(entry.text));
        codes.push_back(entry.code);
    }
    setEntries(std::move(texts));
}

void CodeList::fill(const std::vector<std::string>& texts) {
    codes.clear();
    for (std::size_t row = 0; row < texts.size(); ++row) {
        codes.push_back(static_cast<int>(row));
    }
    setEntries(texts);
}

std::optional<std::string> CodeList::textOfCode(int code) const {
    std::optional<int> row = rowOfCode(code);
    return row ? std::optional(entries()[static_cast<std::size_t>(*row)]) : std::nullopt;
}

std::optional<int> CodeList::rowOfCode(int code) const {
    for (std::size_t row = 0; row < codes.size(); ++row) {
        if (codeOfRow(row) == code) {
            return static_cast<int>(row);
        }
    }
    return std::nullopt;
}

std::optional<int> CodeList::codeOfRow(std::size_t row) const {
    return codeOfText ? codeOfText(entries()[row]) : std::optional(codes[row]);
}

void CodeList::takeCode() {
    if (codeOfText) {
        ownCode = codeOfText(text()).value_or(ownCode);
    } else if (position() >= 0) {
        ownCode = codes[static_cast<std::size_t>(position())];
    }
}

std::vector<int> CodeList::codesBehind() const {
    std::vector<int> kept = codes;
    kept.push_back(ownCode);
    return kept;
}

void CodeList::putCodesBehind(const std::vector<int>& kept) {
    codes.assign(kept.begin(), kept.end() - 1);
    ownCode = kept.back();
}

ScaledList::ScaledList(Form& owner, std::string name, std::vector<double> atStandardCrystal,
                       int rowAfterRebuild, Coding coding)
    : CodeList(owner, std::move(name))
    , values(std::move(atStandardCrystal))
    , fixedRow(rowAfterRebuild)
    , rowCoding(coding) {}

void ScaledList::rebuild(float crystalRatio) {
    std::vector<Entry> entries;
    int count = static_cast<int>(values.size());
    for (const ScaledEntry& scaled : scaledList(values, crystalRatio)) {
        int row = static_cast<int>(entries.size());
        entries.push_back({scaled.text, rowCoding == Coding::Row ? row : count - row});
    }
    fill(std::move(entries));
    select(fixedRow);
}

std::vector<std::string> loadCapacitances() {
    std::vector<std::string> texts;
    for (int halves = 17; halves <= 32; ++halves) {
        texts.push_back(std::to_string(halves / 2) + (halves % 2 == 0 ? ".0" : ".5") + " pF");
    }
    return texts;
}

std::vector<std::string> outputPowers(std::size_t count) {
    static const std::vector<std::string> all = {"Pmax",   "-3 dB",  "-6 dB",  "-9 dB",
                                                 "-12 dB", "-15 dB", "-18 dB", "-21 dB"};
    return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::vector<double> deviations(int count, double stepKilohertz) {
    std::vector<double> values;
    for (int row = 1; row <= count; ++row) {
        values.push_back(row * stepKilohertz);
    }
    return values;
}

} // namespace zor
