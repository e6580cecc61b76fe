// SPDX-License-Identifier: MIT
#include "store/register_list_store.h"

#include <system_error>

namespace zor::store {

namespace {

StoredValue truth(bool value) {
    return value ? "True" : "False";
}

void put(RecordSource& rows, const ListedChip& chip) {
    rows.addRow();
    rows.setValue("ChipID", std::to_string(chip.id));
    rows.setValue("Name", chip.name);
    rows.setValue("ProjectNr", chip.project);
    rows.setValue("TxFifoSize", chip.txFifoSize);
    rows.setValue("RxFifoSize", chip.rxFifoSize);
    rows.setValue("TxFifoAddress", chip.txFifoAddress);
    rows.setValue("RxFifoAddress", chip.rxFifoAddress);
    rows.setValue("nFFS_control", truth(chip.fifoSelectLine));
    rows.save();
}

void put(RecordSource& rows, const ListedRegister& entry) {
    rows.addRow();
    rows.setValue("ChipID", std::to_string(entry.chip));
    rows.setValue("Name", entry.name);
    rows.setValue("Address", entry.address);
    rows.setValue("Description", entry.description);
    rows.setValue("TestReg", truth(entry.test));
    rows.setValue("RFReg", truth(entry.radio));
    rows.setValue("DigitalReg", truth(entry.digital));
    rows.setValue("MiscReg", truth(entry.misc));
    rows.setValue("StatusReg", truth(entry.status));
    rows.setValue("R", truth(entry.readable));
    rows.setValue("W", truth(entry.writable));
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
        put(*chips, chip);
    }
    auto registers = store.select("Select * from Register");
    for (const ListedRegister& entry : list.registers) {
        put(*registers, entry);
    }
    transaction.commit();
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
