// SPDX-License-Identifier: MIT
#pragma once

#include "transcript/statements.h"

namespace zor::transcript {

// Each throws Failure, saying what was expected and what was found.

void expectText(const std::string& what, const std::string& expected, const std::string& found);
/// @param where  "in ..."
void expectPart(const std::string& where, const std::string& part, const std::string& whole);
void expectNumber(const std::string& what, double expected, double found);
void expectLines(const std::string& what, const std::vector<std::string>& expected,
                 const std::vector<std::string>& found);

/// The oldest line of a coloured log that was not seen yet, or that there is none.
void expectLogLine(Scene& scene, const Arguments& arguments);
void expectNoLogLines(Scene& scene, const Arguments& arguments);

// Checks of what lies outside the windows.

void expectSent(Scene& scene, const Arguments& arguments);
void expectBox(Scene& scene, const Arguments& arguments);
void expectNoBox(Scene& scene);
void expectDialog(Scene& scene, const Arguments& arguments);
void expectContent(Scene& scene, const Arguments& arguments);
void expectNoFile(Scene& scene, const Arguments& arguments);
void expectPort(Scene& scene, const Arguments& arguments);
/// The working port's line settings.
void expectSpeed(Scene& scene, const Arguments& arguments);
void expectElapsed(Scene& scene, const Arguments& arguments);

} // namespace zor::transcript
