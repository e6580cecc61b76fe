// SPDX-License-Identifier: MIT
#include "store/sqlite_register_store.h"

#include "store/jet_file.h"
#include "store/register_list_store.h"
#include "store/schema.h"
#include "store/sqlite_error.h"
#include "store/sqlite_records.h"
#include "store/translator.h"
#include "support/file_name.h"
#include "support/letters.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <system_error>

namespace zor::store {

namespace {

namespace fs = std::filesystem;

class SqliteRegisterStore : public RegisterStore {
  public:
    SqliteRegisterStore(RegisterStores& ownMaker, const fs::path& file, int flags,
                        const SqliteRegisterStores::Limits& limits)
        : maker(ownMaker)
        // There is one thread: locks of the engine's own would cost a third of each reading.
        , database(nameOf(file), flags | SQLite::OPEN_NOMUTEX, static_cast<int>(limits.patience.count())) {
        if (limits.pages > 0) {
            database.exec("PRAGMA max_page_count = " + std::to_string(limits.pages));
        }
        database.exec("PRAGMA journal_mode = WAL");
        // The log is synced when it is taken over into the file, not with every row.
        database.exec("PRAGMA synchronous = NORMAL");
        offerMaking(database);
    }

    void run(std::string_view sql) override {
        hear(sql);
        Translation translation = translate(sql);
        throughStore([&] {
            CellReader statement(statements, translation.sql, translation.values);
            (void)statement.next();
        });
    }

    std::unique_ptr<RecordSource> select(std::string_view sql, Values values) override {
        auto source = std::make_unique<SqliteRecords>(database, statements, values,
                                                      [this](std::string_view text) { hear(text); });
        source->setQuery(sql);
        return source;
    }

    void takeList(const RegisterList& list) override {
        StoreTransaction transaction(*this);
        replaceChips(*this, list, [this](int chip) {
            throughStore([&] {
                SQLite::Statement statement(database, "DELETE FROM \"Register\" WHERE \"ChipID\" = ?");
                statement.bind(1, chip);
                statement.exec();
            });
        });
        transaction.commit();
    }

    void begin() override {
        throughStore([&] { database.exec("BEGIN IMMEDIATE"); });
    }

    void commit() override {
        throughStore([&] { database.exec("COMMIT"); });
    }

    void rollback() noexcept override {
        // A failure that ended the transaction by itself leaves nothing to take back.
        database.tryExec("ROLLBACK");
    }

    /// Throws StoreError if the file is damaged or lacks a table or column.
    void check() {
        throughStore([&] {
            SQLite::Statement statement(database, "PRAGMA quick_check(1)");
            if (!statement.executeStep() || statement.getColumn(0).getString() != "ok") {
                throw StoreError(deviceInputOutput);
            }
            for (const Table& table : tables()) {
                checkColumns(table);
            }
        });
    }

    void createTables() {
        throughStore([&] {
            SQLite::Transaction transaction(database);
            for (const Table& table : tables()) {
                database.exec(creation(table));
            }
            transaction.commit();
        });
    }

  private:
    void hear(std::string_view text) const {
        if (maker.asked) {
            maker.asked(text);
        }
    }

    void checkColumns(const Table& table) {
        SQLite::Statement statement(database, "SELECT name FROM pragma_table_info(?)");
        statement.bind(1, std::string(table.name));
        std::vector<std::string> found;
        while (statement.executeStep()) {
            found.push_back(statement.getColumn(0).getString());
        }
        for (const Column& column : table.columns) {
            bool there = std::ranges::any_of(
                found, [&column](const std::string& name) { return sameText(name, column.name); });
            if (!there) {
                throw StoreError(notOfThisStore, "The table " + std::string(table.name) + " has no column " +
                                                     std::string(column.name));
            }
        }
    }

    RegisterStores& maker;
    SQLite::Database database;
    Statements statements{database};
};

/// A file that its owner may not write is not written, whoever runs the program.
void demandWritable(const fs::path& file) {
    std::error_code failure;
    fs::file_status status = fs::status(file, failure);
    if (status.type() == fs::file_type::not_found) {
        throw StoreError(fs::exists(file.parent_path(), failure) ? fileNotFound : pathNotFound);
    }
    if (!fs::is_regular_file(status)) {
        throw StoreError(pathFileAccess);
    }
    if ((status.permissions() & fs::perms::owner_write) == fs::perms::none) {
        throw StoreError(permissionDenied);
    }
}

} // namespace

std::unique_ptr<RegisterStore> SqliteRegisterStores::open(const fs::path& file) {
    demandWritable(file);
    std::unique_ptr<SqliteRegisterStore> store;
    throughStore([&] {
        store = std::make_unique<SqliteRegisterStore>(*this, file, SQLite::OPEN_READWRITE, limits);
        store->check();
    });
    return store;
}

bool SqliteRegisterStores::readsOlder() const {
    return jetIsBuilt();
}

RegisterList SqliteRegisterStores::readOlder(const fs::path& file) const {
    return readJetFile(file);
}

void SqliteRegisterStores::create(const fs::path& file) {
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    throughStore([&] {
        SqliteRegisterStore(*this, file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, limits).createTables();
    });
}

} // namespace zor::store
