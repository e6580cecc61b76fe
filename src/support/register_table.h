// SPDX-License-Identifier: MIT
#pragma once

#include "support/register_list.h"

#include <string>
#include <string_view>

namespace zor {

// A register list as a table of comma separated values: a line with the columns' names, then a line a
// register, with its chip in front. A spreadsheet opens it.

/// The whole table; a chip without registers has a line of its own with nothing in the registers' columns.
[[nodiscard]] std::string registerTable(const RegisterList& list);

/// Reads a table. Its columns may stand in any order; Chip, Name and Address must be there, any other may be
/// missing or empty. What is told of a chip counts where it is told first. Chips are numbered from 1 in the
/// order of their coming.
/// Throws CsvError for what cannot be a register, naming the line and the column.
[[nodiscard]] RegisterList readRegisterTable(std::string_view text);

} // namespace zor
