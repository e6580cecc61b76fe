// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zor {

struct Bench;
class Plot;

/// Asks for a file and saves the plot there: its values as CSV where the name ends so, else its picture as
/// PNG. A failure is told in a box and leaves an older file whole.
/// @param title      of the file dialog
/// @param firstName  what a first file is proposed as ("current.png")
void savePlot(Bench& bench, const Plot& plot, const std::string& title, const std::string& firstName);

} // namespace zor
