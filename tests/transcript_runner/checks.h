// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/statements.h"

namespace zor::testing {

// Each throws Failure, saying what was expected and what was found.

void expectText(const std::string& what, const std::string& expected, const std::string& found);
/// @param where  "in ..."
void expectPart(const std::string& where, const std::string& part, const std::string& whole);
void expectNumber(const std::string& what, double expected, double found);
void expectLines(const std::string& what, const std::vector<std::string>& expected,
                 const std::vector<std::string>& found);

/// The oldest line of a coloured log that was not seen yet, or that there is none.
void expectLogLine(World& world, const Arguments& arguments);
void expectNoLogLines(World& world, const Arguments& arguments);

// Checks of what lies outside the windows.

void expectSent(World& world, const Arguments& arguments);
void expectBox(World& world, const Arguments& arguments);
void expectNoBox(World& world);
void expectDialog(World& world, const Arguments& arguments);
void expectContent(World& world, const Arguments& arguments);
void expectNoFile(World& world, const Arguments& arguments);
void expectPort(World& world, const Arguments& arguments);
void expectEeprom(World& world, const Arguments& arguments);
/// The working port's line settings.
void expectSpeed(World& world, const Arguments& arguments);
/// Bytes that the loader on a port was given, from an address on.
void expectImage(World& world, const Arguments& arguments);
void expectElapsed(World& world, const Arguments& arguments);

} // namespace zor::testing
