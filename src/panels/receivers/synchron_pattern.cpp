// SPDX-License-Identifier: MIT
#include "panels/receivers/synchron_pattern.h"

#include "support/numbers.h"

namespace zor {

namespace {

constexpr std::uint32_t ownPattern = 0xD4;
constexpr std::size_t digits = 2;

} // namespace

SynchronPattern::SynchronPattern(Form& owner, std::uint32_t base)
    : TB_SP(owner, "TB_SP", "D4")
    , SynchPatt(owner, "SynchPatt", "Synchron Pattern Command:") {
    TB_SP.setCaption("Byte 0 of Synchron Pattern");
    TB_SP.onCommit = [this] { TB_SP_LostFocus(); };
    // Zero stands for the chips' own pattern, so the byte itself cannot be zero.
    auto number = [this] { return static_cast<int>(pattern); };
    SynchPatt.define(base, {readBack(bits(7, 0, "byte 0", number),
                                     numberSetting(TB_SP, number, IntegerRange{1, 0xFF}, [](int byte) {
                                         return hexText(static_cast<std::uint32_t>(byte), digits);
                                     }))});
}

KeptPart SynchronPattern::kept() {
    return {[this] { return KeptValue(static_cast<std::int32_t>(pattern)); },
            [this](const KeptValue& value) {
                pattern = static_cast<std::uint32_t>(std::get<std::int32_t>(value));
            }};
}

void SynchronPattern::TB_SP_LostFocus() {
    std::string text = TB_SP.text();
    std::uint32_t typed = text.size() <= digits ? readHex(text).value_or(0) : 0;
    pattern = typed != 0 ? typed : ownPattern;
    TB_SP.setText(hexText(pattern, digits));
    SynchPatt.rebuild();
}

} // namespace zor
