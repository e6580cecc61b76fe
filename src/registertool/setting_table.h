// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "platform/register_store.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zor {

/// One register of the chosen chip as the tool believes it to be. A null is an empty text here.
struct Setting {
    std::int64_t key = 0;
    std::string Name;
    std::string Address;
    std::string Description;
    bool TestReg = false;
    bool RFReg = false;
    bool DigitalReg = false;
    bool MiscReg = false;
    bool R = false;
    bool W = false;
    /// Names, by the bit's number.
    std::array<std::string, 8> bit;
    std::string DefaultValue;
    std::string HexValue;
    std::string BinaryValue;
    /// What the chip last said that it has; nothing before it was read.
    std::optional<std::string> readValue;
};

inline constexpr std::string_view allSettings = "Select * from Setting where StatusReg = False";

/// The worktable of registers: all of its rows in stored order, and those of them that a query shows. Every
/// value that is stored goes to the database at once, but for those that a walk over the whole chip reads:
/// they go there together.
///
/// Searches move nothing of what is shown; by an address they go through the whole table.
class SettingTable {
  public:
    /// Opens the sources on a store, which must outlive the next detach. Throws StoreError.
    void attach(RegisterStore& store);
    /// Lets go of the store; the table is empty then.
    void detach();
    [[nodiscard]] bool attached() const { return whole != nullptr; }

    /// Reads everything anew after the table was emptied. Throws StoreError.
    void reread();
    /// Adds the registers of a source, each with its default value; none of them is shown before the next
    /// `show`. Throws StoreError.
    void fill(const RecordSource& registers);

    [[nodiscard]] const std::vector<Setting>& rows() const { return settings; }
    /// The number of the first row with that address. Throws StoreError.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view address);
    /// The first row of the query that fits a criterion as it stands. Throws StoreError.
    [[nodiscard]] std::optional<std::size_t> findInQuery(std::string_view criterion);
    /// Stores a value and its binary form. Throws StoreError; the table then holds what it held.
    void storeValue(std::size_t row, const std::string& hexValue);
    /// The same with a value that was read from the chip.
    void storeRead(std::size_t row, const std::string& hexValue);
    /// A value that was read from the chip, kept for `storeTaken`: the table shows it, the database waits.
    void takeRead(std::size_t row, const std::string& hexValue);
    /// Stores what `takeRead` took, in one transaction. Throws StoreError; what was taken waits on then.
    void storeTaken();
    /// The first register of that address, in either case as it is to the store; nullptr if there is none.
    /// Asks the rows, not the store.
    [[nodiscard]] const Setting* at(std::string_view address) const;

    /// The rows of a query, in its order; what is shown stays. Throws StoreError.
    [[nodiscard]] std::vector<std::size_t> rowsOf(std::string_view query) const;
    /// Shows the rows of another query. Throws StoreError.
    void show(std::string_view query);
    void rereadShown();
    /// Numbers of rows, in the order of the query.
    [[nodiscard]] const std::vector<std::size_t>& shown() const { return shownRows; }

    /// What of the shown rows is in sight, beside the query: the search and the view of differences. Without
    /// it all of them are. What is done with all shown registers does not heed it.
    std::function<bool(const Setting&)> wanted;
    /// Asks `wanted` anew.
    void narrow();
    /// The shown rows that are wanted, in the order of the query.
    [[nodiscard]] const std::vector<std::size_t>& inSight() const { return rowsInSight; }
    /// Puts one row into sight or takes it out, if its value has made it so.
    /// @return whether it is in sight; nothing of that is told to anybody
    bool putInSight(std::size_t row);

    /// Grows whenever the rows are other ones: numbers of rows from before mean nothing then.
    [[nodiscard]] unsigned generation() const { return generationNumber; }

    /// A row's value was stored.
    Signal<std::size_t> stored;
    /// Other rows are shown, or in sight.
    Signal<> showsOthers;

  private:
    /// Of every row in the database, into `settings`.
    void takeRows();
    void store(std::size_t row, const std::string& hexValue);
    /// Takes a value into the row and tells of it.
    void take(std::size_t row, const std::string& hexValue);
    [[nodiscard]] std::vector<std::size_t> rowsIn(RecordSource& source) const;
    void takeShown();
    void takeWanted();

    RegisterStore* database = nullptr;
    /// Rows whose values the database has yet to get.
    std::vector<std::size_t> unstored;
    std::unique_ptr<RecordSource> whole;
    /// The record source that the product calls Settings.
    std::unique_ptr<RecordSource> Settings;
    std::vector<Setting> settings;
    std::vector<std::size_t> shownRows;
    std::vector<std::size_t> rowsInSight;
    unsigned generationNumber = 0;
    /// The first row of each address, in capitals, as the rows of one generation have it.
    mutable std::unordered_map<std::string, std::size_t> firstOf;
    mutable unsigned indexed = 0;
};

} // namespace zor
