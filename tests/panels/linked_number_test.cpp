// SPDX-License-Identifier: MIT
#include "panels/common/linked_number.h"

#include "elements/desk.h"
#include "elements/form.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "virtual/virtual_loop.h"

#include <gtest/gtest.h>

#include <string>

namespace zor {

namespace {

struct Controls {
    testing::VirtualLoop loop;
    Desk desk{loop};
    Form form{desk, "Form", "Form"};
    TextField field{form, "Field"};
    Slider slider{form, "Slider", 0, 15, 0};
    UpDown arrows{form, "Arrows"};
    LinkedNumber number{field, {1, 15}, &slider, &arrows};
    int commits = 0;

    Controls() {
        field.onCommit = [this] {
            ++commits;
            number.commit();
        };
        form.show();
    }
};

} // namespace

TEST(LinkedNumber, BringsFieldAndSliderTogetherAtACommit) {
    Controls controls;
    controls.field.type("7.5");
    EXPECT_EQ(controls.field.text(), "8");
    EXPECT_EQ(controls.slider.value(), 8);
    EXPECT_EQ(controls.number.value(), 8);
    EXPECT_EQ(controls.commits, 1);
}

TEST(LinkedNumber, ASliderBelowTheRangeComesBackToItsEnd) {
    Controls controls;
    controls.slider.slide(5);
    EXPECT_EQ(controls.field.text(), "5");
    controls.slider.slide(0);
    EXPECT_EQ(controls.field.text(), "1");
    EXPECT_EQ(controls.slider.value(), 1);
    EXPECT_EQ(controls.commits, 2);
}

TEST(LinkedNumber, LeavesTheWindowItsOwnActionOnTheSlider) {
    Controls controls;
    std::string seen;
    controls.slider.onChange = [&] { seen = controls.field.text(); };
    controls.slider.slide(9);
    EXPECT_EQ(controls.commits, 1);
    EXPECT_EQ(seen, "9"); // the number is taken by then
}

TEST(LinkedNumber, AnArrowCountsFromTheFieldsNumber) {
    Controls controls;
    controls.field.setText("3 of 15");
    controls.arrows.stepUp();
    EXPECT_EQ(controls.field.text(), "4");
    controls.arrows.stepDown();
    EXPECT_EQ(controls.field.text(), "3");
    controls.field.setText("none");
    controls.arrows.stepDown();
    EXPECT_EQ(controls.field.text(), "1");
    EXPECT_EQ(controls.slider.value(), 1);
}

} // namespace zor
