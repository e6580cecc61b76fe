// SPDX-License-Identifier: MIT
#include "panels/common/settings_plan.h"

#include <algorithm>

namespace zor {

namespace {

constexpr int widestWord = 32;

std::uint32_t maskOf(int width) {
    return width >= widestWord ? ~0U : (1U << static_cast<unsigned>(width)) - 1U;
}

int widthOf(const BitField& field) {
    return field.highBit - field.lowBit + 1;
}

/// Where a field stands, for the order in which it is told.
struct Row {
    int lowBit;
    RefusedBits told;
};

RefusedBits rowOf(const ControlWord& word, const BitField& field, int asked, std::string possible) {
    return {word.title(), bitsText(field.highBit, field.lowBit), field.name,
            binaryText(static_cast<std::uint32_t>(asked), widthOf(field)), std::move(possible)};
}

std::string offeredBy(const BitField& field) {
    std::string all;
    for (const FieldPart& part : field.parts) {
        all += (all.empty() ? "" : "; ") + part.setting.offered();
    }
    return all.empty() ? "1" : all;
}

} // namespace

std::string binaryText(std::uint32_t value, int width) {
    std::string digits;
    for (int place = width - 1; place >= 0; --place) {
        digits += ((value >> static_cast<unsigned>(place)) & 1U) != 0 ? '1' : '0';
    }
    return digits;
}

std::string bitsText(int highBit, int lowBit) {
    std::string low = std::to_string(lowBit);
    return highBit == lowBit ? low : std::to_string(highBit) + ":" + low;
}

void SettingsPlan::ask(const ControlWord& word, std::uint32_t value) {
    asks.push_back({&word, value});
    for (const BitField& field : word.fields()) {
        int code = ControlWord::part(value, field);
        if (field.value() != code) {
            want({&word, &field, code});
        }
    }
}

void SettingsPlan::want(const Source& source) {
    std::uint32_t rest = static_cast<std::uint32_t>(source.code);
    for (const FieldPart& part : source.field->parts) {
        std::uint32_t mask = maskOf(part.width);
        std::uint32_t bits = (static_cast<std::uint32_t>(source.code) >> part.fieldLow) & mask;
        rest &= ~(mask << part.fieldLow);
        auto target = std::find_if(targets.begin(), targets.end(), [&part](const Target& candidate) {
            return candidate.setting.element == part.setting.element;
        });
        if (target == targets.end()) {
            targets.push_back({part.setting, part.setting.number(), {}});
            target = targets.end() - 1;
        }
        std::uint32_t kept = static_cast<std::uint32_t>(target->number) & ~(mask << part.settingLow);
        target->number = static_cast<int>(kept | (bits << part.settingLow));
        target->sources.push_back(source);
    }
    if (rest != 0 || source.field->parts.empty()) {
        without.push_back(source);
    }
}

void SettingsPlan::addFixed(const Ask& ask, std::vector<RefusedBits>& rows) {
    const ControlWord& word = *ask.word;
    // A bit that is always 1 has a name and is told by it.
    std::uint32_t open = 0;
    for (const BitField& field : word.fields()) {
        open |= maskOf(widthOf(field)) << field.lowBit;
    }
    // A run of fixed bits with one in it that is asked otherwise is told whole, from its highest down.
    for (int high = widestWord - 1; high >= 0; --high) {
        if (((open >> high) & 1U) != 0) {
            continue;
        }
        // What stands above the word's own bits is a run of its own.
        int lowest = high >= word.bitCount() ? word.bitCount() : 0;
        int low = high;
        while (low > lowest && ((open >> (low - 1)) & 1U) == 0) {
            --low;
        }
        int width = high - low + 1;
        std::uint32_t asked = (ask.value >> low) & maskOf(width);
        std::uint32_t has = (word.base() >> low) & maskOf(width);
        if (asked != has) {
            bool beyond = low >= word.bitCount();
            rows.push_back({word.title(), bitsText(high, low), beyond ? "beyond the word" : "fixed",
                            binaryText(asked, width), binaryText(has, width)});
        }
        high = low;
    }
}

std::vector<RefusedBits> SettingsPlan::refused() const {
    std::vector<RefusedBits> rows;
    for (const Ask& ask : asks) {
        addFixed(ask, rows);
        std::vector<Row> fields;
        auto tell = [&](const Source& source, const std::string& possible) {
            bool told = std::any_of(fields.begin(), fields.end(),
                                    [&source](const Row& row) { return row.lowBit == source.field->lowBit; });
            if (source.word == ask.word && !told) {
                fields.push_back(
                    {source.field->lowBit, rowOf(*source.word, *source.field, source.code, possible)});
            }
        };
        for (const Source& source : without) {
            tell(source, offeredBy(*source.field));
        }
        for (const Target& target : targets) {
            if (!target.setting.offers(target.number)) {
                for (const Source& source : target.sources) {
                    tell(source, target.setting.offered());
                }
            }
        }
        std::sort(fields.begin(), fields.end(),
                  [](const Row& a, const Row& b) { return a.lowBit > b.lowBit; });
        for (Row& row : fields) {
            rows.push_back(std::move(row.told));
        }
    }
    return rows;
}

void SettingsPlan::carryOut() const {
    for (const Target& target : targets) {
        if (target.setting.number() != target.number) {
            target.setting.put(target.number);
        }
    }
}

std::vector<RefusedBits> SettingsPlan::missed() const {
    std::vector<RefusedBits> rows;
    for (const Ask& ask : asks) {
        if (ask.word->value() == ask.value) {
            continue;
        }
        std::size_t before = rows.size();
        for (const BitField& field : ask.word->fields()) {
            int asked = ControlWord::part(ask.value, field);
            int given = field.value();
            if (asked != given) {
                rows.push_back(rowOf(*ask.word, field, asked,
                                     binaryText(static_cast<std::uint32_t>(given), widthOf(field)) +
                                         " beside the other settings"));
            }
        }
        if (rows.size() == before) {
            addFixed(ask, rows);
        }
    }
    return rows;
}

} // namespace zor
