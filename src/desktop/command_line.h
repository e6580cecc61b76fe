// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/transcript_run.h"
#include "desktop/widgets/colours.h"

#include <QString>
#include <QStringList>

#include <optional>

class QCoreApplication;

namespace zor {

/// What the program was started with.
struct CommandLine {
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
};

/// Ends the program, with a message, if its arguments make no sense; and behind what help and version print.
CommandLine readCommandLine(const QCoreApplication& application);

/// Help and version are text; they need no display.
[[nodiscard]] bool wantsText(int argc, char** argv);
/// A transcript is played where there may be no display.
[[nodiscard]] bool playsTranscript(int argc, char** argv);

} // namespace zor
