// SPDX-License-Identifier: MIT
#include "program.h"

#include "desktop/widgets/colours.h"
#include "elements/text_field.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

namespace zor {

namespace {

/// The generator beside the KT1100's panel.
struct Generator {
    Generator() {
        program.start();
        program.main.menu.mnuViewTx0.click();
        program.main.bench().tools.open(Tool::Frm_GenHeader);
        form = program.desk.find("Frm_GenHeader");
        area = program.window.windowOf(*form)->content().findChild<QPlainTextEdit*>("TB_Header");
        QCoreApplication::processEvents();
    }

    [[nodiscard]] std::string text() const { return form->find("TB_Header")->text(); }

    /// Colour of the first character of the first line that begins so.
    [[nodiscard]] QColor colourOf(const char* line) const {
        for (QTextBlock block = area->document()->begin(); block.isValid(); block = block.next()) {
            if (block.text().startsWith(QLatin1String(line))) {
                auto formats = block.layout()->formats();
                return formats.isEmpty() ? QColor() : formats.front().format.foreground().color();
            }
        }
        return {};
    }

    Program program;
    Form* form = nullptr;
    QPlainTextEdit* area = nullptr;
};

} // namespace

TEST(HeaderView, ShowsTheWholeText) {
    Generator generator;
    ASSERT_NE(generator.area, nullptr);
    EXPECT_TRUE(generator.area->toPlainText().startsWith("/*\n***"));
    EXPECT_EQ(generator.area->verticalScrollBar()->value(), 0);
    EXPECT_GT(generator.area->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(generator.text(), generator.area->toPlainText().replace("\n", "\r\n").toStdString());
}

TEST(HeaderView, ColoursDirectivesAndCommentsByTheirRoles) {
    Generator generator;
    const RoleColours& colours = roles(generator.area->palette());
    EXPECT_EQ(generator.colourOf("#define KT1100_FREQSET_CMD"), colours.directive);
    EXPECT_EQ(generator.colourOf("/*"), colours.codeComment);
    EXPECT_EQ(generator.colourOf("\tCenter Frequency"), colours.codeComment);
    generator.form->find("TB_Header")->edit("int a;\r\n/* b */ int c; /* d\r\ne */ int f;\r\n#if 1\r\n");
    EXPECT_EQ(generator.colourOf("int a"), QColor());
    EXPECT_EQ(generator.colourOf("/* b */"), colours.codeComment);
    EXPECT_EQ(generator.colourOf("e */"), colours.codeComment);
    EXPECT_EQ(generator.colourOf("#if"), colours.directive);
}

TEST(HeaderView, FollowsTheSchemeWithoutTouchingTheText) {
    Generator generator;
    std::string before = generator.text();
    for (Scheme scheme : {Scheme::Dark, Scheme::Light}) {
        generator.area->setPalette(schemePalette(scheme));
        QCoreApplication::processEvents();
        EXPECT_EQ(generator.colourOf("#define"), roles(scheme).directive);
        EXPECT_EQ(generator.colourOf("/*"), roles(scheme).codeComment);
    }
    EXPECT_EQ(generator.text(), before);
    EXPECT_FALSE(static_cast<TextField*>(generator.form->find("TB_Header"))->typedIn());
}

TEST(HeaderView, TakesWhatIsTyped) {
    Generator generator;
    generator.program.window.activateWindow();
    generator.area->setFocus();
    generator.area->moveCursor(QTextCursor::Start);
    QTest::keyClicks(generator.area, "// x");
    QTest::keyClick(generator.area, Qt::Key_Return);
    EXPECT_EQ(generator.text().substr(0, 10), "// x\r\n/*\r\n");
    auto* generate =
        generator.program.window.windowOf(*generator.form)->content().findChild<QPushButton*>("PB_Generate");
    QTest::mouseClick(generate, Qt::LeftButton);
    EXPECT_EQ(generator.text().substr(0, 4), "/*\r\n");
}

TEST(HeaderView, APressCommitsTheFieldOfThePanelThatIsBeingTypedIn) {
    Generator generator;
    Form* panel = generator.program.desk.find("OpalV2");
    auto* frequency =
        generator.program.window.windowOf(*panel)->content().findChild<QLineEdit*>("FreqCenter");
    generator.program.window.activateWindow();
    frequency->setFocus();
    frequency->selectAll();
    QTest::keyClicks(frequency, "316");
    auto* generate =
        generator.program.window.windowOf(*generator.form)->content().findChild<QPushButton*>("PB_Generate");
    QTest::mouseClick(generate, Qt::LeftButton);
    EXPECT_NE(generator.text().find("#define KT1100_FREQSET_CMD\t\t0xA960\r\n"), std::string::npos);
}

} // namespace zor
