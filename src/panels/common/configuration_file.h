// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zor {

class ListBox;
class Option;
class RecordReader;
class RecordWriter;
class Slider;
class TextField;
class TickBox;

/// One line of a chip's configuration file: an element and the form in which its value stands there.
///
/// A file has no names, so the order of a panel's lines is its format. The same lines write and read it: a
/// panel hands them out by configuration(), made with the functions below, and writes down nothing twice:
///
///     return joined({crystalLines(), {heldTextLine(FreqCenter)}, bandLines(),
///                    {positionLine(CLKout), textLine(Cxtal), tickLine(*pm(7)), supplyLine()}});
///
/// A line's value reaches its element as it is read and runs the element's own action; a field without such
/// an action gets the commit named behind it, or is committed by the panel once all lines are read.
struct ConfigurationLine {
    /// The element or the shared value.
    std::string name;
    std::function<void(RecordWriter&)> write;
    /// Takes the value off the file, puts it to its element and runs what follows from that. Throws ToolError
    /// with nothing changed for a value of another form, or one that the element cannot have.
    std::function<void(RecordReader&)> read;
    /// What is left until every line has been read; may be empty.
    std::function<void()> whenAllRead;
};

using ConfigurationLines = std::vector<ConfigurationLine>;
using LineAction = std::function<void()>;

/// A field's text as it stands. Reading puts it there; then the commit runs, if one is given.
[[nodiscard]] ConfigurationLine textLine(TextField& field, LineAction commit = {});
/// A list's text; reading selects it, which runs the list's action.
[[nodiscard]] ConfigurationLine textLine(ListBox& list);
/// The text of a field that other lines' actions rewrite: reading keeps it back until all lines are read.
[[nodiscard]] ConfigurationLine heldTextLine(TextField& field);
/// The same, shown at once as well.
[[nodiscard]] ConfigurationLine shownAndHeldTextLine(TextField& field);
/// #TRUE# chooses an option and runs its action, also of the one that was chosen before; #FALSE# takes the
/// choice away.
[[nodiscard]] ConfigurationLine booleanLine(Option& option);
/// 0 or 1; the action runs if the tick changes.
[[nodiscard]] ConfigurationLine tickLine(TickBox& box);
/// A list's position, -1 for none; the action runs if the position changes.
[[nodiscard]] ConfigurationLine positionLine(ListBox& list);
/// A slider's value; the action runs if it changes.
[[nodiscard]] ConfigurationLine valueLine(Slider& slider);
/// A text that the main window holds.
[[nodiscard]] ConfigurationLine sharedTextLine(std::string name, std::string& value);
/// A number that the main window holds.
[[nodiscard]] ConfigurationLine sharedNumberLine(std::string name, std::int32_t& value);

/// Parts of a file one behind the other.
[[nodiscard]] ConfigurationLines joined(std::vector<ConfigurationLines> parts);

/// A configuration file's bytes: the banner, then each line's present value.
[[nodiscard]] std::string configurationText(const std::string& banner, const ConfigurationLines& lines);

/// Reads a configuration file line by line; each takes effect before the next is read. Throws ToolError:
/// inputPastEnd for an empty or short file, wrongBanner with the given text, typeMismatch, overflow or
/// invalidProperty for a line that does not fit; what was read until then stays.
void readConfigurationText(std::string bytes, const std::string& banner, const std::string& wrongBanner,
                           const ConfigurationLines& lines);

} // namespace zor
