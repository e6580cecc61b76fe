// SPDX-License-Identifier: MIT
#pragma once

#include "elements/grid.h"
#include "platform/event_loop.h"

#include <map>
#include <string>
#include <vector>

namespace zor {

struct Bench;

/// Remembers over the runs how wide the user made the columns of the program's grids, in ZOR-more.ini. It
/// must go before the windows do.
class ColumnMemory {
  public:
    explicit ColumnMemory(Bench& bench);
    ColumnMemory(const ColumnMemory&) = delete;
    ColumnMemory& operator=(const ColumnMemory&) = delete;
    /// Keeps what was not kept yet.
    ~ColumnMemory();

  private:
    void attend(Form& form);
    void take(const Grid& grid);
    void keep();

    Bench& bench;
    /// The windows' own, by "WINDOW.GRID".
    std::map<std::string, std::vector<int>> changed;
    std::map<const Form*, std::vector<Subscription>> attended;
    Subscription opened;
    Subscription removed;
    /// A column that is dragged changes many times; the file is written once it rests.
    Timer rest;
};

} // namespace zor
