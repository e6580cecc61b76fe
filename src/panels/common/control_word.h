// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "panels/common/code_list.h"
#include "panels/common/word_setting.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zor {

/// One row of a word's table: some of its bits, what they are called, and where their value comes from.
struct BitField {
    int highBit = 0;
    int lowBit = 0;
    std::string name;
    std::function<int()> value;
    /// What the present value means to the engineer.
    std::function<std::string()> meaning;
    /// What any other value of the field means on the panel as it is set now; nothing where a value alone
    /// means nothing.
    std::function<std::string(int code)> meaningOf;
    enum class Kind { Number, Tick, AlwaysOne };
    Kind kind = Kind::Number;
    /// The list or tick that the field's value comes from; nullptr if it is another's.
    const Element* source = nullptr;
    /// The settings that its bits are put into when a word is read backwards; nothing for a bit that is
    /// fixed.
    std::vector<FieldPart> parts = {};
};

/// Bits high to low that hold a list's code.
[[nodiscard]] BitField bits(int high, int low, std::string name, CodeList& list, std::string unit = {});
/// Bits high to low that hold a number.
[[nodiscard]] BitField bits(int high, int low, std::string name, std::function<int()> value,
                            std::function<std::string()> meaning = {});
/// The field with what each of its values means.
[[nodiscard]] BitField explained(BitField field, std::function<std::string(int code)> meaningOf);
/// The field with the setting whose number, from one of its bits on, it holds.
[[nodiscard]] BitField readBack(BitField field, WordSetting setting, int settingLow = 0);
/// One bit that a tick sets.
[[nodiscard]] BitField bit(int position, std::string name, TickBox& tick);
/// One bit that does not depend on a setting.
[[nodiscard]] BitField fixedBit(int position, std::string name);

/// A control word of a chip: its value in hexadecimal, as it is shown and as it is sent.
///
/// The word is never edited; it is the plain sum of its base and its shifted fields, read afresh at each
/// rebuild. Nothing masks a field: the settings keep their ranges.
class ControlWord : public TextField {
  public:
    /// How the word goes to the chip: "S1" transfers one byte, "S2" two.
    enum class Size { OneByte, TwoBytes };

    ControlWord(Form& owner, std::string name, std::string caption);

    /// Declares the word; a chip whose generations lay it out differently declares it anew.
    void define(std::uint32_t base, std::vector<BitField> fields, Size size = Size::TwoBytes);

    /// The word's name in a sentence: its caption without "Command" and colon.
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::uint32_t base() const { return ownBase; }
    [[nodiscard]] const std::vector<BitField>& fields() const { return table; }
    [[nodiscard]] Size size() const { return ownSize; }
    [[nodiscard]] int bitCount() const { return ownSize == Size::OneByte ? 8 : 16; }
    /// Base and fields as the settings stand now.
    [[nodiscard]] std::uint32_t value() const;

    /// Shows the value of the present settings, and tells `rewritten`.
    void rebuild();
    /// The same without telling: for words that are sent at once.
    void rebuildQuietly();
    /// Shows another value than the settings say, for the steps of a calibration.
    void show(std::uint32_t value);

    /// Explains the shown word anew, when what its fields mean has changed and their values have not.
    void refreshTip();

    /// The value could be one of this word's: it has the base, and nothing where the table has no field.
    [[nodiscard]] bool fits(std::uint32_t value) const;
    /// A field's part of a value.
    [[nodiscard]] static int part(std::uint32_t value, const BitField& field);
    /// What a value that fits means, by the same table as the tool tip: one phrase a field, ticks by their
    /// name where they are set.
    [[nodiscard]] std::string explain(std::uint32_t value) const;

    /// The command line that sends what is shown.
    [[nodiscard]] std::string line() const;
    /// What is shown is being sent: its value, and its place among the sends of this word.
    struct Sending {
        std::string text;
        std::uint64_t number = 0;
    };
    [[nodiscard]] Sending beginSending();
    /// The board took the line; the chip has that value, unless a later one has been taken already.
    void markSent(const Sending& sending);
    /// The chip is known to hold that value from before; empty for none.
    void takeSent(std::string text);
    /// What the chip holds is not known any more.
    void markUnsent();
    /// The value that the chip is known to hold; empty while none is known.
    [[nodiscard]] const std::string& lastSent() const { return sentText; }
    /// What is shown differs from what the chip is known to hold, or nothing is known.
    [[nodiscard]] bool pending() const { return sentText != text(); }

    /// A setting rewrote the word.
    Signal<> rewritten;

  private:
    std::uint32_t ownBase = 0;
    std::vector<BitField> table;
    Size ownSize = Size::TwoBytes;
    std::string sentText;
    std::uint64_t lastSending = 0;
    std::uint64_t takenSending = 0;
};

} // namespace zor
