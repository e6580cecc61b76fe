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

/// The user guide inside the program: its pages with pictures and links, their sections to choose from, and
/// a search through all of them. Its pages are the documents that its index links to.
class Guide : public Form {
  public:
    explicit Guide(Bench& ownBench);

    /// Opens the guide at a window's page; at its index for one that it has no page of.
    void showWindow(std::string_view formName);

    ListBox Contents;
    Button Back;
    TextField Search;
    Button FindPrevious;
    Button FindNext;
    Label Found;
    Document Page;

  private:
    /// A document, as a path from the folder of documents, and a heading in it.
    struct Spot {
        std::string file;
        std::string heading;
        bool operator==(const Spot&) const = default;
    };
    /// What the search looks through.
    struct PageText {
        std::string file;
        std::string readable;
    };
    void readPages();
    /// @return false if the file cannot be read; what was shown stays
    bool open(const std::string& file);
    void go(const Spot& spot);
    void follow(const std::string& link);
    void goBack();
    /// Where `Back` leads.
    void comeFrom(const Spot& spot);
    void find(Document::Direction direction);
    bool findElsewhere(Document::Direction direction);
    void Contents_Click();

    Bench& bench;
    std::vector<PageText> pages;
    /// What each entry of `Contents` stands for.
    std::vector<Spot> outline;
    Spot shown;
    std::vector<Spot> before;
};

/// A window's page of the guide, by the form's name; empty for a window that it has none of.
[[nodiscard]] std::string guidePage(std::string_view formName);

} // namespace zor
