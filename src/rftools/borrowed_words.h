// SPDX-License-Identifier: MIT
#pragma once

#include "panels/common/control_word.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zor {

class ChipPanel;

/// Words of the chip that a tool sets otherwise for a while, and gives back as the panel last sent them. The
/// panel's own settings never change, and its words count as unsent meanwhile, for the chip has others.
///
/// A word that the panel had not sent comes back as the panel shows it: what the chip held before cannot be
/// read. A word that the panel sends meanwhile stands, and is borrowed anew by the next `put`.
class BorrowedWords {
  public:
    /// @param ownPanel  must outlive every call
    explicit BorrowedWords(ChipPanel& ownPanel)
        : panel(ownPanel) {}

    /// The panel's word of that name; nullptr if the chip has none.
    [[nodiscard]] ControlWord* find(std::string_view word) const;
    /// A field's code in the tool's value of its word. A field that the chip has not is left out.
    void set(std::string_view word, std::string_view field, int code);
    /// Whether the panel's table has that field.
    [[nodiscard]] const BitField* field(std::string_view word, std::string_view field) const;

    /// The words whose value is not known to be in the chip, in the panel's order.
    [[nodiscard]] std::vector<ControlWord*> unset() const;
    /// The line that puts the tool's value of a word into the chip, which is then borrowed.
    [[nodiscard]] std::string put(ControlWord& word);
    /// The board did not take that line after all.
    void notPut(const ControlWord& word);

    /// The words that are borrowed, in the panel's order.
    [[nodiscard]] std::vector<ControlWord*> borrowed() const;
    /// The value, in hexadecimal, that gives a word back.
    [[nodiscard]] std::string original(const ControlWord& word) const;
    /// The chip has that value again.
    void givenBack(ControlWord& word);

  private:
    struct Entry {
        ControlWord* word = nullptr;
        std::uint32_t wanted = 0;
        bool inChip = false;
        bool lent = false;
        /// What the panel had sent; empty for nothing.
        std::string before;
    };
    [[nodiscard]] const Entry* entry(const ControlWord& word) const;
    [[nodiscard]] Entry* entry(const ControlWord& word) {
        return const_cast<Entry*>(std::as_const(*this).entry(word));
    }

    ChipPanel& panel;
    std::vector<Entry> entries;
};

/// A word's value with a field's code put in; the value as it is for a field that the word has not.
[[nodiscard]] std::uint32_t withField(std::uint32_t value, const ControlWord& word, std::string_view field,
                                      int code);

} // namespace zor
