// SPDX-License-Identifier: MIT
#pragma once

#include "platform/register_store.h"

#include <chrono>

namespace zor::store {

/// The register database as an SQLite file.
///
/// The file keeps a log of its changes beside it while it is open, so that a program that is killed leaves it
/// sound, two programs can have it open, and a row that is saved does not wait for the disk.
class SqliteRegisterStores : public RegisterStores {
  public:
    struct Limits {
        /// How long a lock of another program is waited for; the interface stands still meanwhile.
        std::chrono::milliseconds patience{250};
        /// How large the file may grow, in pages of 4 KiB; 0 for as large as the disk lets it.
        int pages = 0;
    };

    SqliteRegisterStores() = default;
    explicit SqliteRegisterStores(Limits ownLimits)
        : limits(ownLimits) {}

    [[nodiscard]] std::unique_ptr<RegisterStore> open(const std::filesystem::path& file) override;
    void create(const std::filesystem::path& file) override;
    [[nodiscard]] bool readsOlder() const override;
    [[nodiscard]] RegisterList readOlder(const std::filesystem::path& file) const override;

  private:
    Limits limits;
};

} // namespace zor::store
