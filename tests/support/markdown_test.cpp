// SPDX-License-Identifier: MIT
#include "support/markdown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zor {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Markdown, HasHeadingsOutsideOfCode) {
    EXPECT_THAT(headingsOf("# Top\n\n## First\n```\n## no heading\n```\n### deeper\n## Second\n", 2),
                ElementsAre("First", "Second"));
    EXPECT_THAT(headingsOf("## a\r\n## b", 2), ElementsAre("a", "b"));
    EXPECT_EQ(anchorOf("The EEPROM of a board, `ZOR.db`"), "the-eeprom-of-a-board-zordb");
}

TEST(Markdown, NamesTheDocumentsThatItLinksToOnceAndInOrder) {
    EXPECT_THAT(linkedDocuments("[b](guide/b.md#part), ![p](p.png), [a](a.md)\n[b](guide/b.md) "
                                "[web](https://zor.invalid/c.md) [here](#part)"),
                ElementsAre("guide/b.md", "a.md"));
    EXPECT_THAT(linkedDocuments("[a](a.md"), IsEmpty());
    EXPECT_THAT(linkedDocuments("]("), IsEmpty());
    EXPECT_THAT(linkedDocuments(""), IsEmpty());
}

TEST(Markdown, ReadsAsItsReaderSeesIt) {
    EXPECT_EQ(readableText("# Top\n\n**Left**, what\n  you `Set`, see [the file](a.md).\n| a | b |\n"),
              "top left, what you set, see the file. a b ");
    EXPECT_EQ(readableText(""), "");
}

} // namespace zor
