// SPDX-License-Identifier: MIT
#include "store/sqlite_register_store.h"

#include "store/register_list_store.h"
#include "store/translator.h"
#include "virtual/virtual_machine.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <fstream>

namespace zor::store {

namespace {

namespace fs = std::filesystem;

constexpr const char* chips = R"(
chip 1 "One" "P1" 64 0 3E null registers
chip 2 "Two" "P2" 0 64 null null line
register 1 02 "beta"  R,W,RF  80 8 "b7 b6 b5 b4 b3 b2 b1 b0" "second"
register 1 01 "Gamma" R,Test  01 8 "" ""
register 1 0a "alpha" W       0A 8 "" ""
register 1 30 "STATUS" R,Status 00 16 "s15 s14" ""
)";

class Store : public ::testing::Test {
  protected:
    Store() { makeDatabase(stores, file, readRegisterList(chips)); }

    [[nodiscard]] int failure() {
        try {
            (void)stores.open(file);
        } catch (const StoreError& error) {
            return error.number();
        }
        return 0;
    }
    static std::string names(RecordSource& rows) {
        std::string list;
        for (rows.moveFirst(); !rows.pastLast(); rows.moveNext()) {
            list += rows.value("Name").value_or("null") + " ";
        }
        return list;
    }

    zor::testing::TemporaryFolder folder;
    fs::path file = folder.path() / "ZOR.db";
    SqliteRegisterStores stores;
};

} // namespace

TEST_F(Store, RowsComeAsStoredOrInTheOrderAskedForWithoutRegardToCase) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Register where ChipID = 1");
    EXPECT_EQ(names(*rows), "beta Gamma alpha STATUS ");
    rows->setQuery("Select * from Register where ChipID = 1 AND Databits = 8 ORDER BY Name");
    EXPECT_EQ(names(*rows), "alpha beta Gamma ");
    rows->setQuery("Select * from Register where ChipID = 1 AND Databits = 8 ORDER BY Address");
    EXPECT_EQ(names(*rows), "Gamma beta alpha ");
}

TEST_F(Store, AValueIsReadByNameAndNumberAndNullIsNone) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Chip");
    EXPECT_EQ(rows->value("txfifosize"), "64");
    EXPECT_EQ(rows->value(1), "One");
    EXPECT_EQ(rows->value("RxFifoAddress"), std::nullopt);
    EXPECT_EQ(rows->value("nFFS_control"), "False");
    rows->moveNext();
    EXPECT_EQ(rows->value("nFFS_control"), "True");
    EXPECT_THROW((void)rows->value("Colour"), StoreError);
}

TEST_F(Store, ASearchBeginsAtTheFirstRowAndEndsPastTheLast) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Register where ChipID = 1");
    rows->find("Address = '0A'");
    EXPECT_EQ(rows->position(), 2u);
    rows->find("Address = 01");
    EXPECT_EQ(rows->position(), 1u);
    rows->find("ChipID = 2");
    EXPECT_TRUE(rows->pastLast());
    EXPECT_FALSE(rows->beforeFirst());
    rows->setQuery("Select * from Register where ChipID = 2");
    EXPECT_TRUE(rows->pastLast() && rows->beforeFirst());
}

TEST_F(Store, ARowAddedOrChangedIsThereForOthersToReread) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Setting order by Name");
    rows->addRow();
    rows->setValue("Name", "RX");
    rows->setValue("W", "True");
    rows->setValue("HexValue", "80");
    rows->save();
    EXPECT_EQ(rows->value(1), "80");
    auto others = store->select("Select * from Setting where W = True");
    EXPECT_EQ(others->key(), rows->key());
    EXPECT_EQ(others->value("Description"), std::nullopt);
    rows->setValue("HexValue", "5F");
    rows->setValue("BinaryValue", std::nullopt);
    rows->save();
    EXPECT_EQ(others->value("HexValue"), "80");
    others->reread();
    EXPECT_EQ(others->value("HexValue"), "5F");
}

TEST_F(Store, RowsOfAnotherSourceAreAddedInItsOrderWhetherStoredInItOrNot) {
    auto store = stores.open(file);
    constexpr ColumnOrigin columns[] = {
        {"Name", "Name"},
        {"R", "R"},
        {"HexValue", "DefaultValue"},
        {"bit7", "bit7"},
        {"BinaryValue", "DefaultValue", [](std::string_view text) { return "of " + std::string(text); }}};
    auto registers =
        store->select("Select * from Register where ChipID = 1", RegisterStore::Values::WhenAsked);
    auto settings = store->select("Select * from Setting");
    settings->addRowsOf(*registers, columns);
    EXPECT_EQ(names(*settings), "beta Gamma alpha STATUS ");
    settings->moveTo(0);
    EXPECT_EQ(settings->value("HexValue"), "80");
    EXPECT_EQ(settings->value("BinaryValue"), "of 80");
    EXPECT_EQ(settings->value("R"), "True");
    EXPECT_EQ(settings->value("bit7"), "b7");
    store->run("delete * from Setting");
    registers->setQuery("Select * from Register where ChipID = 1 AND Databits = 8 ORDER BY Address");
    settings->reread();
    settings->addRowsOf(*registers, columns);
    EXPECT_EQ(names(*settings), "Gamma beta alpha ");
}

TEST_F(Store, EachRowIsHandedOverAsTheTableHasItNow) {
    auto store = stores.open(file);
    auto chipRows = store->select("Select * from Chip");
    auto other = store->select("Select * from Chip");
    other->setValue("Name", "Other");
    other->save();
    constexpr std::string_view columns[] = {"name", "TxFifoAddress", "nFFS_control"};
    std::string told;
    auto take = [&told](std::int64_t key, RowView row) {
        told += std::to_string(key);
        for (const auto& value : row) {
            told += " " + std::string(value.value_or("null"));
        }
        told += "; ";
    };
    chipRows->readEach(columns, take);
    EXPECT_EQ(told, "1 Other 3E False; 2 Two null True; ");
    EXPECT_EQ(chipRows->value("Name"), "One") << "the source's own rows stay";
    constexpr std::string_view unknown[] = {"Nonsense"};
    EXPECT_THROW(chipRows->readEach(unknown, take), StoreError);
}

TEST_F(Store, ASourceThatReadsWhenAskedHasTheRowsThatWereHandedOver) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Chip", RegisterStore::Values::WhenAsked);
    constexpr std::string_view columns[] = {"Name"};
    std::string told;
    rows->readEach(columns, [&told](std::int64_t, RowView row) { told += std::string(*row[0]) + " "; });
    EXPECT_EQ(told, "One Two ");
    // Numbers of rows go on meaning what they meant when the rows were handed over.
    store->run("delete * from Chip");
    EXPECT_EQ(rows->count(), 2U);
    rows->moveTo(1);
    EXPECT_EQ(rows->value("Name"), std::nullopt) << "gone meanwhile";
}

TEST_F(Store, WhatIsSavedBeforeTheValuesAreReadIsAmongThem) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Chip", RegisterStore::Values::WhenAsked);
    rows->moveTo(1);
    rows->setValue("Name", "Changed");
    rows->save();
    EXPECT_EQ(names(*rows), "One Changed ");
    rows->setValue("Name", std::nullopt);
    EXPECT_EQ(names(*store->select("Select * from Chip")), "One Changed ") << "not saved yet";
    rows->moveTo(0);
    rows->save();
    EXPECT_EQ(names(*rows), "null Changed ");
}

TEST_F(Store, AValueIsNeverPartOfAText) {
    auto store = stores.open(file);
    auto rows = store->select("Select * from Setting order by Name");
    const std::string nasty = "'); DROP TABLE Chip; --";
    rows->addRow();
    rows->setValue("Name", nasty);
    rows->save();
    rows->reread();
    EXPECT_EQ(rows->value("Name"), nasty);
    EXPECT_EQ(store->select("Select * from Chip")->count(), 2u);
}

TEST_F(Store, WhatIsNotCommittedIsTakenBack) {
    auto store = stores.open(file);
    {
        StoreTransaction transaction(*store);
        store->run("delete * from Chip");
    }
    EXPECT_EQ(store->select("Select * from Chip")->count(), 2u);
    {
        StoreTransaction transaction(*store);
        store->run("delete * from Chip");
        transaction.commit();
    }
    EXPECT_EQ(stores.open(file)->select("Select * from Chip")->count(), 0u);
}

TEST_F(Store, TellsEveryTextThatReachesIt) {
    std::string heard;
    stores.asked = [&](std::string_view text) { heard += std::string(text) + "; "; };
    auto store = stores.open(file);
    store->run("delete * from Setting");
    store->select("Select * from Chip")->find("ChipID = 2");
    EXPECT_EQ(heard, "delete * from Setting; Select * from Chip; ChipID = 2; ");
}

TEST_F(Store, AFileThatMayNotBeWrittenIsRefused) {
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_EQ(failure(), permissionDenied);
}

TEST_F(Store, AFileThatIsNotThereOrNoFileIsRefused) {
    fs::remove(file);
    EXPECT_EQ(failure(), fileNotFound);
    fs::create_directory(file);
    EXPECT_EQ(failure(), pathFileAccess);
    file = folder.path() / "nowhere" / "ZOR.db";
    EXPECT_EQ(failure(), pathNotFound);
}

TEST_F(Store, ADamagedFileIsRefused) {
    std::ofstream(file, std::ios::binary) << "This is no database at all, but it is long enough to look at.";
    EXPECT_EQ(failure(), deviceInputOutput);
}

TEST_F(Store, AFileWithDamagedPagesIsRefused) {
    auto size = fs::file_size(file);
    ASSERT_GT(size, 8192u);
    std::fstream bytes(file, std::ios::binary | std::ios::in | std::ios::out);
    for (std::uintmax_t at = 4096; at < size; ++at) {
        bytes.seekp(static_cast<std::streamoff>(at));
        bytes.put('\x55');
    }
    bytes.close();
    EXPECT_EQ(failure(), deviceInputOutput);
}

TEST_F(Store, AFileThatLacksAColumnIsRefusedByItsName) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE)
        .exec("ALTER TABLE Setting DROP COLUMN BinaryValue");
    try {
        (void)stores.open(file);
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_EQ(error.number(), notOfThisStore);
        EXPECT_STREQ(error.what(), "The table Setting has no column BinaryValue");
    }
}

TEST_F(Store, AFileThatAnotherProgramWritesIsRefusedForThatTimeOnly) {
    SqliteRegisterStores hasty(SqliteRegisterStores::Limits{.patience = std::chrono::milliseconds(1)});
    auto store = hasty.open(file);
    {
        SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
        SQLite::Transaction writing(other, SQLite::TransactionBehavior::IMMEDIATE);
        try {
            store->run("delete * from Setting");
            FAIL();
        } catch (const StoreError& error) {
            EXPECT_EQ(error.number(), permissionDenied);
        }
    }
    store->run("delete * from Setting");
}

TEST_F(Store, AFullDiskFailsARowAndLeavesTheFileAsItWas) {
    SqliteRegisterStores small(SqliteRegisterStores::Limits{.pages = 24});
    auto store = small.open(file);
    auto rows = store->select("Select * from Setting order by Name");
    int failed = 0;
    for (int i = 0; i < 100 && failed == 0; ++i) {
        rows->addRow();
        rows->setValue("Description", std::string(4000, 'x'));
        try {
            rows->save();
        } catch (const StoreError& error) {
            failed = error.number();
        }
    }
    EXPECT_EQ(failed, diskFull);
    std::size_t saved = rows->count();
    rows->reread();
    EXPECT_EQ(rows->count(), saved);
    EXPECT_EQ(stores.open(file)->select("Select * from Chip")->count(), 2u);
}

TEST_F(Store, TwoProgramsOnOneFileSeeEachOthersRows) {
    SqliteRegisterStores others;
    auto one = stores.open(file);
    auto two = others.open(file);
    for (int i = 0; i < 50; ++i) {
        for (RegisterStore* store : {one.get(), two.get()}) {
            auto rows = store->select("Select * from Setting order by Name");
            rows->addRow();
            rows->setValue("Name", std::to_string(i));
            rows->save();
        }
    }
    EXPECT_EQ(one->select("Select * from Setting order by Name")->count(), 100u);
    EXPECT_EQ(failure(), 0);
}

} // namespace zor::store
