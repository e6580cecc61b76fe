// SPDX-License-Identifier: MIT
// The one file that knows the library for Jet databases.
#include "store/jet_file.h"

#include "host/apart.h"
#include "host/files.h"
#include "platform/register_store.h"
#include "store/schema.h"
#include "store/translator.h"
#include "support/csv.h"
#include "support/letters.h"
#include "support/numbers.h"

#include <mdbtools.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zor::store {

namespace {

constexpr const char* chipTable = "Chip";
constexpr const char* registerTable = "Register";
constexpr const char* errorLine = "Error";
constexpr const char* damaged = "The database is damaged";

struct CloseDatabase {
    void operator()(MdbHandle* handle) const { mdb_close(handle); }
};
struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};

/// A row's values by the columns' names as the schema spells them; a null is an empty text.
using JetRow = std::map<std::string, std::string, std::less<>>;

[[noreturn]] void fail(const std::string& what) {
    throw StoreError(notOfThisStore, what);
}

/// Walks through one of the file's tables.
class JetTable {
  public:
    JetTable(MdbHandle& database, const Table& ownSchema)
        : schema(ownSchema) {
        std::string name(schema.name);
        definition.reset(mdb_read_table_by_name(&database, name.data(), MDB_TABLE));
        if (!definition || mdb_read_columns(definition.get()) == nullptr) {
            fail("The file has no table " + name);
        }
        buffers.resize(schema.columns.size());
        for (std::size_t at = 0; at < schema.columns.size(); ++at) {
            // One byte more for the end of a text that fills it.
            buffers[at].resize(database.bind_size + 1);
            std::string column(schema.columns[at].name);
            if (mdb_bind_column_by_name(definition.get(), column.data(), buffers[at].data(), nullptr) < 0) {
                fail(column.insert(0, "The table " + name + " has no column "));
            }
        }
        mdb_rewind_table(definition.get());
    }

    bool next(JetRow& row) {
        if (mdb_fetch_row(definition.get()) == 0) {
            return false;
        }
        for (std::size_t at = 0; at < buffers.size(); ++at) {
            row[std::string(schema.columns[at].name)] = buffers[at].data();
        }
        return true;
    }

  private:
    const Table& schema;
    std::unique_ptr<MdbTableDef, FreeTable> definition;
    std::vector<std::vector<char>> buffers;
};

int number(const JetRow& row, std::string_view column) {
    return roundToInt(numericPrefix(row.find(column)->second));
}

const std::string& text(const JetRow& row, std::string_view column) {
    return row.find(column)->second;
}

bool truth(const JetRow& row, std::string_view column) {
    const std::string& value = text(row, column);
    return !value.empty() && value != "0" && !sameText(value, "False");
}

std::optional<std::string> orNull(const std::string& value) {
    return value.empty() ? std::nullopt : std::optional(value);
}

ListedChip chipOf(const JetRow& row) {
    return {.id = number(row, "ChipID"),
            .name = text(row, "Name"),
            .project = text(row, "ProjectNr"),
            .txFifoSize = text(row, "TxFifoSize"),
            .rxFifoSize = text(row, "RxFifoSize"),
            .txFifoAddress = orNull(text(row, "TxFifoAddress")),
            .rxFifoAddress = orNull(text(row, "RxFifoAddress")),
            .fifoSelectLine = truth(row, "nFFS_control")};
}

ListedRegister registerOf(const JetRow& row) {
    ListedRegister entry{.chip = number(row, "ChipID"),
                         .address = text(row, "Address"),
                         .name = text(row, "Name"),
                         .readable = truth(row, "R"),
                         .writable = truth(row, "W"),
                         .radio = truth(row, "RFReg"),
                         .test = truth(row, "TestReg"),
                         .digital = truth(row, "DigitalReg"),
                         .misc = truth(row, "MiscReg"),
                         .status = truth(row, "StatusReg"),
                         .defaultValue = text(row, "DefaultValue"),
                         .bits = number(row, "Databits"),
                         .bitNames = {},
                         .description = text(row, "Description")};
    for (std::size_t bit = 0; bit < entry.bitNames.size(); ++bit) {
        entry.bitNames[bit] = text(row, "bit" + std::to_string(bit));
    }
    return entry;
}

/// What a process of its own has found: a line a row with the table's name in front, or why there is none.
std::string rowsOf(std::string& bytes) {
    try {
        std::unique_ptr<MdbHandle, CloseDatabase> database(
            mdb_open_buffer(bytes.data(), bytes.size(), MDB_NOFLAGS));
        if (!database) {
            fail("The file is no Jet database");
        }
        std::string rows;
        for (const char* name : {chipTable, registerTable}) {
            const Table& schema = *table(name);
            JetRow row;
            for (JetTable source(*database, schema); source.next(row);) {
                std::vector<std::string> fields{name};
                for (const Column& column : schema.columns) {
                    fields.push_back(row[std::string(column.name)]);
                }
                rows += csvLine(fields);
            }
        }
        return rows;
    } catch (const std::exception& error) {
        return csvLine({errorLine, error.what()});
    }
}

JetRow rowAt(const Table& schema, const std::vector<std::string>& fields) {
    if (fields.size() != schema.columns.size() + 1) {
        fail(damaged);
    }
    JetRow row;
    for (std::size_t at = 0; at < schema.columns.size(); ++at) {
        row[std::string(schema.columns[at].name)] = fields[at + 1];
    }
    return row;
}

RegisterList listOf(const std::string& rows) {
    RegisterList list;
    for (const CsvRow& line : readCsv(rows)) {
        const std::string& kind = line.fields.front();
        if (kind == chipTable) {
            list.chips.push_back(chipOf(rowAt(*table(chipTable), line.fields)));
        } else if (kind == registerTable) {
            list.registers.push_back(registerOf(rowAt(*table(registerTable), line.fields)));
        } else {
            fail(line.fields.back());
        }
    }
    return list;
}

} // namespace

bool jetIsBuilt() {
    return true;
}

RegisterList readJetFile(const std::filesystem::path& file) {
    constexpr std::chrono::seconds patience(10);
    std::string bytes;
    try {
        bytes = readFile(file);
    } catch (const ToolError& error) {
        throw StoreError(error.number(), error.what());
    }
    // The library trusts its files more than they deserve: a damaged one may bring it down.
    std::optional<std::string> rows = runApart([&bytes] { return rowsOf(bytes); }, patience);
    if (!rows) {
        fail(damaged);
    }
    try {
        return listOf(*rows);
    } catch (const CsvError&) {
        fail(damaged);
    }
}

} // namespace zor::store
