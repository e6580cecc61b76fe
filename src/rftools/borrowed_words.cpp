// SPDX-License-Identifier: MIT
#include "rftools/borrowed_words.h"

#include "panels/common/chip_panel.h"
#include "support/numbers.h"

#include <algorithm>

namespace zor {

namespace {

const BitField* fieldOf(const ControlWord& word, std::string_view name) {
    const std::vector<BitField>& fields = word.fields();
    auto found = std::find_if(fields.begin(), fields.end(),
                              [name](const BitField& field) { return field.name == name; });
    return found == fields.end() ? nullptr : &*found;
}

} // namespace

std::uint32_t withField(std::uint32_t value, const ControlWord& word, std::string_view name, int code) {
    const BitField* field = fieldOf(word, name);
    if (field == nullptr) {
        return value;
    }
    std::uint32_t mask = ((1U << (field->highBit - field->lowBit + 1)) - 1) << field->lowBit;
    return (value & ~mask) | (static_cast<std::uint32_t>(code) << field->lowBit & mask);
}

ControlWord* BorrowedWords::find(std::string_view word) const {
    return dynamic_cast<ControlWord*>(panel.find(word));
}

const BitField* BorrowedWords::field(std::string_view word, std::string_view name) const {
    const ControlWord* found = find(word);
    return found == nullptr ? nullptr : fieldOf(*found, name);
}

void BorrowedWords::set(std::string_view name, std::string_view field, int code) {
    ControlWord* word = find(name);
    if (word == nullptr) {
        return;
    }
    Entry* known = entry(*word);
    if (known == nullptr) {
        known = &entries.emplace_back();
        known->word = word;
        known->wanted = word->value();
    }
    std::uint32_t wanted = withField(known->wanted, *word, field, code);
    known->inChip = known->inChip && wanted == known->wanted;
    known->wanted = wanted;
}

const BorrowedWords::Entry* BorrowedWords::entry(const ControlWord& word) const {
    auto found =
        std::find_if(entries.begin(), entries.end(), [&word](const Entry& one) { return one.word == &word; });
    return found == entries.end() ? nullptr : &*found;
}

std::vector<ControlWord*> BorrowedWords::unset() const {
    std::vector<ControlWord*> missing;
    for (ControlWord* word : panel.words()) {
        const Entry* known = entry(*word);
        // What the panel has sent since stands in the chip in our value's place.
        if (known != nullptr && (!known->inChip || !word->lastSent().empty())) {
            missing.push_back(word);
        }
    }
    return missing;
}

std::string BorrowedWords::put(ControlWord& word) {
    Entry& known = *entry(word);
    if (!known.lent || !word.lastSent().empty()) {
        known.before = word.lastSent();
    }
    known.lent = true;
    known.inChip = true;
    word.markUnsent();
    return "S2" + hexText(known.wanted) + "\r";
}

void BorrowedWords::notPut(const ControlWord& word) {
    if (Entry* known = entry(word)) {
        known->inChip = false;
    }
}

std::vector<ControlWord*> BorrowedWords::borrowed() const {
    std::vector<ControlWord*> lent;
    for (ControlWord* word : panel.words()) {
        const Entry* known = entry(*word);
        if (known != nullptr && known->lent && word->lastSent().empty()) {
            lent.push_back(word);
        }
    }
    return lent;
}

std::string BorrowedWords::original(const ControlWord& word) const {
    const Entry* known = entry(word);
    return known != nullptr && !known->before.empty() ? known->before : hexText(word.value());
}

void BorrowedWords::givenBack(ControlWord& word) {
    if (Entry* known = entry(word)) {
        word.takeSent(original(word));
        known->lent = false;
        known->inChip = false;
    }
}

} // namespace zor
