// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/document.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/text_field.h"
#include "link/bench.h"

#include <string>
#include <string_view>
#include <vector>

namespace zor {

/// The user guide inside the program: its text with pictures and links, its sections to choose from, and a
/// search. The other documents that it leads to are shown here too.
class Guide : public Form {
  public:
    explicit Guide(Bench& ownBench);

    /// Opens the guide at what it says of a window; at its beginning for one that it has no section of.
    void showWindow(std::string_view formName);

    ListBox Contents;
    Button Back;
    TextField Search;
    Button FindPrevious;
    Button FindNext;
    Label Found;
    Document Page;

  private:
    /// A document and a heading in it.
    struct Spot {
        std::string file;
        std::string heading;
    };
    /// @return false if the file cannot be read; what was shown stays
    bool open(const std::string& file);
    void go(const Spot& spot);
    void follow(const std::string& link);
    void goBack();
    void find(Document::Direction direction);
    void Contents_Click();

    Bench& bench;
    Spot shown;
    std::vector<Spot> before;
};

/// Where the guide tells of a window, by the form's name; empty for a window that it has no section of.
[[nodiscard]] std::string guideSection(std::string_view formName);

/// The headings of a Markdown text that begin with so many number signs, in their order. Fenced code has
/// none.
[[nodiscard]] std::vector<std::string> headingsOf(std::string_view markdown, int level);

/// A heading as a link names it: lower case, letters, digits and marks that stay; blanks become hyphens.
[[nodiscard]] std::string anchorOf(std::string_view heading);

} // namespace zor
