// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "link/bench.h"

#include <functional>
#include <string>
#include <string_view>

namespace zor {

/// The windows that were open and where, kept in ZOR.wsp from one run to the next. Written by the user's
/// command, read at the start if the preferences say so.
class Workspace {
  public:
    explicit Workspace(Bench& ownBench)
        : bench(ownBench) {}

    /// Opens a chip panel as a choice in the menu does, and marks it as the last one chosen.
    std::function<void(std::string_view window)> openPanel;
    /// A chip panel's window, made without being shown.
    std::function<Form&(std::string_view window)> createPanel;

    /// Writes the file. Throws ToolError; the old file is then still there.
    void save() const;
    /// Reads the file and opens its windows. Throws ToolError for a file that is missing or cannot be read
    /// whole; the windows that came before stay open.
    void load();

    /// The file's bytes.
    [[nodiscard]] std::string format() const;
    /// load() of bytes.
    void open(std::string bytes);

  private:
    struct Row;
    static const std::vector<Row>& rows();
    [[nodiscard]] Form& create(const Row& row) const;

    [[nodiscard]] bool isOpen(const Row& row) const;
    void openWindow(const Row& row, class RecordReader& reader);
    void giveUp(const Row& row) const;

    Bench& bench;
};

} // namespace zor
