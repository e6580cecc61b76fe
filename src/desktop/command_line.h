// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/transcript_run.h"
#include "desktop/widgets/colours.h"

#include <QString>
#include <QStringList>

#include <optional>

class QCoreApplication;

namespace zor {

/// What the command line asks for.
struct CommandLine {
    /// The exit status of what cannot be done as it was asked for.
    static constexpr int cannotBeDone = 2;

    bool demo = false;
    /// Who is on the air of the simulated board.
    QString farEnd;
    /// Ends when the window has been shown, for measuring the start.
    bool exitWhenShown = false;
    QString pictures;
    std::optional<Scheme> scheme;
    /// A serial device to offer first.
    QString port;
    /// A chip's configuration file to open.
    QString file;
    /// What the simulated board is to be like.
    QStringList board;
    /// A transcript to play without a window.
    TranscriptRun::Switches run;

    /// Looks before there is a display, which text does not need: answers help and the version, tells what
    /// cannot be asked for, and ends the program behind either. What is the toolkit's own is left to it.
    /// @return whether a transcript is played, which needs no display either
    [[nodiscard]] static bool lookAhead(int argc, char** argv);
    /// Ends the program for what nobody knows.
    [[nodiscard]] static CommandLine read(const QCoreApplication& application);
};

} // namespace zor
