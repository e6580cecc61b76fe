// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <utility>

namespace zor {

TEST(DesktopWindow, BearsTheTitleAndSizeOfTheMainForm) {
    Program program;
    program.start();
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System");
    EXPECT_EQ(program.window.size(), QSize(1280, 800));
    program.window.resize(600, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.main.extent(), (Extent{7500, 9000}));
}

TEST(DesktopWindow, MovingAndSizingAnInnerWindowIsToldInTwips) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    Form* form = program.desk.find("Terminal");
    QWidget& shell = program.window.windowOf(*form)->shell();
    shell.move(40, 24);
    shell.resize(700, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->place(), (Place{360, 600}));
    EXPECT_EQ(form->extent(), (Extent{9000, 10500}));
    form->setPlace({300, 150});
    EXPECT_EQ(shell.pos(), QPoint(10, 20));
}

TEST(DesktopWindow, AWindowAskedForAgainComesToTheFront) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    program.window.activateWindow();
    QCoreApplication::processEvents();
    auto front = [&program] { return program.window.area().activeSubWindow()->windowTitle(); };
    ASSERT_EQ(front(), "Power Supply Settings");
    program.main.menu.mnutoolsTerminal.click();
    EXPECT_EQ(front(), "Terminal");
    // In front of the others on the screen too.
    EXPECT_EQ(program.window.area().subWindowList(QMdiArea::StackingOrder).last()->windowTitle(), "Terminal");
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    EXPECT_EQ(front(), "Power Supply Settings");
}

TEST(DesktopWindow, APanelOpensInTheTopLeftCornerWhateverElseIsOpen) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.main.menu.mnuViewTx2.click();
    QCoreApplication::processEvents();
    Form* panel = program.desk.find("KT1102");
    EXPECT_EQ(program.window.windowOf(*panel)->shell().pos(), QPoint(0, 0));
    EXPECT_EQ(panel->place(), (Place{0, 0}));
}

/// The file of a workspace with the terminal at this place and of this size.
std::string terminalWorkspace(const std::string& values) {
    return "\"# ZOR workspace file version 1.3.4\"\r\n#TRUE#\r\n" +
           [] {
               std::string others;
               for (int window = 0; window < 10; ++window) {
                   others += "#FALSE#\r\n";
               }
               return others;
           }() +
           "0\r\n" + values;
}

/// Starts with a workspace of these values, gives the terminal's window, and the values that saving it again
/// writes.
std::pair<QRect, std::string> restored(const std::string& values) {
    Program program;
    auto write = [&program](const char* name, const std::string& bytes) {
        QFile file(program.folder.filePath(name));
        file.open(QIODevice::WriteOnly);
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    };
    write("ZOR.ini", "\"# ZOR ini file version 2.2.0\"\r\n\"1\"\r\n1\r\n0\r\n\"8\"\r\n");
    write("ZOR.wsp", terminalWorkspace(values));
    program.start();
    program.main.menu.mnuSaveWorkspace.click();
    QFile saved(program.folder.filePath("ZOR.wsp"));
    saved.open(QIODevice::ReadOnly);
    std::string bytes = saved.readAll().toStdString();
    return {program.window.windowOf(*program.desk.find("Terminal"))->shell().geometry(),
            bytes.substr(terminalWorkspace("").size())};
}

TEST(DesktopWindow, AWorkspaceBringsAWindowBackWhereItWasAndAsLargeAsItWas) {
    struct Row {
        const char* values;
        QRect window;
    };
    for (const Row& row : {Row{"0\r\n0\r\n3000\r\n4500\r\n", {0, 0, 300, 200}},
                           Row{"360\r\n600\r\n2400\r\n3000\r\n", {40, 24, 200, 160}},
                           Row{"15\r\n0\r\n9000\r\n10500\r\n", {0, 1, 700, 600}}}) {
        SCOPED_TRACE(row.values);
        auto [window, values] = restored(row.values);
        EXPECT_EQ(window, row.window);
        EXPECT_EQ(values, row.values);
    }
}

TEST(DesktopWindow, AWorkspaceOfALargerScreenLeavesItsWindowsWithinReach) {
    for (const char* values :
         {"30000\r\n45000\r\n9000\r\n10500\r\n", "-30000\r\n-45000\r\n9000\r\n10500\r\n"}) {
        QRect window = restored(values).first;
        QRect upperEdge(window.topLeft(), QSize(window.width(), 1));
        QRect visible = upperEdge.intersected({0, 0, 1280, 700});
        EXPECT_GE(visible.width(), 60) << values;
        EXPECT_EQ(window.size(), QSize(700, 600));
    }
    EXPECT_LE(restored("0\r\n0\r\n90000\r\n105000\r\n").first.width(), 1280);
}

} // namespace zor
