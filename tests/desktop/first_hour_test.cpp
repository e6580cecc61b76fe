// SPDX-License-Identifier: MIT
// What somebody meets in the first hour with the program: wheel, comma key, a panel closed by mistake, the
// chip buttons' lists, files that say where they are.
#include "desk_of_test.h"
#include "program.h"

#include "desktop/adapters/qt_dialogs.h"
#include "desktop/views/compose.h"
#include "panels/common/chip_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

namespace zor {

namespace {

/// Notches of a real wheel, downwards, over the middle of a widget.
void turnWheel(QWidget& widget, int notches) {
    QPointF at = widget.rect().center();
    for (int notch = 0; notch < notches; ++notch) {
        QWheelEvent event(at, widget.mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        // Sent as the system's own, which a sent event would not be.
        qApp->notify(&widget, &event);
        QCoreApplication::processEvents();
    }
}

/// A list, a slider and a strip of tabs on a page that is too high for its window.
struct ScrolledPage : DeskOfTest {
    ScrolledPage() {
        entries.setEntries({"a", "b", "c", "d"});
        entries.select(0);
        entries.onChange = [this] { ++choices; };
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(list(entries));
        layout->addWidget(slider(level));
        layout->addWidget(tabs(strip, {new QWidget, new QWidget}));
        layout->addWidget(&elsewhere);
        page->setMinimumHeight(2000);
        scroller.setWidget(page);
        scroller.setWidgetResizable(true);
        scroller.resize(400, 300);
        form.show();
        showAlone(scroller);
        elsewhere.setFocus();
    }
    ~ScrolledPage() { elsewhere.setParent(nullptr); }

    [[nodiscard]] int scrolled() const { return scroller.verticalScrollBar()->value(); }

    Form form{desk, "Panel", "Panel"};
    ListBox entries{form, "entries"};
    Slider level{form, "level", 0, 10, 5};
    TabStrip strip{form, "strip", {"one", "two"}};
    QLineEdit elsewhere;
    QScrollArea scroller;
    int choices = 0;
};

void whenFileDialogShown(const std::function<void(QFileDialog&)>& action) {
    QTimer::singleShot(0, [action] {
        auto* window = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        action(*window);
    });
}

} // namespace

TEST(Wheel, ScrollsTheWindowOverWhatHasNotTheFocus) {
    ScrolledPage page;
    for (const char* name : {"entries", "level", "strip"}) {
        SCOPED_TRACE(name);
        page.scroller.verticalScrollBar()->setValue(0);
        turnWheel(*page.scroller.findChild<QWidget*>(QString::fromLatin1(name)), 2);
        EXPECT_GT(page.scrolled(), 0);
    }
    EXPECT_EQ(page.entries.position(), 0);
    EXPECT_EQ(page.choices, 0);
    EXPECT_EQ(page.level.value(), 5);
    EXPECT_EQ(page.strip.page(), 1);
    EXPECT_TRUE(page.elsewhere.hasFocus());
}

TEST(Wheel, ChoosesInWhatHasTheFocus) {
    ScrolledPage page;
    auto* entries = page.scroller.findChild<QComboBox*>("entries");
    entries->setFocus();
    turnWheel(*entries, 1);
    EXPECT_EQ(page.entries.position(), 1);
    auto* level = page.scroller.findChild<QSlider*>("level");
    level->setFocus();
    turnWheel(*level, 1);
    EXPECT_NE(page.level.value(), 5);
}

TEST(Wheel, NeverChoosesABoardNorTheDataLine) {
    Program program;
    program.start();
    LinkBar& bar = program.main.linkBar;
    bar.Toolbar3.setVisible(true);
    bar.CB_Mode.putPosition(0);
    bar.LoadboardList.setEntries({"one", "two", "three"});
    bar.LoadboardList.putPosition(0);
    bar.LoadboardList.setEnabled(true);
    int choices = 0;
    bar.CB_Mode.onChange = [&] { ++choices; };
    bar.LoadboardList.onChange = [&] { ++choices; };
    QCoreApplication::processEvents();
    program.window.activateWindow();
    for (const char* name : {"CB_Mode", "LoadboardList"}) {
        auto* list = program.window.findChild<QComboBox*>(QString::fromLatin1(name));
        turnWheel(*list, 2);
        list->setFocus();
        turnWheel(*list, 2);
    }
    EXPECT_EQ(choices, 0);
    EXPECT_EQ(bar.CB_Mode.position(), 0);
    EXPECT_EQ(bar.LoadboardList.position(), 0);
}

TEST(CommaKey, TypesAPointInANumberFieldAndLeavesPastedTextAlone) {
    DeskOfTest test;
    Form form(test.desk, "Panel", "Panel");
    TextField number(form, "FreqCenter", "");
    TextField words(form, "Notes", "");
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    auto* line = field(number);
    auto* text = textField(words);
    layout->addWidget(line);
    layout->addWidget(text);
    form.show();
    showAlone(host);
    line->setFocus();
    QTest::keyClicks(line, "315,5");
    EXPECT_EQ(number.text(), "315.5");
    QGuiApplication::clipboard()->setText("433,9");
    static_cast<QLineEdit*>(line)->selectAll();
    QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(number.text(), "433,9");
    text->setFocus();
    QTest::keyClicks(text, "a, b");
    EXPECT_EQ(words.text(), "a, b");
}

TEST(ClosedPanel, ComesBackAsItWasByTheButtonAtTheFoot) {
    Program program;
    program.start();
    program.window.activateWindow();
    program.main.menu.mnuViewTx0.click();
    ChipPanel* panel = program.main.bench().openPanel();
    FormWindow* window = program.window.windowOf(*panel);
    auto* frequency = window->content().findChild<QLineEdit*>("FreqCenter");
    frequency->setFocus();
    frequency->selectAll();
    QTest::keyClicks(frequency, "310,5\r");
    ASSERT_EQ(panel->FreqCenter.text(), "310.5");
    auto* undo = program.window.findChild<QPushButton*>("Undo");
    EXPECT_FALSE(undo->isVisible());
    window->shell().close();
    QCoreApplication::processEvents();
    ASSERT_EQ(program.main.bench().openPanel(), nullptr);
    EXPECT_EQ(program.main.Notice.caption(), "Settings of the KT1100 panel were discarded");
    ASSERT_TRUE(undo->isVisible());
    QTest::mouseClick(undo, Qt::LeftButton);
    panel = program.main.bench().openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->FreqCenter.text(), "310.5");
    EXPECT_FALSE(undo->isVisible());
}

TEST(ChipButton, DropsItsListDownBehindTheBoxThatAsksForAChoice) {
    Program program;
    program.start();
    program.window.activateWindow();
    auto* tool = program.window.findChild<QToolButton*>("RX");
    bool dropped = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            dropped = menu == tool->menu();
            menu->close();
        }
    });
    watch.start(10);
    QTest::mouseClick(tool, Qt::LeftButton, {}, QPoint(5, tool->height() / 2));
    ASSERT_EQ(program.dialogs.boxes.size(), 1U);
    EXPECT_EQ(program.dialogs.boxes.front().text, "Please select KT2100 or KT2102 from the dropdown list!");
    EXPECT_TRUE(QTest::qWaitFor([&] { return dropped; }, 2000));
}

TEST(TitleBar, NamesTheFileAndThatTheSettingsAreOthers) {
    Program program;
    program.start();
    program.main.menu.mnuViewTx0.click();
    ChipPanel* panel = program.main.bench().openPanel();
    panel->setUsedFile({"/somewhere/KT1100.tc", panel->savedConfiguration()});
    const QWidget& shell = program.window.windowOf(*panel)->shell();
    EXPECT_EQ(shell.windowTitle(), "KT1100 transmitter control panel - KT1100.tc");
    panel->FreqCenter.type("312");
    EXPECT_EQ(shell.windowTitle(), "KT1100 transmitter control panel - KT1100.tc (changed)");
}

TEST(FileDialogs, SaveUnderTheProposedNameAtOnce) {
    QTemporaryDir folder;
    QtDialogs dialogs;
    FileRequest request{.mode = FileRequest::Mode::Save,
                        .title = "Save configuration",
                        .folder = folder.path().toStdString(),
                        .startName = "*.tc",
                        .proposal = "KT1100.tc",
                        .filter = "Transmitter Configuration files (*.tc) | *.tc |All files (*.*)| *.*",
                        .defaultExtension = "tc"};
    whenFileDialogShown([](QFileDialog& window) {
        auto* name = window.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "KT1100.tc");
        QTest::keyClick(name, Qt::Key_Return);
        if (window.isVisible()) {
            ADD_FAILURE() << "the dialog stayed open";
            window.reject();
        }
    });
    EXPECT_EQ(dialogs.chooseFile(request).name, folder.filePath("KT1100.tc").toStdString());
}

TEST(Tips, SayWhatBelongsToTheMomentBehindTheirOwnText) {
    Program program;
    program.start();
    LinkBar& bar = program.main.linkBar;
    bar.CB_Mode.setHint("Held by the window \"x\"");
    bar.LoadBoard.setHint("Port 1: /dev/ttyUSB0");
    EXPECT_EQ(program.window.findChild<QWidget*>("CB_Mode")->toolTip(),
              "Please Select the FSK raw data mode!\nHeld by the window \"x\"");
    EXPECT_EQ(program.window.findChild<QWidget*>("LoadBoard")->toolTip(), "Port 1: /dev/ttyUSB0");
}

TEST(Bars, ABoardsNameHasTheRoomItNeeds) {
    Program program;
    program.start();
    LinkBar& bar = program.main.linkBar;
    auto* line = program.window.findChild<QLineEdit*>("LoadBoard");
    ASSERT_NE(line, nullptr);
    int usual = line->width();
    bar.LoadBoard.setText("LoadB. Loader: Com16");
    QCoreApplication::processEvents();
    EXPECT_GE(line->width(), line->fontMetrics().horizontalAdvance(line->text()));
    bar.LoadBoard.setText("1.x on Com1");
    QCoreApplication::processEvents();
    EXPECT_EQ(line->width(), usual);
}

} // namespace zor
