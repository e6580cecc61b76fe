// SPDX-License-Identifier: MIT
#include "registertool/setting_table.h"

#include "registertool/register_lines.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace zor {

namespace {

constexpr std::string_view wholeTable = "Select * from Setting";
constexpr std::string_view firstShown = "Select * from Setting order by Name";

/// In the order in which a register is taken over.
constexpr std::string_view takenColumns[] = {"Name",       "Address", "Description", "TestReg",     "RFReg",
                                             "DigitalReg", "MiscReg", "StatusReg",   "R",           "W",
                                             "bit7",       "bit6",    "bit5",        "bit4",        "bit3",
                                             "bit2",       "bit1",    "bit0",        "DefaultValue"};

/// Letters of hexadecimal digits count alike in either case, as they do to the store.
bool sameAddress(std::string_view a, std::string_view b) {
    auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::ranges::equal(a, b, {}, upper, upper);
}

std::string textOf(const RecordSource& source, std::string_view column) {
    return source.value(column).value_or(std::string());
}

bool truthOf(const RecordSource& source, std::string_view column) {
    return source.value(column) == "True";
}

Setting settingOf(const RecordSource& source) {
    Setting setting;
    setting.key = source.key();
    setting.Name = textOf(source, "Name");
    setting.Address = textOf(source, "Address");
    setting.Description = textOf(source, "Description");
    setting.TestReg = truthOf(source, "TestReg");
    setting.RFReg = truthOf(source, "RFReg");
    setting.DigitalReg = truthOf(source, "DigitalReg");
    setting.MiscReg = truthOf(source, "MiscReg");
    setting.R = truthOf(source, "R");
    setting.W = truthOf(source, "W");
    for (std::size_t number = 0; number < setting.bit.size(); ++number) {
        setting.bit[number] = textOf(source, "bit" + std::to_string(number));
    }
    setting.DefaultValue = textOf(source, "DefaultValue");
    setting.HexValue = textOf(source, "HexValue");
    setting.BinaryValue = textOf(source, "BinaryValue");
    return setting;
}

} // namespace

void SettingTable::attach(RegisterStore& store) {
    Settings = store.select(firstShown);
    whole = store.select(wholeTable);
    reread();
}

void SettingTable::detach() {
    Settings.reset();
    whole.reset();
    settings.clear();
    shownRows.clear();
    rowsInSight.clear();
    ++generationNumber;
    showsOthers.emit();
}

void SettingTable::reread() {
    whole->reread();
    Settings->reread();
    settings.clear();
    settings.reserve(whole->count());
    for (whole->moveFirst(); !whole->pastLast(); whole->moveNext()) {
        settings.push_back(settingOf(*whole));
    }
    ++generationNumber;
    takeShown();
}

void SettingTable::fill(RecordSource& registers) {
    for (registers.moveFirst(); !registers.pastLast(); registers.moveNext()) {
        whole->addRow();
        for (std::string_view column : takenColumns) {
            whole->setValue(column, registers.value(column));
        }
        StoredValue value = registers.value("DefaultValue");
        whole->setValue("HexValue", value);
        whole->setValue("BinaryValue", binaryValue(value.value_or(std::string())));
        whole->save();
    }
    reread();
}

std::optional<std::size_t> SettingTable::find(std::string_view address) {
    if (!attached()) {
        return std::nullopt;
    }
    whole->find("Address = '" + std::string(address) + "'");
    return whole->pastLast() ? std::nullopt : std::optional(whole->position());
}

std::optional<std::size_t> SettingTable::findInQuery(std::string_view criterion) {
    if (!attached()) {
        return std::nullopt;
    }
    Settings->find(criterion);
    if (Settings->pastLast()) {
        return std::nullopt;
    }
    auto row = std::ranges::find(settings, Settings->key(), &Setting::key);
    return row == settings.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(row - settings.begin()));
}

void SettingTable::storeValue(std::size_t row, const std::string& hexValue) {
    if (!attached()) {
        return;
    }
    std::string binary = binaryValue(hexValue);
    whole->moveTo(row);
    whole->setValue("HexValue", hexValue);
    whole->setValue("BinaryValue", binary);
    whole->save();
    settings[row].HexValue = hexValue;
    settings[row].BinaryValue = std::move(binary);
    stored.emit(row);
}

void SettingTable::storeRead(std::size_t row, const std::string& hexValue) {
    if (row < settings.size()) {
        settings[row].readValue = hexValue;
    }
    storeValue(row, hexValue);
}

const Setting* SettingTable::at(std::string_view address) const {
    auto row = std::ranges::find_if(
        settings, [address](const Setting& setting) { return sameAddress(setting.Address, address); });
    return row == settings.end() ? nullptr : &*row;
}

void SettingTable::narrow() {
    takeWanted();
    showsOthers.emit();
}

bool SettingTable::putInSight(std::size_t row) {
    auto place = std::ranges::find(rowsInSight, row);
    bool isIn = place != rowsInSight.end();
    auto among = std::ranges::find(shownRows, row);
    bool shouldBe = among != shownRows.end() && (!wanted || wanted(settings[row]));
    if (isIn && !shouldBe) {
        rowsInSight.erase(place);
    } else if (shouldBe && !isIn) {
        // Behind those in sight that the query has in front of it.
        auto next = rowsInSight.begin();
        for (auto before = shownRows.begin(); before != among; ++before) {
            if (next != rowsInSight.end() && *next == *before) {
                ++next;
            }
        }
        rowsInSight.insert(next, row);
    }
    return shouldBe;
}

void SettingTable::takeWanted() {
    rowsInSight.clear();
    std::ranges::copy_if(shownRows, std::back_inserter(rowsInSight),
                         [this](std::size_t row) { return !wanted || wanted(settings[row]); });
}

void SettingTable::show(std::string_view query) {
    if (attached()) {
        Settings->setQuery(query);
        takeShown();
    }
}

void SettingTable::rereadShown() {
    if (attached()) {
        Settings->reread();
        takeShown();
    }
}

void SettingTable::takeShown() {
    std::unordered_map<std::int64_t, std::size_t> byKey;
    for (std::size_t row = 0; row < settings.size(); ++row) {
        byKey.emplace(settings[row].key, row);
    }
    shownRows.clear();
    for (Settings->moveFirst(); !Settings->pastLast(); Settings->moveNext()) {
        // A row that another program put there meanwhile is not ours.
        if (auto row = byKey.find(Settings->key()); row != byKey.end()) {
            shownRows.push_back(row->second);
        }
    }
    takeWanted();
    showsOthers.emit();
}

} // namespace zor
