// SPDX-License-Identifier: MIT
#include "program.h"

#include "desktop/views/registry.h"
#include "desktop/widgets/binding.h"
#include "panels/common/chip_panel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QStackedLayout>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace zor {

namespace {

QString name(const Element& element) {
    return QString::fromStdString(element.name());
}

/// Names of the form's elements that no widget below the root is bound to.
QStringList unseenElements(const Form& form, const QWidget& root) {
    QStringList unseen;
    for (const Element* element : form.elements()) {
        auto bindings = root.findChildren<Binding*>();
        bool seen = std::any_of(bindings.begin(), bindings.end(),
                                [&](const Binding* binding) { return binding->element() == element; });
        if (!seen) {
            unseen += name(*element);
        }
    }
    return unseen;
}

bool onPageThatIsDown(const QWidget& widget) {
    for (const QWidget* at = &widget; at->parentWidget() != nullptr; at = at->parentWidget()) {
        auto* pages = qobject_cast<QStackedLayout*>(at->parentWidget()->layout());
        if (pages != nullptr && pages->currentWidget() != at) {
            return true;
        }
    }
    return false;
}

/// Names of bound widgets that are hidden although their element, and each container of it, is shown.
QStringList wronglyHidden(const QWidget& root) {
    QStringList hidden;
    for (const Binding* binding : root.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget != nullptr && binding->element() != nullptr && binding->element()->shown() &&
            !onPageThatIsDown(*widget) && !widget->isVisibleTo(&root)) {
            hidden += name(*binding->element());
        }
    }
    return hidden;
}

/// Texts of visible captions and buttons that have less room than they need.
QStringList clippedTexts(const QWidget& root) {
    QStringList clipped;
    auto check = [&clipped](const QWidget& widget, const QString& text, const QSize& needed) {
        bool fits = widget.width() >= needed.width() && widget.height() >= needed.height();
        if (widget.isVisible() && !text.isEmpty() && !fits) {
            clipped += text;
        }
    };
    for (const auto* label : root.findChildren<QLabel*>()) {
        QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        check(*label, label->text(), needed);
    }
    for (const auto* button : root.findChildren<QAbstractButton*>()) {
        check(*button, button->text(), button->minimumSizeHint());
    }
    for (const auto* list : root.findChildren<QComboBox*>()) {
        QStyleOptionComboBox look;
        look.initFrom(list);
        QRect room =
            list->style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, list);
        QSize needed(list->fontMetrics().horizontalAdvance(list->currentText()) + list->width() -
                         room.width(),
                     list->minimumSizeHint().height());
        check(*list, list->currentText(), needed);
    }
    for (const auto* field : root.findChildren<QLineEdit*>()) {
        int margins = field->width() - field->contentsRect().width();
        QSize needed(field->fontMetrics().horizontalAdvance(field->text()) + margins,
                     field->fontMetrics().height());
        check(*field, field->text(), needed);
    }
    return clipped;
}

QStringList labelTexts(const QWidget& root) {
    QStringList texts;
    for (const auto* label : root.findChildren<QLabel*>()) {
        texts += label->text();
    }
    return texts;
}

/// How each window of the registry comes onto the desk in a test.
void openForm(Program& program, const std::string& formName, std::unique_ptr<Form>& own) {
    std::map<std::string, std::function<void()>> ways{
        {"Help_R1", [&] { own = std::make_unique<DataFilterHelp>(program.main.bench()); }},
        {"frm_Splash", [&] { own = std::make_unique<Splash>(program.main.bench()); }},
        {"frmAbout", [&] { program.main.menu.mnuHelpAbout.click(); }},
        {"Preferences", [&] { program.main.menu.mnuFilePreferences.click(); }},
        {"Products", [&] { program.main.menu.mnuHelpProducts.click(); }},
        {"Terminal", [&] { program.main.menu.mnutoolsTerminal.click(); }},
        {"eeprom",
         [&] {
             program.main.menu.mnutoolsEEPROM.click();
             // The image and its picture are folded away at first.
             program.desk.find("eeprom")->find("EditorWindow")->click();
         }},
    };
    for (const ToolRow& row : toolRows()) {
        if (row.make != nullptr) {
            ways.emplace(row.form, [&program, &row] { program.main.bench().tools.open(row.tool); });
        }
    }
    for (const PanelRow& row : panelRows()) {
        ways[row.name] = [&program, &row] {
            (program.main.menu.*row.view).click();
            // The indicators are folded away at first.
            program.desk.find(row.name)->find("ShowStatus")->click();
        };
    }
    auto way = ways.find(formName);
    ASSERT_NE(way, ways.end()) << "the test does not know how to open " << formName;
    way->second();
    if (own) {
        own->show();
    }
}

/// Windows go once nothing of theirs is being handled; a test has no loop around it that would see to that.
void deleteWhatHasGone() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QAction* action(const Program& program, const QString& objectName) {
    for (auto* candidate : program.window.menuBar()->findChildren<QAction*>(objectName)) {
        return candidate;
    }
    return nullptr;
}

} // namespace

class EveryView : public testing::TestWithParam<std::string> {};

TEST_P(EveryView, ShowsEveryElementOfItsForm) {
    Program program;
    program.start();
    std::unique_ptr<Form> own;
    openForm(program, GetParam(), own);
    Form* form = program.desk.find(GetParam());
    ASSERT_NE(form, nullptr);
    FormWindow* window = program.window.windowOf(*form);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->shell().isVisible());
    EXPECT_EQ(unseenElements(*form, window->content()), QStringList());
    EXPECT_EQ(wronglyHidden(window->content()), QStringList());
    form->userClose();
    // A window that is made anew at each opening has gone altogether.
    Form* left = program.desk.find(GetParam());
    EXPECT_TRUE(left == nullptr || !left->isOpen());
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryView, testing::ValuesIn([] {
                             std::vector<std::string> names;
                             for (const auto& [formName, view] : allViews()) {
                                 names.push_back(formName);
                             }
                             return names;
                         }()),
                         [](const auto& view) { return view.param; });

/// The elements that the tab key visits one after the other, back to the first; a stop that belongs to no
/// element goes by its class.
QStringList tabWalk() {
    QStringList visited;
    while (QWidget* focus = QApplication::focusWidget()) {
        const Binding* binding = Binding::of(focus);
        QString stop = binding != nullptr ? name(*binding->element()) : focus->metaObject()->className();
        if (visited.contains(stop)) {
            break;
        }
        visited += stop;
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    return visited;
}

/// The elements of a window that a person could work with just now.
QStringList workable(const QWidget& content) {
    QStringList names;
    for (const Binding* binding : content.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) {
            continue;
        }
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        bool works = (field != nullptr && !field->isReadOnly()) ||
                     qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                     qobject_cast<const QComboBox*>(widget) != nullptr ||
                     qobject_cast<const QSlider*>(widget) != nullptr ||
                     qobject_cast<const QTabBar*>(widget) != nullptr;
        if (works && !names.contains(name(*binding->element()))) {
            names += name(*binding->element());
        }
    }
    return names;
}

TEST_P(EveryView, IsWalkedWithTheTabKeyAlone) {
    Program program;
    program.start();
    std::unique_ptr<Form> own;
    openForm(program, GetParam(), own);
    FormWindow& window = *program.window.windowOf(*program.desk.find(GetParam()));
    window.shell().window()->activateWindow();
    QCoreApplication::processEvents();
    QStringList all = workable(window.content());
    QStringList visited = tabWalk();
    for (const QString& element : all) {
        EXPECT_TRUE(visited.contains(element))
            << qPrintable(element) << " of " << qPrintable(visited.join(" "));
    }
    for (const QString& stop : visited) {
        // A window with nothing to work with has the keyboard itself.
        EXPECT_TRUE(all.isEmpty() || !stop.startsWith("Q"))
            << "a stop without an element: " << qPrintable(stop);
    }
}

TEST(DesktopWindow, TheKeyboardGoesToTheBarsAndBack) {
    Program program;
    program.start();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form* form = program.desk.find("frm_PowerSupply");
    program.window.activateWindow();
    auto* voltage = program.window.windowOf(*form)->content().findChild<QLineEdit*>("Voltage");
    voltage->setFocus();
    QTest::keyClick(&program.window, Qt::Key_F6);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "TX");
    QTest::keyClick(&program.window, Qt::Key_F6);
    EXPECT_TRUE(voltage->hasFocus());
}

TEST(DesktopWindow, TheKeyboardGoesFromWindowToWindowAndClosesOne) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    program.window.activateWindow();
    QCoreApplication::processEvents();
    QMdiArea& area = program.window.area();
    ASSERT_NE(area.activeSubWindow(), nullptr);
    QString first = area.activeSubWindow()->windowTitle();
    QTest::keyClick(area.activeSubWindow(), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(area.activeSubWindow(), Qt::Key_Control);
    EXPECT_NE(area.activeSubWindow()->windowTitle(), first);
    QTest::keyClick(area.activeSubWindow(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(program.desk.find("Terminal"), nullptr);
}

TEST(DesktopWindow, TheMenusHaveTheirKeys) {
    Program program;
    program.start();
    QStringList captions;
    for (const QAction* menu : program.window.menuBar()->actions()) {
        captions += menu->text();
    }
    EXPECT_EQ(captions, (QStringList{"&File", "&View", "&Panel", "&Tools", "&Window", "&Help"}));
}

TEST(DesktopWindow, ShowsEveryElementOfTheMainForm) {
    Program program;
    program.start();
    EXPECT_EQ(unseenElements(program.main, program.window), QStringList());
    EXPECT_EQ(wronglyHidden(program.window), QStringList());
}

TEST(DesktopWindow, BearsTheTitleAndSizeOfTheMainForm) {
    Program program;
    program.start();
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System");
    EXPECT_EQ(program.window.size(), QSize(1280, 800));
    program.window.resize(600, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.main.extent(), (Extent{7500, 9000}));
}

TEST(DesktopWindow, AMenuEntryOpensAWindowInsideTheMainOne) {
    Program program;
    program.start();
    deleteWhatHasGone();
    QAction* terminal = action(program, "mnutoolsTerminal");
    ASSERT_NE(terminal, nullptr);
    terminal->trigger();
    Form* form = program.desk.find("Terminal");
    ASSERT_NE(form, nullptr);
    auto windows = program.window.area().subWindowList();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.front()->windowTitle(), "Terminal");
    windows.front()->close();
    EXPECT_EQ(program.desk.find("Terminal"), nullptr);
    deleteWhatHasGone();
    EXPECT_TRUE(program.window.area().subWindowList().isEmpty());
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

TEST(DesktopWindow, AModalFormIsADialogThatEscapeCloses) {
    Program program;
    program.start();
    program.main.menu.mnuHelpAbout.click();
    Form* about = program.desk.find("frmAbout");
    ASSERT_NE(about, nullptr);
    auto& dialog = dynamic_cast<QDialog&>(program.window.windowOf(*about)->shell());
    EXPECT_TRUE(dialog.isModal());
    EXPECT_FALSE(program.main.menu.mnutoolsTerminal.click());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(program.desk.find("frmAbout"), nullptr);
    EXPECT_TRUE(program.main.menu.mnutoolsTerminal.click());
}

TEST(DesktopWindow, ItsOwnButtonClosesAWindowWithoutHarm) {
    Program program;
    program.start();
    program.main.menu.mnuHelpProducts.click();
    Form* products = program.desk.find("Products");
    auto* ok = program.window.windowOf(*products)->content().findChild<QPushButton*>("cmdOK");
    ASSERT_NE(ok, nullptr);
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_EQ(program.desk.find("Products"), nullptr);
    deleteWhatHasGone();
}

TEST(DesktopWindow, TheToolBarsFollowTheirElements) {
    Program program;
    program.start();
    auto* chips = program.window.findChild<QToolBar*>("Toolbar1");
    auto* data = program.window.findChild<QToolBar*>("Toolbar3");
    ASSERT_NE(chips, nullptr);
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(chips->isVisible());
    EXPECT_FALSE(data->isVisible());
    action(program, "mnuViewToolbar")->trigger();
    EXPECT_FALSE(chips->isVisible());
    EXPECT_FALSE(action(program, "mnuViewToolbar")->isChecked());
    program.main.linkBar.Toolbar3.setVisible(true);
    EXPECT_TRUE(data->isVisible());
    EXPECT_TRUE(program.window.findChild<QWidget*>("CB_Mode")->isVisible());
    EXPECT_TRUE(program.window.findChild<QWidget*>("Text1")->isVisible());
    auto* connect = program.window.findChild<QToolButton*>("Connect");
    ASSERT_NE(connect, nullptr);
    QTest::mouseClick(connect, Qt::LeftButton);
    EXPECT_EQ(program.main.linkBar.LoadboardList.text(), "Not found");
    QTest::qWait(150);
    EXPECT_EQ(program.main.linkBar.LoadboardList.text(), "searching");
    EXPECT_FALSE(connect->isEnabled());
    EXPECT_FALSE(connect->isChecked());
}

TEST(DesktopWindow, ADoubleClickOnTheEmptyAreaBeginsTheFactoryGesture) {
    Program program;
    program.start();
    QWidget* ground = program.window.area().viewport();
    QTest::mouseClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    QTest::mouseDClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System.");
    QTest::mouseDClick(ground, Qt::LeftButton, {}, QPoint(600, 500));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.main.menu.mnuAdv.visible(); }, 2000));
    EXPECT_TRUE(action(program, "mnuAdv")->isVisible());
    EXPECT_EQ(program.window.windowTitle(), "Ortolan Radio Bench System");
}

TEST(DesktopWindow, TheSplashGoesWhenItIsClicked) {
    Program program;
    program.main.start();
    Form* splash = program.desk.find("frm_Splash");
    ASSERT_NE(splash, nullptr);
    QWidget& content = program.window.windowOf(*splash)->content();
    QTest::mouseClick(content.findChild<QWidget*>("Picture1"), Qt::LeftButton);
    EXPECT_EQ(program.desk.find("frm_Splash"), nullptr);
    EXPECT_FALSE(program.main.bench().windows.SplashOn);
}

TEST(DesktopWindow, ClosingTheMainWindowLeavesTheLoop) {
    Program program;
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.window.close();
    EXPECT_TRUE(program.loop.leaving());
    EXPECT_FALSE(program.window.isVisible());
}

TEST(DesktopWindow, AFieldKeepsItsFocusAndIsCommittedWhenAnotherTakesIt) {
    Program program;
    program.start();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    Form* form = program.desk.find("frm_PowerSupply");
    QWidget& content = program.window.windowOf(*form)->content();
    program.window.activateWindow();
    auto* voltage = content.findChild<QLineEdit*>("Voltage");
    voltage->setFocus();
    EXPECT_EQ(form->focusedElement(), form->find("Voltage"));
    content.findChild<QPushButton*>("PB_Voltage")->setFocus();
    EXPECT_EQ(form->focusedElement(), form->find("PB_Voltage"));
    form->setFocus(form->find("Voltage"));
    EXPECT_TRUE(voltage->hasFocus());
}

TEST(DesktopWindow, TurningAPageKeepsTheWindowsSize) {
    Program program;
    program.start();
    program.main.menu.mnuFilePreferences.click();
    Form* form = program.desk.find("Preferences");
    ASSERT_NE(form, nullptr);
    FormWindow& window = *program.window.windowOf(*form);
    auto* strip = window.content().findChild<QTabBar*>("TabStrip1");
    ASSERT_NE(strip, nullptr);
    QSize size = window.content().minimumSizeHint();
    auto* field = window.content().findChild<QWidget*>("ComNr_min");
    auto* tick = window.content().findChild<QWidget*>("EnLB_FWload");
    EXPECT_TRUE(field->isVisible());
    EXPECT_FALSE(tick->isVisible());
    strip->setCurrentIndex(2);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(tick->isVisible());
    EXPECT_EQ(window.content().minimumSizeHint(), size);
    EXPECT_TRUE(form->find("Frame_pref_tabs(2)")->visible());
}

TEST(DesktopWindow, MarksAndReasonsThatComeAndGoMoveNothing) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        program.start();
        std::unique_ptr<Form> none;
        openForm(program, row.name, none);
        Form* form = program.desk.find(row.name);
        FormWindow& window = *program.window.windowOf(*form);
        QCoreApplication::processEvents();
        QSize size = window.shell().size();
        for (const char* label : {"LabelUpdate", "LabelCalibration", "Label38", "Label39"}) {
            Element& element = *form->find(label);
            bool before = element.visible();
            for (bool shown : {!before, before}) {
                element.setVisible(shown);
                QCoreApplication::processEvents();
                EXPECT_EQ(window.shell().size(), size) << label;
            }
        }
    }
}

TEST(DesktopWindow, EveryWordStandsBesideItsWholeCaption) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        program.start();
        std::unique_ptr<Form> none;
        openForm(program, row.name, none);
        auto* panel = dynamic_cast<ChipPanel*>(program.desk.find(row.name));
        QStringList shown = labelTexts(program.window.windowOf(*panel)->content());
        for (const ControlWord* word : panel->words()) {
            EXPECT_TRUE(word->caption().ends_with(":")) << word->caption();
            EXPECT_TRUE(shown.contains(QString::fromStdString(word->caption()))) << word->caption();
        }
    }
}

TEST(DesktopWindow, TheUpperBitsOfTheFifoLevelSayWhatTheyAre) {
    Program program;
    program.start();
    std::unique_ptr<Form> none;
    openForm(program, "Coral", none);
    QStringList shown = labelTexts(program.window.windowOf(*program.desk.find("Coral"))->content());
    EXPECT_TRUE(shown.contains("Bit[1-0] are the upper bits of the FIFO IT level"));
}

TEST(DesktopWindow, AListsTextOfAnyLengthMovesNothing) {
    Program program;
    program.start();
    std::unique_ptr<Form> none;
    openForm(program, "OpalV2", none);
    Form* form = program.desk.find("OpalV2");
    FormWindow& window = *program.window.windowOf(*form);
    QCoreApplication::processEvents();
    QSize size = window.shell().size();
    static_cast<ListBox*>(form->find("Modulation"))->putText(std::string(10'000, 'x'));
    window.content().layout()->invalidate();
    QCoreApplication::processEvents();
    EXPECT_EQ(window.shell().size(), size);
}

/// Wider than the one the windows are made for, which is wide already.
constexpr const char* widerFont = "DejaVu Sans Mono";

TEST(Fonts, OfTheTestsAreTheirOwn) {
    EXPECT_EQ(QFontInfo(QApplication::font()).family(), "DejaVu Sans");
    EXPECT_EQ(QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family(), widerFont);
    QStringList families = QFontDatabase::families();
    // Names of the toolkit's that stand for one of the others.
    families.removeIf([](const QString& name) { return !name.startsWith("DejaVu"); });
    EXPECT_EQ(families, (QStringList{"DejaVu Sans", widerFont}));
    QString text = "Configuration Setting Command:";
    EXPECT_GT(QFontMetrics(QFont(widerFont)).horizontalAdvance(text),
              QFontMetrics(QApplication::font()).horizontalAdvance(text));
}

/// A font for everything, taken back behind it.
class FontForAll {
  public:
    FontForAll(const char* family, double scale)
        : before(QApplication::font()) {
        QFont font = before;
        if (family != nullptr) {
            font.setFamily(family);
        }
        font.setPointSizeF(before.pointSizeF() * scale);
        QApplication::setFont(font);
    }
    FontForAll(const FontForAll&) = delete;
    FontForAll& operator=(const FontForAll&) = delete;
    ~FontForAll() { QApplication::setFont(before); }

  private:
    QFont before;
};

struct Scaled {
    std::string form;
    double scale;
    const char* family;
};

class EveryScale : public testing::TestWithParam<Scaled> {};

TEST_P(EveryScale, ClipsNoText) {
    FontForAll font(GetParam().family, GetParam().scale);
    Program program;
    program.start();
    std::unique_ptr<Form> own;
    openForm(program, GetParam().form, own);
    FormWindow& window = *program.window.windowOf(*program.desk.find(GetParam().form));
    QCoreApplication::processEvents();
    EXPECT_EQ(clippedTexts(window.content()), QStringList());
    for (const auto* strip : window.content().findChildren<QTabBar*>()) {
        EXPECT_GE(strip->width(), strip->sizeHint().width());
    }
    // What does not fit into the main window is scrolled to.
    EXPECT_GE(window.content().height(), window.content().minimumSizeHint().height());
    EXPECT_GE(window.content().width(), window.content().minimumSizeHint().width());
    if (qobject_cast<QMdiSubWindow*>(&window.shell()) != nullptr) {
        EXPECT_LE(window.shell().height(), program.window.area().viewport()->height());
        EXPECT_LE(window.shell().width(), program.window.area().viewport()->width());
        if (GetParam().scale == 1 && GetParam().family == nullptr) {
            // On a screen of 1280 x 800 nothing has to be scrolled to.
            EXPECT_LE(window.content().height(), window.shell().height());
            EXPECT_LE(window.content().width(), window.shell().width());
        }
    }
    // Wide tab strips get no arrows, which the keyboard would stop at.
    for (const auto* arrow : window.content().findChildren<QToolButton*>()) {
        EXPECT_TRUE(arrow->isHidden() || qobject_cast<QTabBar*>(arrow->parentWidget()) == nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Registry, EveryScale, testing::ValuesIn([] {
        std::vector<Scaled> all;
        for (const auto& [formName, view] : allViews()) {
            for (double scale : {1.0, 1.5, 2.0}) {
                for (const char* family : {static_cast<const char*>(nullptr), widerFont}) {
                    all.push_back({formName, scale, family});
                }
            }
        }
        return all;
    }()),
    [](const auto& row) {
        int percent = static_cast<int>(row.param.scale * 100);
        return row.param.form + "_" + std::to_string(percent) + (row.param.family == nullptr ? "" : "_wide");
    });

} // namespace zor
