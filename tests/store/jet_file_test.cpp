// SPDX-License-Identifier: MIT
#include "store/jet_file.h"

#include "host/files.h"
#include "platform/register_store.h"
#include "store/jet_writer.h"
#include "store/schema.h"

#include <gtest/gtest.h>

#include <random>

#include <unistd.h>

namespace zor::testing {

namespace {

namespace fs = std::filesystem;

/// A folder that goes with the test.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "zor-jet-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { fs::remove_all(folder); }

    [[nodiscard]] fs::path file(const std::string& bytes) const {
        fs::path place = folder / "ZOR.mdb";
        writeFileWhole(place, bytes);
        return place;
    }

  private:
    fs::path folder;
};

JetWriter::Kind kindOf(store::ColumnKind kind) {
    switch (kind) {
    case store::ColumnKind::Integer:
        return JetWriter::Kind::Long;
    case store::ColumnKind::Boolean:
        return JetWriter::Kind::Boolean;
    case store::ColumnKind::Text:
        break;
    }
    return JetWriter::Kind::Text;
}

std::vector<JetWriter::Column> columnsOf(std::string_view table, std::string_view but = {}) {
    std::vector<JetWriter::Column> columns;
    for (const store::Column& column : store::table(table)->columns) {
        if (column.name != but) {
            columns.push_back({std::string(column.name), kindOf(column.kind)});
        }
    }
    return columns;
}

JetWriter::Row registerRow(const char* name, const char* address, const char* flags, const char* value,
                           const char* bits) {
    JetWriter::Row row = {"3", name, address, "What it is for"};
    for (const char* flag = flags; *flag != '\0'; ++flag) {
        row.emplace_back(std::string(1, *flag));
    }
    for (int bit = 15; bit >= 0; --bit) {
        row.push_back(bit < 8 ? std::optional("B" + std::to_string(bit)) : std::nullopt);
    }
    row.emplace_back(value);
    row.emplace_back(bits);
    return row;
}

std::string sample(std::string_view but = {}) {
    JetWriter writer;
    writer.addTable("Chip", columnsOf("Chip"),
                    {{"3", "Old chip", "P3", "64", "32", "3E", std::nullopt, "1"},
                     {"7", "Another", std::nullopt, "0", "0", std::nullopt, std::nullopt, "0"}});
    std::vector<JetWriter::Row> rows;
    if (but.empty()) {
        rows = {registerRow("RX_CTRL", "0A", "0100011", "80", "8"),
                registerRow("STATE", "30", "1001110", "1234", "16")};
    }
    writer.addTable("Register", columnsOf("Register", but), rows);
    return writer.bytes();
}

std::string failureOf(const fs::path& file) {
    try {
        (void)store::readJetFile(file);
    } catch (const StoreError& error) {
        return std::to_string(error.number()) + " " + error.what();
    }
    return "none";
}

class JetFile : public ::testing::Test {
  protected:
    TemporaryFolder folder;
};

} // namespace

TEST_F(JetFile, GivesChipsAndRegisters) {
    RegisterList list = store::readJetFile(folder.file(sample()));
    ASSERT_EQ(list.chips.size(), 2u);
    EXPECT_EQ(list.chips[0].id, 3);
    EXPECT_EQ(list.chips[0].name, "Old chip");
    EXPECT_EQ(list.chips[0].project, "P3");
    EXPECT_EQ(list.chips[0].txFifoSize, "64");
    EXPECT_EQ(list.chips[0].txFifoAddress, "3E");
    EXPECT_EQ(list.chips[0].rxFifoAddress, std::nullopt);
    EXPECT_TRUE(list.chips[0].fifoSelectLine);
    EXPECT_FALSE(list.chips[1].fifoSelectLine);
    EXPECT_EQ(list.chips[1].project, "");
    ASSERT_EQ(list.registers.size(), 2u);
    const ListedRegister& first = list.registers[0];
    EXPECT_EQ(first.chip, 3);
    EXPECT_EQ(first.name, "RX_CTRL");
    EXPECT_EQ(first.address, "0A");
    EXPECT_EQ(first.description, "What it is for");
    EXPECT_TRUE(first.radio && first.readable && first.writable);
    EXPECT_FALSE(first.test || first.digital || first.misc || first.status);
    EXPECT_EQ(first.bitNames[7], "B7");
    EXPECT_EQ(first.bitNames[8], "");
    EXPECT_EQ(first.defaultValue, "80");
    EXPECT_EQ(first.bits, 8);
    EXPECT_TRUE(list.registers[1].status && list.registers[1].test && list.registers[1].misc);
    EXPECT_EQ(list.registers[1].bits, 16);
}

TEST_F(JetFile, RefusesWhatIsNone) {
    EXPECT_EQ(failureOf(folder.file("This is not a database.")), "1227 The file is no Jet database");
    EXPECT_EQ(failureOf(folder.file("")).substr(0, 5), "1227 ");
    EXPECT_EQ(failureOf("/no/such/folder/ZOR.mdb").substr(0, 3), "76 ");
}

TEST_F(JetFile, RefusesOneThatLacksATableOrAColumn) {
    JetWriter empty;
    EXPECT_EQ(failureOf(folder.file(empty.bytes())), "1227 The file has no table Chip");
    EXPECT_EQ(failureOf(folder.file(sample("Databits"))), "1227 The table Register has no column Databits");
}

TEST_F(JetFile, SurvivesAFileThatIsCutShort) {
    std::string whole = sample();
    for (std::size_t length = 0; length < whole.size(); length += 1021) {
        // Its tables may be found or not; it ends either way.
        EXPECT_FALSE(failureOf(folder.file(whole.substr(0, length))).empty());
    }
}

TEST_F(JetFile, SurvivesDamagedPages) {
    const std::string whole = sample();
    std::mt19937 random(7);
    for (int round = 0; round < 150; ++round) {
        std::string damaged = whole;
        for (int byte = 0; byte < 6; ++byte) {
            // Bytes that mean something are damaged rather than the room between them.
            std::size_t at = random() % damaged.size();
            while (damaged[at] == '\0' && random() % 8 != 0) {
                at = random() % damaged.size();
            }
            damaged[at] = static_cast<char>(random());
        }
        EXPECT_FALSE(failureOf(folder.file(damaged)).empty());
    }
}

} // namespace zor::testing
