// SPDX-License-Identifier: MIT
#include "elements/cell_picture.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

namespace zor {

namespace {

using Cell = CellPicture::Cell;

struct Window {
    Window() { form.show(); }

    zor::testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Window", "A window"};
    CellPicture picture{form, "Picture", 4, 2};
    int changes = 0;
    Subscription counting = picture.changed.subscribe([this] { ++changes; });
};

} // namespace

TEST(CellPicture, CountsItsCellsByKind) {
    Window window;
    EXPECT_EQ(window.picture.rows(), 4U);
    EXPECT_EQ(window.picture.columns(), 2U);
    EXPECT_EQ(window.picture.text(), "0 written, 0 zero, 0 empty, 0 different");
    window.picture.setContents({Cell::Written, Cell::Written, Cell::Zero, Cell::Differs, Cell::Empty});
    EXPECT_EQ(window.picture.text(), "2 written, 1 zero, 1 empty, 1 different");
    EXPECT_EQ(window.picture.contents()[7], Cell::Absent);
    window.picture.setContents(std::vector<Cell>(20, Cell::Zero));
    EXPECT_EQ(window.picture.contents().size(), 8U);
}

TEST(CellPicture, TellsOfAChangeOnly) {
    Window window;
    window.picture.setContents({Cell::Written});
    window.picture.setContents({Cell::Written});
    window.picture.pick(0);
    window.picture.pick(0);
    window.picture.setPassed(3);
    window.picture.setPassed(3);
    EXPECT_EQ(window.changes, 3);
    window.picture.pick(std::nullopt);
    window.picture.setPassed(std::nullopt);
    EXPECT_EQ(window.changes, 5);
}

TEST(CellPicture, LeadsAClickToItsAction) {
    Window window;
    std::size_t clicked = 99;
    window.picture.onCell = [&](std::size_t cell) { clicked = cell; };
    EXPECT_TRUE(window.picture.clickCell(5));
    EXPECT_EQ(clicked, 5U);
    EXPECT_TRUE(window.picture.clickCell(8)) << "beside the cells";
    EXPECT_EQ(clicked, 5U);
    window.picture.setEnabled(false);
    EXPECT_FALSE(window.picture.clickCell(1));
}

} // namespace zor
