// SPDX-License-Identifier: MIT
#include "elements/kept_text.h"

#include "support/numbers.h"

#include <algorithm>
#include <utility>

namespace zor {

namespace {

/// So much goes at a time that moving the rest costs next to nothing a character.
constexpr std::size_t droppedAtOnce = KeptText::mostKept / 4;
/// How far the end of the line that goes last is looked for; a text without lines is cut anywhere.
constexpr std::size_t longestLine = 4096;
/// Of commands that were never answered; the text's own bound does not count them.
constexpr std::size_t mostRemarks = 10'000;

} // namespace

KeptText::KeptText(Form& owner, std::string name)
    : Monitor(owner, std::move(name))
    , growing(appended.subscribe([this](std::string_view) {
        if (contents().size() > mostKept) {
            dropOldest();
        }
    }))
    , shrinking(changed.subscribe([this] { followShorterText(); })) {}

void KeptText::followShorterText() {
    if (contents().empty()) {
        ownRemarks.clear();
        droppedCount = 0;
        setHint({});
        return;
    }
    // A backspace may have taken what stood in front of them.
    for (auto last = ownRemarks.rbegin(); last != ownRemarks.rend() && last->position > contents().size();
         ++last) {
        last->position = contents().size();
    }
}

void KeptText::dropOldest() {
    std::size_t from = std::max(contents().size() - mostKept, droppedAtOnce);
    std::size_t lineEnd = contents().find('\n', from - 1);
    if (lineEnd < from + longestLine) {
        from = lineEnd + 1;
    }
    from = std::min(from, contents().size());
    while (!ownRemarks.empty() && ownRemarks.front().position < from) {
        ownRemarks.pop_front();
    }
    for (Remark& kept : ownRemarks) {
        kept.position -= from;
    }
    droppedCount += from;
    keepFrom(from);
    setHint(droppedNote());
    shortened.emit();
}

std::string KeptText::droppedNote() const {
    if (droppedCount == 0) {
        return {};
    }
    return "The oldest " + decimalsText(static_cast<double>(droppedCount) / (1 << 20), 1) +
           " MiB are gone; the newest " + std::to_string(mostKept >> 20) + " MiB are kept.";
}

void KeptText::remark(std::string text) {
    if (ownRemarks.size() == mostRemarks) {
        ownRemarks.pop_front();
    }
    ownRemarks.push_back({contents().size(), std::move(text)});
    remarked.emit();
}

std::string KeptText::withRemarks() const {
    std::string all;
    std::size_t position = 0;
    for (const Remark& said : ownRemarks) {
        all.append(contents(), position, said.position - position).append(said.text);
        position = said.position;
    }
    return all.append(contents(), position, std::string::npos);
}

bool KeptText::edit(std::string_view text) {
    if (locked() || !usable()) {
        return false;
    }
    clear();
    return std::all_of(text.begin(), text.end(), [this](char key) { return press(key); });
}

bool KeptText::type(std::string_view text) {
    return edit(text) && press('\r');
}

bool KeptText::recall(int step) {
    return onRecall &&
           act({.kind = GestureKind::Recall, .first = static_cast<double>(step)}, [&] { onRecall(step); });
}

} // namespace zor
