// SPDX-License-Identifier: MIT
#include "panels/common/control_word.h"

#include "support/numbers.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

std::string binary(std::uint32_t value, int width) {
    std::string digits;
    for (int place = width - 1; place >= 0; --place) {
        digits += ((value >> place) & 1U) != 0 ? '1' : '0';
    }
    return digits;
}

std::string bitRange(const BitField& field) {
    std::string low = std::to_string(field.lowBit);
    return field.highBit == field.lowBit ? low : std::to_string(field.highBit) + ":" + low;
}

} // namespace

BitField bits(int high, int low, std::string name, CodeList& list, std::string unit) {
    auto withUnit = [unit = std::move(unit)](const std::string& text) {
        return unit.empty() ? text : text + " " + unit;
    };
    return {high,
            low,
            std::move(name),
            [&list] { return list.code(); },
            [&list, withUnit] { return withUnit(list.text()); },
            [&list, withUnit](int code) {
                std::optional<std::string> entry = list.textOfCode(code);
                return entry ? withUnit(*entry) : "code " + std::to_string(code) + ", not in the list";
            },
            BitField::Kind::Number,
            &list,
            {{listSetting(list), 0, 0, high - low + 1}}};
}

BitField bits(int high, int low, std::string name, std::function<int()> value,
              std::function<std::string()> meaning) {
    return {high, low, std::move(name), std::move(value), std::move(meaning), {}, BitField::Kind::Number};
}

BitField explained(BitField field, std::function<std::string(int code)> meaningOf) {
    field.meaningOf = std::move(meaningOf);
    return field;
}

BitField readBack(BitField field, WordSetting setting, int settingLow) {
    field.parts = {{std::move(setting), 0, settingLow, field.highBit - field.lowBit + 1}};
    return field;
}

BitField bit(int position, std::string name, TickBox& tick) {
    return {position,
            position,
            std::move(name),
            [&tick] { return tick.ticked() ? 1 : 0; },
            [&tick] { return std::string(tick.ticked() ? "on" : "off"); },
            {},
            BitField::Kind::Tick,
            &tick,
            {{tickSetting(tick), 0, 0, 1}}};
}

BitField fixedBit(int position, std::string name) {
    return {position, position, std::move(name), [] { return 1; }, {}, {}, BitField::Kind::AlwaysOne};
}

ControlWord::ControlWord(Form& owner, std::string name, std::string caption)
    : TextField(owner, std::move(name), {}, Access::ReadOnly) {
    setCaption(std::move(caption));
}

void ControlWord::define(std::uint32_t base, std::vector<BitField> fields, Size size) {
    ownBase = base;
    table = std::move(fields);
    ownSize = size;
}

std::string ControlWord::title() const {
    std::string name = caption();
    for (std::string_view ending : {std::string_view(":"), std::string_view(" Command")}) {
        if (name.size() > ending.size() && name.ends_with(ending)) {
            name.resize(name.size() - ending.size());
        }
    }
    return name;
}

std::uint32_t ControlWord::value() const {
    std::uint32_t sum = ownBase;
    for (const BitField& field : table) {
        sum += static_cast<std::uint32_t>(field.value()) << field.lowBit;
    }
    return sum;
}

int ControlWord::part(std::uint32_t value, const BitField& field) {
    auto width = static_cast<unsigned>(field.highBit - field.lowBit + 1);
    return static_cast<int>((value >> field.lowBit) & ((1U << width) - 1U));
}

bool ControlWord::fits(std::uint32_t value) const {
    std::uint32_t open = 0;
    std::uint32_t fixed = ownBase;
    for (const BitField& field : table) {
        auto width = static_cast<unsigned>(field.highBit - field.lowBit + 1);
        std::uint32_t mask = ((1U << width) - 1U) << field.lowBit;
        (field.kind == BitField::Kind::AlwaysOne ? fixed : open) |= mask;
    }
    return (value & ~open) == fixed;
}

std::string ControlWord::explain(std::uint32_t value) const {
    std::string phrases;
    bool anyTick = false;
    for (const BitField& field : table) {
        int code = part(value, field);
        bool tick = field.kind == BitField::Kind::Tick;
        anyTick = anyTick || tick;
        if (field.kind == BitField::Kind::AlwaysOne || (tick && code == 0)) {
            continue;
        }
        std::string phrase = field.name;
        if (!tick) {
            phrase += " " + (field.meaningOf ? field.meaningOf(code) : std::to_string(code));
        }
        phrases += (phrases.empty() ? "" : ", ") + phrase;
    }
    return phrases.empty() && anyTick ? "all off" : phrases;
}

void ControlWord::rebuild() {
    rebuildQuietly();
    rewritten.emit();
}

void ControlWord::rebuildQuietly() {
    setText(hexText(value()));
    refreshTip();
}

void ControlWord::show(std::uint32_t value) {
    setText(hexText(value));
}

std::string ControlWord::line() const {
    return (ownSize == Size::OneByte ? "S1" : "S2") + text() + "\r";
}

ControlWord::Sending ControlWord::beginSending() {
    return {text(), ++lastSending};
}

void ControlWord::markSent(const Sending& sending) {
    if (sending.number < takenSending) {
        return;
    }
    takenSending = sending.number;
    sentText = sending.text;
    changed.emit();
}

void ControlWord::takeSent(std::string text) {
    sentText = std::move(text);
    changed.emit();
}

void ControlWord::markUnsent() {
    takeSent({});
}

void ControlWord::refreshTip() {
    std::string tip = caption() + " " + text();
    for (const BitField& field : table) {
        int width = field.highBit - field.lowBit + 1;
        tip += "\n" + bitRange(field) + " " + field.name + " " +
               binary(static_cast<std::uint32_t>(field.value()), width);
        if (field.meaning) {
            tip += " = " + field.meaning();
        }
    }
    setTip(std::move(tip));
}

} // namespace zor
