// SPDX-License-Identifier: MIT
#pragma once

#include "elements/element.h"

#include <filesystem>

namespace zor {

/// A text with headings, pictures and links, written in Markdown, of which the user sees a part. Its form
/// says which text and which heading; a view renders it and seeks in it.
class Document : public Element {
  public:
    using Element::Element;

    /// @param folder  where its pictures lie
    void setSource(std::string markdown, std::filesystem::path folder);
    [[nodiscard]] const std::string& source() const { return markdownText; }
    [[nodiscard]] const std::filesystem::path& folder() const { return pictureFolder; }

    /// Brings a heading to the top; an empty one is the beginning.
    void showHeading(std::string heading);
    [[nodiscard]] const std::string& heading() const { return shownHeading; }

    /// The user follows a link, as it stands in the text.
    bool chooseText(std::string_view link) override;

    enum class Direction { Forward, Backward };
    /// Seeks a text from where the last one was found to that end. @return false if it is not there
    bool seek(const std::string& text, Direction direction);

    std::function<void(const std::string& link)> onLink;
    /// What a view does to seek.
    std::function<bool(const std::string& text, Direction direction)> seeker;
    /// The heading is to be brought to the top, also if it is the same.
    Signal<> headingAsked;

  private:
    std::string markdownText;
    std::filesystem::path pictureFolder;
    std::string shownHeading;
};

} // namespace zor
