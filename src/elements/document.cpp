// SPDX-License-Identifier: MIT
#include "elements/document.h"

#include <utility>

namespace zor {

void Document::setSource(std::string markdown, std::filesystem::path folder) {
    markdownText = std::move(markdown);
    pictureFolder = std::move(folder);
    shownHeading.clear();
    changed.emit();
}

void Document::showHeading(std::string heading) {
    shownHeading = std::move(heading);
    headingAsked.emit();
}

bool Document::chooseText(std::string_view link) {
    return act({GestureKind::ChooseKey, link}, [this, chosen = std::string(link)] {
        if (onLink) {
            onLink(chosen);
        }
    });
}

bool Document::seek(const std::string& text, Direction direction) {
    return seeker && seeker(text, direction);
}

} // namespace zor
