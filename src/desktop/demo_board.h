// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace zor {

/// The simulated board of --demo: a program of its own, whose terminal is one more serial port. It ends with
/// this.
class DemoBoard {
  public:
    DemoBoard() = default;
    ~DemoBoard();
    DemoBoard(const DemoBoard&) = delete;
    DemoBoard& operator=(const DemoBoard&) = delete;

    /// Who is on the air: silent, numbered, echo, carrier, or lively, which is all of it. Nobody if empty.
    QString farEnd;

    /// Starts the simulator that lies beside this program, or where the build leaves it.
    /// @return the terminal's path; empty if it cannot be started
    [[nodiscard]] QString start(const QStringList& arguments = {QStringLiteral("--kind"),
                                                                QStringLiteral("lb2")});
    /// It ended without being told to.
    [[nodiscard]] bool died() const;
    /// Starts it anew as it was started first, with the chip that it carried last.
    /// @return the terminal's path; empty if it cannot be started
    [[nodiscard]] QString startAgain();
    /// Gives it a statement of the bench ("status 5F").
    void tell(const QString& statement);
    /// Mounts the radio chip of that name ("kt1100"), as an engineer does before opening its panel. A board
    /// that is not started yet has what was mounted last from its start on.
    void mount(const QString& chip);
    /// Mounts a demonstration board with its EEPROM, which keeps its bytes while others take its place.
    void mountEeprom();
    /// Puts a chip of registers there, as the list's first one, whose FIFOs are joined by a link with a few
    /// bit errors.
    void mountRegisters(const QString& registerList);
    /// Pulls the board out at once.
    void stop();

  private:
    QProcess process;
    QStringList startArguments;
    QString carried;
    /// Its pseudo-terminal.
    QString terminal;
    bool started = false;
    bool hadEeprom = false;
};

} // namespace zor
