// SPDX-License-Identifier: MIT
#include "widget_of_test.h"

#include "desktop/views/compose.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

namespace zor {

using Binders = WidgetOfTest;

TEST_F(Binders, AWidgetBearsItsElementsName) {
    auto& element = add<TextField>("FreqCenter", "315");
    auto& line = show<QLineEdit>(field(element));
    EXPECT_EQ(line.objectName(), "FreqCenter");
    EXPECT_EQ(line.text(), "315");
    EXPECT_EQ(Binding::of(&line)->element(), &element);
}

TEST_F(Binders, AWidgetThatGoesWithTheFocusIsNeitherDrawnNorLeft) {
    struct OwnPart : QLineEdit {
        explicit OwnPart(bool& goneFlag)
            : gone(goneFlag) {}
        ~OwnPart() override { gone = true; }
        bool& gone;
    };
    auto& element = add<TextField>("FreqCenter", "315");
    int left = 0;
    element.onLeave = [&] { ++left; };
    bool gone = false;
    int drawnAfter = 0;
    auto* line = new OwnPart(gone);
    auto* binding = new Binding(element, *line);
    binding->followFocus();
    binding->onDraw([&] { drawnAfter += gone ? 1 : 0; });
    Signal<> other;
    binding->follow(other, [&] { drawnAfter += gone ? 1 : 0; });
    // What the focus's loss brings about may change the element from elsewhere.
    QObject::connect(qApp, &QApplication::focusChanged, line, [&] {
        element.setText("433");
        other.emit();
    });
    show<QLineEdit>(line);
    ASSERT_TRUE(line->hasFocus());
    ASSERT_TRUE(element.focused());
    delete line;
    EXPECT_TRUE(gone);
    EXPECT_EQ(element.text(), "433");
    EXPECT_EQ(drawnAfter, 0);
    EXPECT_EQ(left, 0);
}

TEST_F(Binders, CaptionAndUnitAreHiddenAndGreyedWithTheirField) {
    auto& element = add<TextField>("FreqCenter", "315");
    QWidget* box = group("Frequency", {labelled("Centre", field(element), "MHz")});
    show<QWidget>(box);
    auto labels = box->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 2);
    element.setEnabled(false);
    EXPECT_FALSE(labels[0]->isEnabled());
    element.setVisible(false);
    EXPECT_FALSE(labels[0]->isVisible());
    EXPECT_FALSE(labels[1]->isVisible());
    element.setVisible(true);
    EXPECT_TRUE(labels[0]->isVisible());
}

TEST_F(Binders, AFrameHidesAndGreysWhatStandsInIt) {
    auto& frame = add<Frame>("Frame1", "Timer");
    auto& inner = add<TextField>("WKUPM", "1");
    inner.setContainer(&frame);
    QWidget* box = group(frame, {labelled("M", field(inner))});
    show<QWidget>(box);
    auto* line = box->findChild<QLineEdit*>("WKUPM");
    ASSERT_NE(line, nullptr);
    frame.setEnabled(false);
    EXPECT_FALSE(line->isEnabled());
    frame.setVisible(false);
    EXPECT_FALSE(line->isVisible());
    frame.setVisible(true);
    frame.setEnabled(true);
    EXPECT_TRUE(line->isVisible());
    EXPECT_TRUE(line->isEnabled());
}

TEST_F(Binders, ABackgroundIsShownWithATextThatCanBeReadOnIt) {
    auto& element = add<TextField>("status(1)", "POR", TextField::Access::ReadOnly);
    auto& line = show<QLineEdit>(field(element));
    element.setBackground(Colour{0, 0, 128});
    EXPECT_EQ(line.palette().color(QPalette::Base), QColor(0, 0, 128));
    EXPECT_EQ(line.palette().color(QPalette::Text), QColor(Qt::white));
    element.setBackground(std::nullopt);
    EXPECT_NE(line.palette().color(QPalette::Base), QColor(0, 0, 128));
}

TEST_F(Binders, AWidgetOutlivesItsForm) {
    auto& line = show<QLineEdit>(field(add<TextField>("FreqCenter", "315")));
    elements.clear();
    form.reset();
    EXPECT_EQ(Binding::of(&line)->element(), nullptr);
    QTest::keyClicks(&line, "1");
    QTest::keyClick(&line, Qt::Key_Return);
    elsewhere.setFocus();
    // It goes on as a field that nobody listens to.
    EXPECT_EQ(line.text(), QStringLiteral("3151"));
}

TEST_F(Binders, AnElementOutlivesItsWidget) {
    auto& element = add<TextField>("FreqCenter", "315");
    delete field(element);
    element.setText("316");
    EXPECT_EQ(element.text(), "316");
}

} // namespace zor
