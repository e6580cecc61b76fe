// SPDX-License-Identifier: MIT
#pragma once

#include "elements/label.h"
#include "elements/options.h"
#include "elements/tick_box.h"
#include "panels/common/control_word.h"

#include <optional>
#include <string>
#include <vector>

namespace zor {

/// One line of the comment below a macro: a label, tabs and a value. Without a value the line is left out.
struct DetailLine {
    const char* label;
    int tabs;
    std::optional<std::string> value;
};
using DetailLines = std::vector<DetailLine>;

/// What a block's macro stands for: the text behind the macro's name, and the word of the panel that it is.
struct HeaderWord {
    std::string text;
    /// nullptr for a constant.
    const ControlWord* element = nullptr;
};

/// One command of a chip: its macro and the comment that tells its settings in words.
struct HeaderBlock {
    /// The macro's name behind the prefix.
    const char* command;
    /// Between the macro's name and its value.
    int tabs;
    HeaderWord word;
    const char* title;
    DetailLines details;
};
using HeaderBlocks = std::vector<HeaderBlock>;

// What the rows of the tables are made of.

[[nodiscard]] HeaderWord wordOf(const ControlWord& word);
/// A macro that no setting bears on; its text stands as it is.
[[nodiscard]] HeaderWord constant(const char* text);

/// The text that an element shows, and what stands behind it.
[[nodiscard]] DetailLine shown(const char* label, int tabs, const Element& value, const char* unit = "");
/// The same with the unit label that stands beside the field.
[[nodiscard]] DetailLine shown(const char* label, int tabs, const Element& value, const Label& unit);
/// Digits with the mark of their base in front.
[[nodiscard]] DetailLine hexadecimal(const char* label, int tabs, const Element& value);
/// A text that is always the same.
[[nodiscard]] DetailLine always(const char* label, int tabs, const char* value);
/// A text for either state of a tick or of an option.
[[nodiscard]] DetailLine either(const char* label, int tabs, bool state, const char* whenSet,
                                const char* whenNot);
/// A line for a tick that is set, "Enabled".
[[nodiscard]] DetailLine enabled(const char* label, int tabs, const TickBox& tick);
/// A line for a set tick that switches something off, "Disabled".
[[nodiscard]] DetailLine disabled(const char* label, int tabs, const TickBox& tick);

/// The same block with further lines behind its own.
[[nodiscard]] HeaderBlock with(HeaderBlock block, DetailLines further);

/// A C header in the making, line by line, each ended by CR LF.
class HeaderText {
  public:
    /// An empty text makes an empty line.
    void line(const std::string& text);
    void emptyLines(int count);
    /// A command's macro and comment, and the empty line behind them.
    /// @param prefix  of the macro's name, without the underscore
    void block(const std::string& prefix, const HeaderBlock& block);

    [[nodiscard]] const std::string& text() const { return content; }

  private:
    std::string content;
};

/// So many tabs.
[[nodiscard]] std::string tabs(int count);

} // namespace zor
