// SPDX-License-Identifier: MIT
#include "store/register_list_store.h"

#include "store/schema.h"
#include "support/letters.h"
#include "support/numbers.h"
#include "support/wording.h"

#include <algorithm>
#include <map>
#include <system_error>

namespace zor::store {

namespace {

int idAt(const RecordSource& row) {
    return roundToInt(numericPrefix(row.value("ChipID").value_or(std::string())));
}

void put(RecordSource& rows, const ListedChip& chip) {
    rows.setValue("ChipID", std::to_string(chip.id));
    rows.setValue("Name", chip.name);
    rows.setValue("ProjectNr", chip.project);
    rows.setValue("TxFifoSize", chip.txFifoSize);
    rows.setValue("RxFifoSize", chip.rxFifoSize);
    rows.setValue("TxFifoAddress", chip.txFifoAddress);
    rows.setValue("RxFifoAddress", chip.rxFifoAddress);
    rows.setValue("nFFS_control", truthText(chip.fifoSelectLine));
    rows.save();
}

void put(RecordSource& rows, const ListedRegister& entry) {
    rows.addRow();
    rows.setValue("ChipID", std::to_string(entry.chip));
    rows.setValue("Name", entry.name);
    rows.setValue("Address", entry.address);
    rows.setValue("Description", entry.description);
    rows.setValue("TestReg", truthText(entry.test));
    rows.setValue("RFReg", truthText(entry.radio));
    rows.setValue("DigitalReg", truthText(entry.digital));
    rows.setValue("MiscReg", truthText(entry.misc));
    rows.setValue("StatusReg", truthText(entry.status));
    rows.setValue("R", truthText(entry.readable));
    rows.setValue("W", truthText(entry.writable));
    for (std::size_t bit = entry.bitNames.size(); bit-- > 0;) {
        rows.setValue("bit" + std::to_string(bit), entry.bitNames[bit]);
    }
    rows.setValue("DefaultValue", entry.defaultValue);
    rows.setValue("Databits", std::to_string(entry.bits));
    rows.save();
}

} // namespace

void putRegisterList(RegisterStore& store, const RegisterList& list) {
    StoreTransaction transaction(store);
    auto chips = store.select("Select * from Chip");
    for (const ListedChip& chip : list.chips) {
        chips->addRow();
        put(*chips, chip);
    }
    auto registers = store.select("Select * from Register");
    for (const ListedRegister& entry : list.registers) {
        put(*registers, entry);
    }
    transaction.commit();
}

void replaceChips(RegisterStore& store, const RegisterList& list,
                  const std::function<void(int chip)>& dropRegisters) {
    auto chips = store.select("Select * from Chip");
    int last = 0;
    for (; !chips->pastLast(); chips->moveNext()) {
        last = std::max(last, idAt(*chips));
    }
    std::map<int, int> numbers;
    for (ListedChip chip : list.chips) {
        chips->moveFirst();
        while (!chips->pastLast() && !sameText(chips->value("Name").value_or(std::string()), chip.name)) {
            chips->moveNext();
        }
        int& number = numbers[chip.id];
        if (chips->pastLast()) {
            number = ++last;
            chips->addRow();
        } else {
            number = idAt(*chips);
            dropRegisters(number);
        }
        chip.id = number;
        put(*chips, chip);
    }
    auto registers = store.select("Select * from Register");
    for (ListedRegister entry : list.registers) {
        if (auto number = numbers.find(entry.chip); number != numbers.end()) {
            entry.chip = number->second;
            put(*registers, entry);
        }
    }
}

void makeDatabase(RegisterStores& stores, const std::filesystem::path& file, const RegisterList& list) {
    std::filesystem::path making = file;
    making += ".new";
    std::error_code failure;
    std::filesystem::remove(making, failure);
    stores.create(making);
    putRegisterList(*stores.open(making), list);
    std::filesystem::rename(making, file, failure);
    if (failure) {
        throw StoreError(pathFileAccess);
    }
}

} // namespace zor::store
