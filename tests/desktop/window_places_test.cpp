// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/screen_room.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QToolBar>

#include <set>
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

/// The supply tool beside a panel, with its plot to unfold.
class UnfoldingTool {
  public:
    UnfoldingTool() {
        startWithPanel(program, "BerylV3");
        program.main.perform([this] { program.main.bench().tools.open(Tool::frm_PowerSupply); });
        supply = program.main.bench().tools.find(Tool::frm_PowerSupply);
    }
    [[nodiscard]] QWidget& shell() const { return program.window.windowOf(*supply)->shell(); }
    [[nodiscard]] bool isInSight() const {
        return QRect(QPoint(), program.window.area().viewport()->size()).contains(shell().geometry());
    }
    void clickPlot() const {
        supply->find("ShowPlot")->click();
        QCoreApplication::processEvents();
    }

    Program program;
    Form* supply = nullptr;
};

TEST(DesktopWindow, AToolThatUnfoldsStaysInSightAndGoesBackFolded) {
    UnfoldingTool bench;
    bench.shell().move(800, 500);
    QCoreApplication::processEvents();
    ASSERT_TRUE(bench.isInSight());
    QRect folded = bench.shell().geometry();
    bench.clickPlot();
    EXPECT_GT(bench.shell().height(), folded.height());
    EXPECT_NE(bench.shell().pos(), folded.topLeft());
    EXPECT_TRUE(bench.isInSight());
    bench.clickPlot();
    EXPECT_EQ(bench.shell().geometry(), folded);
    EXPECT_EQ(bench.supply->place(), (Place{500 * 15, 800 * 15}));
}

TEST(DesktopWindow, AToolMovedWhileUnfoldedStaysWhereItWasPut) {
    UnfoldingTool bench;
    bench.shell().move(800, 500);
    QCoreApplication::processEvents();
    bench.clickPlot();
    bench.shell().move(20, 30);
    QCoreApplication::processEvents();
    bench.clickPlot();
    EXPECT_EQ(bench.shell().pos(), QPoint(20, 30));
    // From there it has room to unfold.
    bench.clickPlot();
    EXPECT_EQ(bench.shell().pos(), QPoint(20, 30));
}

TEST(DesktopWindow, AToolLeftHalfOutOfSightStaysThereFolded) {
    UnfoldingTool bench;
    bench.clickPlot();
    QPoint place(bench.program.window.area().viewport()->width() - 200, 40);
    bench.shell().move(place);
    QCoreApplication::processEvents();
    bench.clickPlot();
    EXPECT_EQ(bench.shell().pos(), place);
}

TEST(DesktopWindow, APanelTakesTheRoomThatThereIs) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "BerylV3");
    QWidget& shell = program.window.windowOf(panel)->shell();
    QSize whole = shell.size();
    auto barsOfArea = [&program] {
        int bars = 0;
        for (const auto* bar : program.window.area().findChildren<QScrollBar*>()) {
            bars += bar->isVisible() && bar->parentWidget()->parentWidget() == &program.window.area() ? 1 : 0;
        }
        return bars;
    };
    for (QSize size : {QSize(1280, 560), QSize(1000, 800), QSize(900, 500)}) {
        program.window.resize(size);
        QCoreApplication::processEvents();
        const QSize room = program.window.area().viewport()->size();
        EXPECT_LE(shell.width(), room.width()) << size.width();
        EXPECT_LE(shell.height(), room.height()) << size.width();
        EXPECT_EQ(barsOfArea(), 0) << size.width() << ": the panel has its own, the area needs none";
    }
    program.window.resize(1600, 1000);
    QCoreApplication::processEvents();
    EXPECT_EQ(shell.size(), whole);
    EXPECT_EQ(shell.pos(), QPoint(0, 0));
}

TEST(DesktopWindow, AWindowAskedForAgainComesToTheFront) {
    Program program;
    startWithTwoTools(program);
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

TEST(DesktopWindow, FitsItsScreenWithItsFrame) {
    Program program;
    program.screens = {{0, 0, 1280, 770}};
    program.start();
    EXPECT_LE(program.window.width(), 1280);
    EXPECT_LE(program.window.height(), 770 - 30);
    EXPECT_GT(program.window.height(), 700);
    EXPECT_EQ(program.main.extent().height, static_cast<Twips>(program.window.height() * 15));
}

TEST(DesktopWindow, IsPulledIntoTheScreenThatShowsMostOfIt) {
    std::vector<QRect> screens{{0, 0, 1280, 800}, {1280, 0, 1920, 1080}};
    QMargins frame(2, 30, 2, 2);
    struct Row {
        QRect wanted;
        QRect put;
    };
    for (const Row& row :
         {Row{{100, 100, 800, 600}, {100, 100, 800, 600}}, Row{{0, 0, 1280, 800}, {2, 30, 1276, 768}},
          Row{{1400, 200, 1900, 1000}, {1298, 78, 1900, 1000}},
          Row{{1'000'000, 1'000'000, 700, 600}, {578, 198, 700, 600}},
          Row{{-1'000'000, -5, 1'000'000, 1'000'000}, {2, 30, 1276, 768}}}) {
        EXPECT_EQ(withinScreens(row.wanted, screens, frame), row.put);
    }
    EXPECT_EQ(withinScreens({5, 5, 9000, 9000}, {}, frame), QRect(5, 5, 9000, 9000));
}

TEST(DesktopWindow, FollowsTheWindowManagerAndNeverFightsIt) {
    Program program;
    program.start();
    program.window.resize(900, 650);
    QCoreApplication::processEvents();
    program.window.showMaximized();
    // What is told in the middle, a new title say, puts nothing back.
    program.main.setTitle("Another title");
    QCoreApplication::processEvents();
    program.main.setTitle("A third title");
    QSize maximised = program.window.size();
    EXPECT_TRUE(program.window.isMaximized());
    EXPECT_NE(maximised, QSize(900, 650));
    EXPECT_EQ(program.main.extent(), (Extent{static_cast<Twips>(maximised.height() * 15),
                                             static_cast<Twips>(maximised.width() * 15)}));
    program.window.showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(program.window.size(), QSize(900, 650));
    EXPECT_EQ(program.main.extent(), (Extent{9750, 13500}));
}

TEST(DesktopWindow, AMoveThatIsToldBeforeTheNewSizeKeepsTheNewSize) {
    Program program;
    program.start();
    program.window.resize(900, 650);
    QCoreApplication::processEvents();
    // Between the two the program changes something of its own.
    Subscription between =
        program.main.changed.subscribe([&] { program.main.linkBar.CommStatus.setText("reading..."); });
    program.window.setGeometry(10, 20, 1000, 700);
    program.main.setTitle("Another title");
    QCoreApplication::processEvents();
    EXPECT_EQ(program.window.geometry(), QRect(10, 20, 1000, 700));
}

TEST(DesktopWindow, OpensWhereAndAsLargeAsItWas) {
    std::string memory;
    {
        Program program;
        program.start();
        program.window.setGeometry(150, 120, 940, 660);
        QCoreApplication::processEvents();
        program.window.close();
        QFile file(program.folder.filePath("ZOR-window.ini"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        memory = file.readAll().toStdString();
    }
    EXPECT_EQ(memory, "\"# ZOR window file version 1\"\r\n150\r\n120\r\n940\r\n660\r\n#FALSE#\r\n");
    auto opened = [](const std::string& bytes) {
        Program program;
        QFile file(program.folder.filePath("ZOR-window.ini"));
        file.open(QIODevice::WriteOnly);
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        file.close();
        program.start();
        return std::pair(program.window.normalGeometry(), program.window.isMaximized());
    };
    EXPECT_EQ(opened(memory), std::pair(QRect(150, 120, 940, 660), false));
    EXPECT_TRUE(opened("\"# ZOR window file version 1\"\r\n150\r\n120\r\n940\r\n660\r\n#TRUE#\r\n").second);
    // Hostile or broken: on the screen in any case.
    for (const char* bytes :
         {"\"# ZOR window file version "
          "1\"\r\n143000000\r\n-2147483648\r\n16777215\r\n2147483647\r\n#FALSE#\r\n",
          "\"# ZOR window file version 1\"\r\n0\r\n0\r\n-5\r\n0\r\n#FALSE#\r\n", "", "\"# ZOR w"}) {
        QRect window = opened(bytes).first;
        EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(window)) << bytes;
        EXPECT_GE(window.width(), 640) << bytes;
    }
}

TEST(DesktopWindow, AHostileWorkspaceIsPulledIntoView) {
    for (const char* values : {"2145000000\r\n2145000000\r\n2147483647\r\n2147483647\r\n",
                               "-2145000000\r\n-2145000000\r\n251658225\r\n251658225\r\n",
                               "0\r\n2145000000\r\n-15\r\n-2147483648\r\n"}) {
        QRect window = restored(values).first;
        EXPECT_TRUE(QRect(0, 0, 1280, 800).contains(window)) << values << window.width();
        EXPECT_GT(window.width(), 100) << values;
        EXPECT_GT(window.height(), 50) << values;
    }
}

TEST(DesktopWindow, ANarrowWindowStandsItsBarsInRows) {
    Program program;
    program.start();
    program.main.linkBar.Toolbar3.setVisible(true);
    auto bar = [&](const char* name) { return program.window.findChild<QToolBar*>(name); };
    program.window.resize(1280, 800);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar("Toolbar1")->y(), bar("Toolbar3")->y());
    program.window.resize(800, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.window.width(), 800);
    // The data selector goes up beside the chips rather than into a third row.
    std::set<int> rows;
    for (const char* name : {"Toolbar1", "Toolbar2", "Toolbar3"}) {
        EXPECT_TRUE(bar(name)->isVisible()) << name;
        rows.insert(bar(name)->y());
    }
    EXPECT_EQ(rows.size(), 2U);
    for (const char* name : {"TX", "EE", "Connect", "Disconnect", "LoadboardList", "CB_Mode"}) {
        auto* widget = program.window.findChild<QWidget*>(name);
        EXPECT_TRUE(widget->isVisible()) << name;
        EXPECT_LE(widget->mapTo(&program.window, QPoint(widget->width(), 0)).x(), 800) << name;
    }
    program.window.resize(1280, 800);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar("Toolbar1")->y(), bar("Toolbar3")->y());
    EXPECT_GT(bar("Toolbar3")->x(), bar("Toolbar2")->x());
    EXPECT_GT(bar("Toolbar2")->x(), bar("Toolbar1")->x());
}

} // namespace zor
