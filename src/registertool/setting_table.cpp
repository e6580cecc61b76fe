// SPDX-License-Identifier: MIT
#include "registertool/setting_table.h"

#include "registertool/register_lines.h"
#include "support/letters.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace zor {

namespace {

constexpr std::string_view wholeTable = "Select * from Setting";
constexpr std::string_view firstShown = "Select * from Setting order by Name";

/// In the order in which a register is taken over; it begins with its default value.
constexpr ColumnOrigin takenColumns[] = {{"Name", "Name"},
                                         {"Address", "Address"},
                                         {"Description", "Description"},
                                         {"TestReg", "TestReg"},
                                         {"RFReg", "RFReg"},
                                         {"DigitalReg", "DigitalReg"},
                                         {"MiscReg", "MiscReg"},
                                         {"StatusReg", "StatusReg"},
                                         {"R", "R"},
                                         {"W", "W"},
                                         {"bit7", "bit7"},
                                         {"bit6", "bit6"},
                                         {"bit5", "bit5"},
                                         {"bit4", "bit4"},
                                         {"bit3", "bit3"},
                                         {"bit2", "bit2"},
                                         {"bit1", "bit1"},
                                         {"bit0", "bit0"},
                                         {"DefaultValue", "DefaultValue"},
                                         {"HexValue", "DefaultValue"},
                                         {"BinaryValue", "DefaultValue", binaryValue}};

/// What of a row a walk over the chip reads, behind what tells the row from another program's.
constexpr std::string_view takenByWalk[] = {"Address", "HexValue", "BinaryValue"};

bool holds(RowView row, const Setting& setting) {
    return row[0] == setting.Address && row[1] == setting.HexValue && row[2] == binaryValue(setting.HexValue);
}

/// A register's columns in the order in which `takeRow` takes them.
constexpr std::string_view settingColumnNames[] = {
    "Name", "Address", "Description", "TestReg",      "RFReg",    "DigitalReg", "MiscReg",
    "R",    "W",       "bit0",        "bit1",         "bit2",     "bit3",       "bit4",
    "bit5", "bit6",    "bit7",        "DefaultValue", "HexValue", "BinaryValue"};

/// Fills a register as its row of the table has it.
void takeRow(Setting& setting, std::int64_t key, RowView row) {
    auto next = row.begin();
    auto text = [&next] { return (next++)->value_or(std::string_view()); };
    auto truth = [&next] { return *next++ == "True"; };
    setting.key = key;
    for (std::string* into : {&setting.Name, &setting.Address, &setting.Description}) {
        *into = text();
    }
    for (bool* into :
         {&setting.TestReg, &setting.RFReg, &setting.DigitalReg, &setting.MiscReg, &setting.R, &setting.W}) {
        *into = truth();
    }
    for (std::string& name : setting.bit) {
        name = text();
    }
    for (std::string* into : {&setting.DefaultValue, &setting.HexValue, &setting.BinaryValue}) {
        *into = text();
    }
}

} // namespace

void SettingTable::attach(RegisterStore& store) {
    database = &store;
    Settings = store.select(firstShown, RegisterStore::Values::WhenAsked);
    whole = store.select(wholeTable, RegisterStore::Values::WhenAsked);
    reread();
}

void SettingTable::detach() {
    Settings.reset();
    whole.reset();
    database = nullptr;
    unstored.clear();
    settings.clear();
    shownRows.clear();
    rowsInSight.clear();
    ++generationNumber;
    showsOthers.emit();
}

void SettingTable::reread() {
    unstored.clear();
    whole->reread();
    Settings->reread();
    takeRows();
    takeShown();
}

void SettingTable::takeRows() {
    std::vector<Setting> taken;
    // The next chip has about as many.
    taken.reserve(settings.capacity());
    whole->readEach(settingColumnNames,
                    [&taken](std::int64_t key, RowView row) { takeRow(taken.emplace_back(), key, row); });
    settings = std::move(taken);
    ++generationNumber;
}

void SettingTable::fill(const RecordSource& registers) {
    whole->addRowsOf(registers, takenColumns);
    takeRows();
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
    store(row, hexValue);
    take(row, hexValue);
}

void SettingTable::storeRead(std::size_t row, const std::string& hexValue) {
    if (row < settings.size()) {
        settings[row].readValue = hexValue;
    }
    storeValue(row, hexValue);
}

void SettingTable::takeRead(std::size_t row, const std::string& hexValue) {
    if (!attached()) {
        return;
    }
    Setting& setting = settings[row];
    bool asBefore = setting.readValue == hexValue && setting.HexValue == hexValue;
    setting.readValue = hexValue;
    unstored.push_back(row);
    // A walk over a chip finds most registers as they were; nothing that is shown of them changes then.
    if (!asBefore) {
        take(row, hexValue);
    }
}

void SettingTable::storeTaken() {
    if (unstored.empty()) {
        return;
    }
    StoreTransaction transaction(*database);
    // Most of what a walk reads stands there already, and looking costs a fraction of writing.
    std::vector<bool> held(settings.size());
    auto row = settings.begin();
    whole->readEach(takenByWalk, [&](std::int64_t key, RowView values) {
        row = std::ranges::lower_bound(row, settings.end(), key, {}, &Setting::key);
        if (row != settings.end() && row->key == key) {
            held[static_cast<std::size_t>(row - settings.begin())] = holds(values, *row);
        }
    });
    for (std::size_t taken : unstored) {
        if (!held[taken]) {
            store(taken, settings[taken].HexValue);
        }
    }
    transaction.commit();
    unstored.clear();
}

void SettingTable::store(std::size_t row, const std::string& hexValue) {
    whole->moveTo(row);
    whole->setValue("HexValue", hexValue);
    whole->setValue("BinaryValue", binaryValue(hexValue));
    whole->save();
}

void SettingTable::take(std::size_t row, const std::string& hexValue) {
    settings[row].HexValue = hexValue;
    settings[row].BinaryValue = binaryValue(hexValue);
    stored.emit(row);
}

const Setting* SettingTable::at(std::string_view address) const {
    if (std::exchange(indexed, generationNumber) != generationNumber) {
        firstOf.clear();
        for (std::size_t row = 0; row < settings.size(); ++row) {
            firstOf.emplace(upperCase(settings[row].Address), row);
        }
    }
    auto row = firstOf.find(upperCase(address));
    return row == firstOf.end() ? nullptr : &settings[row->second];
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

std::vector<std::size_t> SettingTable::rowsOf(std::string_view query) const {
    return attached() ? rowsIn(*database->select(query, RegisterStore::Values::WhenAsked))
                      : std::vector<std::size_t>();
}

std::vector<std::size_t> SettingTable::rowsIn(RecordSource& source) const {
    std::vector<std::size_t> rows;
    rows.reserve(source.count());
    for (source.moveFirst(); !source.pastLast(); source.moveNext()) {
        // The rows are in the order of their keys. One that another program put there meanwhile is not ours.
        auto row = std::ranges::lower_bound(settings, source.key(), {}, &Setting::key);
        if (row != settings.end() && row->key == source.key()) {
            rows.push_back(static_cast<std::size_t>(row - settings.begin()));
        }
    }
    return rows;
}

void SettingTable::takeShown() {
    shownRows = rowsIn(*Settings);
    takeWanted();
    showsOthers.emit();
}

} // namespace zor
