// SPDX-License-Identifier: MIT
#include "desk_of_test.h"

#include "desktop/views/compose.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "elements/kept_text.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QVBoxLayout>

namespace zor {

namespace {

class Binders : public testing::Test {
  protected:
    /// Shows a widget of the form under test, with a second place for the focus to go to.
    template <class Widget>
    Widget& show(QWidget* widget) {
        auto* layout = new QVBoxLayout(&host);
        layout->addWidget(widget);
        layout->addWidget(&elsewhere);
        form->show();
        host.show();
        host.activateWindow();
        widget->setFocus();
        QCoreApplication::processEvents();
        return dynamic_cast<Widget&>(*widget);
    }

    /// An element of the form under test; it goes with the form, after the widgets.
    template <class Kind, class... Arguments>
    Kind& add(Arguments&&... arguments) {
        auto element = std::make_shared<Kind>(*form, std::forward<Arguments>(arguments)...);
        Kind& added = *element;
        elements.push_back(std::move(element));
        return added;
    }

    DeskOfTest test;
    std::unique_ptr<Form> form = std::make_unique<Form>(test.desk, "Panel", "Panel");
    OptionGroup bands;
    std::vector<std::shared_ptr<Element>> elements;
    QWidget host;
    QLineEdit elsewhere;
};

} // namespace

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

TEST_F(Binders, TypingEditsAndEnterCommitsOnce) {
    auto& element = add<TextField>("FreqCenter", "315");
    int commits = 0;
    std::vector<std::string> edits;
    element.onCommit = [&] { ++commits; };
    element.onEdit = [&] { edits.push_back(element.text()); };
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "433");
    EXPECT_EQ(edits, (std::vector<std::string>{"4", "43", "433"}));
    EXPECT_EQ(commits, 0);
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(element.text(), "433");
}

TEST_F(Binders, LosingTheFocusCommitsOnceAndABoxOverTheWindowDoesNot) {
    auto& element = add<TextField>("FreqCenter", "315");
    int commits = 0;
    element.onCommit = [&] { ++commits; };
    auto& line = show<QLineEdit>(field(element));
    EXPECT_TRUE(element.focused());
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&line, &popup);
    EXPECT_EQ(commits, 0);
    elsewhere.setFocus();
    EXPECT_EQ(commits, 1);
    EXPECT_FALSE(element.focused());
}

TEST_F(Binders, EscapeBringsBackTheTextThatTheFieldHad) {
    auto& element = add<TextField>("FreqCenter", "315");
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "9");
    ASSERT_EQ(element.text(), "9");
    QTest::keyClick(&line, Qt::Key_Escape);
    EXPECT_EQ(element.text(), "315");
    EXPECT_EQ(line.text(), "315");
}

TEST_F(Binders, ACommitThatRewritesTheFieldIsShown) {
    auto& element = add<TextField>("FreqCenter", "315");
    element.onCommit = [&] { element.setText("319.75"); };
    auto& line = show<QLineEdit>(field(element));
    line.selectAll();
    QTest::keyClicks(&line, "999");
    QTest::keyClick(&line, Qt::Key_Enter);
    EXPECT_EQ(line.text(), "319.75");
}

TEST_F(Binders, ALongTextIsKeptWhole) {
    auto& element = add<TextField>("Notes");
    auto& line = show<QLineEdit>(textField(element));
    std::string longText(40'000, 'x');
    element.setText(longText);
    EXPECT_EQ(line.text().size(), 40'000);
    line.setText(QString());
    line.insert(QString(50'000, 'y'));
    Q_EMIT line.textEdited(line.text());
    EXPECT_EQ(element.text(), std::string(50'000, 'y'));
}

TEST_F(Binders, AKeyIsTypedAtTheCaretAndAFilterLeavesItThere) {
    auto& element = add<TextField>("TB_Pattern", "2DD4");
    element.onEdit = [&] {
        std::string text = element.text();
        std::size_t caret = element.cursor();
        if (caret > 0 && text[caret - 1] == 'g') {
            element.setText(text.erase(caret - 1, 1));
            element.setCursor(caret - 1);
        }
    };
    auto& line = show<QLineEdit>(textField(element));
    line.setCursorPosition(2);
    EXPECT_EQ(element.cursor(), 2U);
    QTest::keyClicks(&line, "gA");
    EXPECT_EQ(line.text(), "2DAD4");
    EXPECT_EQ(element.text(), "2DAD4");
    EXPECT_EQ(line.cursorPosition(), 3);
    EXPECT_EQ(element.cursor(), 3U);
    element.setCursor(0);
    EXPECT_EQ(line.cursorPosition(), 0);
}

TEST_F(Binders, AFullFieldTakesNoFurtherKey) {
    auto& element = add<TextField>("TB_Pattern", "2DD4");
    element.setLimit(4);
    auto& line = show<QLineEdit>(textField(element));
    line.setCursorPosition(1);
    QTest::keyClicks(&line, "A");
    EXPECT_EQ(line.text(), "2DD4");
    EXPECT_EQ(line.cursorPosition(), 1);
}

TEST_F(Binders, AnAreaSharesItsCaretAcrossLineEnds) {
    auto& element = add<TextField>("WorkSheet", "c6 05\r\n2d d4");
    element.setMultiLine(true);
    auto& area = show<QPlainTextEdit>(textArea(element));
    element.setCursor(7);
    EXPECT_EQ(area.textCursor().position(), 6);
    QTest::keyClicks(&area, "f");
    EXPECT_EQ(element.text(), "c6 05\r\nf2d d4");
    EXPECT_EQ(element.cursor(), 8U);
    QTest::keyClick(&area, Qt::Key_Up);
    EXPECT_EQ(element.cursor(), 1U);
}

TEST_F(Binders, KeysAndDoubleClicksInALockedFieldReachItsActions) {
    auto& element = add<TextField>("TB_EventContent", "C400", TextField::Access::ReadOnly);
    std::string keys;
    int doubleClicks = 0;
    element.onKey = [&](char key) {
        keys += key;
        return true;
    };
    element.onDoubleClick = [&] { ++doubleClicks; };
    auto& area = show<QPlainTextEdit>(textArea(element));
    QTest::keyClicks(&area, "aB");
    QTest::keyClick(&area, Qt::Key_Left);
    QTest::keyClick(&area, Qt::Key_Backspace);
    QTest::mouseDClick(area.viewport(), Qt::LeftButton);
    EXPECT_EQ(keys, "aB\b");
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(element.text(), "C400");
}

TEST_F(Binders, AMemorysCellsAreClickedAndWalkedWithTheArrows) {
    auto& element = add<CellPicture>("MemoryPicture", 64U, 16U);
    element.onCell = [&](std::size_t cell) { element.pick(cell); };
    auto& picture = show<QWidget>(cellPicture(element));
    QTest::mouseClick(&picture, Qt::LeftButton, {}, QPoint(picture.width() - 3, picture.height() - 3));
    EXPECT_EQ(element.picked(), 1023U) << "the nearest cell";
    QTest::keyClick(&picture, Qt::Key_Down);
    EXPECT_EQ(element.picked(), 1023U);
    QTest::keyClick(&picture, Qt::Key_Up);
    QTest::keyClick(&picture, Qt::Key_Left);
    EXPECT_EQ(element.picked(), 1006U);
    element.setContents({CellPicture::Cell::Differs});
    EXPECT_EQ(picture.accessibleName(), "0 written, 0 zero, 0 empty, 1 different");
}

TEST_F(Binders, AReadOnlyFieldTakesNoKeys) {
    auto& element = add<TextField>("Freqw", "A7D0", TextField::Access::ReadOnly);
    auto& line = show<QLineEdit>(word(element));
    QTest::keyClicks(&line, "1");
    EXPECT_EQ(line.text(), "A7D0");
}

TEST_F(Binders, APendingWordIsMarkedByMoreThanColour) {
    auto& element = add<TextField>("Freqw", "A7D0", TextField::Access::ReadOnly);
    bool pending = false;
    auto& line = show<QLineEdit>(word(element, [&] { return pending; }));
    QColor plainBack = line.palette().color(QPalette::Base);
    EXPECT_FALSE(line.font().bold());
    pending = true;
    element.setText("A7D1");
    EXPECT_EQ(line.text(), "A7D1");
    EXPECT_TRUE(line.font().bold());
    EXPECT_NE(line.palette().color(QPalette::Base), plainBack);
    pending = false;
    Binding::of(&line)->redraw();
    EXPECT_FALSE(line.font().bold());
}

TEST_F(Binders, ATickIsClickedAndARefusedOneSpringsBack) {
    auto& element = add<TickBox>("CB_Er", "Enable & go");
    auto& box = show<QCheckBox>(tick(element));
    EXPECT_EQ(box.text(), "Enable && go");
    box.click();
    EXPECT_TRUE(element.ticked());
    form->hide();
    box.click();
    EXPECT_TRUE(element.ticked());
    EXPECT_TRUE(box.isChecked());
}

TEST_F(Binders, OptionsFollowTheirGroupAndMayAllBeOff) {
    auto& low = add<Option>(bands, "Band315", "315 MHz");
    auto& high = add<Option>(bands, "Band433", "433 MHz");
    int chosen = 0;
    high.onChoose = [&] { ++chosen; };
    auto& row = show<QWidget>(options(low, high));
    auto radios = row.findChildren<QRadioButton*>();
    ASSERT_EQ(radios.size(), 2);
    low.choose();
    EXPECT_TRUE(radios[0]->isChecked());
    radios[1]->click();
    EXPECT_FALSE(radios[0]->isChecked());
    EXPECT_TRUE(high.chosen());
    radios[1]->click();
    EXPECT_EQ(chosen, 2);
    EXPECT_TRUE(radios[1]->isChecked());
    high.unchoose();
    EXPECT_FALSE(radios[1]->isChecked());
}

TEST_F(Binders, AListRunsItsActionForTheEntryThatAlreadyShows) {
    auto& element = add<ListBox>("CB_Mode", std::vector<std::string>{"Int.", "Ext.", "Data"}, "Int.");
    std::vector<int> chosen;
    element.onChange = [&] { chosen.push_back(element.position()); };
    auto& combo = show<QComboBox>(list(element));
    EXPECT_EQ(combo.currentIndex(), 0);
    QTest::keyClick(&combo, Qt::Key_Down);
    Q_EMIT combo.activated(1);
    EXPECT_EQ(chosen, (std::vector<int>{1, 1}));
}

TEST_F(Binders, AListShowsATextThatNoEntryHas) {
    auto& element = add<ListBox>("LoadboardList", std::vector<std::string>{}, "Please select...");
    auto& combo = show<QComboBox>(list(element));
    EXPECT_EQ(combo.count(), 0);
    QImage first = combo.grab().toImage();
    element.putText("searching");
    EXPECT_NE(combo.grab().toImage(), first);
    EXPECT_EQ(combo.currentIndex(), -1);
    element.setEntries({"LoadBoard 2.x: Com3"});
    EXPECT_EQ(combo.count(), 1);
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(Binders, ALockedListOpensNoPopUpAndKeepsItsText) {
    auto& element = add<ListBox>("LoadboardList", std::vector<std::string>{"One", "Two"}, "One");
    auto& combo = show<QComboBox>(list(element));
    element.setLocked(true);
    combo.showPopup();
    EXPECT_FALSE(combo.view()->isVisible());
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(element.text(), "One");
    EXPECT_EQ(combo.currentIndex(), 0);
}

TEST_F(Binders, ADoubleClickSendsOneClickAndThenItself) {
    auto& element = add<Button>("ReadStatus", "Read Status");
    std::string log;
    element.onClick = [&] { log += "click "; };
    element.onDoubleClick = [&] { log += "double "; };
    auto& push = show<QPushButton>(button(element));
    QTest::mouseClick(&push, Qt::LeftButton);
    EXPECT_EQ(log, "click ");
    // The second half of a double click: the toolkit's event, after the first click's own.
    QTest::mouseDClick(&push, Qt::LeftButton);
    EXPECT_EQ(log, "click double ");
}

TEST_F(Binders, TwoPressesOfTheSpaceBarAreADoubleClick) {
    auto& element = add<Button>("ReadStatus", "Read Status");
    std::string log;
    element.onClick = [&] { log += "click "; };
    element.onDoubleClick = [&] { log += "double "; };
    auto& push = show<QPushButton>(button(element));
    QTest::keyClick(&push, Qt::Key_Space);
    QTest::keyClick(&push, Qt::Key_Space);
    EXPECT_EQ(log, "click double ");
}

TEST_F(Binders, AButtonShowsAnEscapedAmpersandOnce) {
    auto& element = add<Button>("SaveExit", "Save && Exit");
    auto& push = show<QPushButton>(button(element));
    EXPECT_EQ(push.text(), "Save && Exit");
    EXPECT_TRUE(push.shortcut().isEmpty());
}

TEST_F(Binders, ALabelIsClickable) {
    auto& element = add<Label>("VersionLabel", "GUI Version 1.0.0");
    int clicks = 0;
    element.onClick = [&] { ++clicks; };
    auto& text = show<QLabel>(label(element));
    QTest::mouseClick(&text, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Binders, ASliderMovesAndFollows) {
    auto& element = add<Slider>("SL_Level", 0, 15, 4);
    auto& bar = show<QSlider>(slider(element));
    EXPECT_EQ(bar.value(), 4);
    bar.setValue(9);
    EXPECT_EQ(element.value(), 9);
    element.onChange = [&] { element.putValue(1); };
    bar.setValue(0);
    EXPECT_EQ(bar.value(), 1);
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

TEST_F(Binders, AMonitorShowsWhatComesAndSendsWhatIsTyped) {
    auto& element = add<Monitor>("Text1");
    std::string keys;
    element.onKey = [&](char key) { keys += key; };
    auto& view = show<QPlainTextEdit>(monitor(element));
    QTest::keyClicks(&view, "i");
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(keys, "i\r\b");
    element.append("OK\r\n>");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "iOK\n>"; }, 2000));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
}

TEST_F(Binders, AMonitorShowsRemarksInAnotherToneBetweenTheText) {
    auto& element = add<KeptText>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    element.remark("Z3\r\n");
    element.append("OK\r\n>");
    element.remark("H2\r\n");
    element.append("OK\r\n>");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "Z3\nOK\n>H2\nOK\n>"; }, 2000));
    auto italicAt = [&](int position) {
        QTextCursor cursor(view.document());
        cursor.setPosition(position + 1);
        return cursor.charFormat().fontItalic();
    };
    EXPECT_TRUE(italicAt(0));
    EXPECT_FALSE(italicAt(3));
    EXPECT_TRUE(italicAt(7));
    EXPECT_FALSE(italicAt(10));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
    element.remark("only a remark\r\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.toPlainText() == "only a remark\n"; }, 2000));
    element.clear();
    EXPECT_EQ(view.toPlainText(), "");
}

TEST_F(Binders, UpAndDownFetchTypedLines) {
    auto& element = add<KeptText>("Text1");
    std::string steps;
    element.onRecall = [&](int step) { steps += step < 0 ? 'u' : 'd'; };
    auto& view = show<QPlainTextEdit>(monitor(element));
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(steps, "ud");
}

TEST_F(Binders, AMonitorThatDropsItsOldestTextShowsItsNewest) {
    auto& element = add<KeptText>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    std::string line(1022, 'x');
    line += "\r\n";
    for (std::size_t written = 0; written <= KeptText::mostKept; written += line.size()) {
        element.append(line);
    }
    element.append("the end");
    EXPECT_GT(element.dropped(), 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText().endsWith("x\nthe end"); }, 5000));
}

TEST_F(Binders, AFloodLeavesAMonitorBoundedAndTheLoopAlive) {
    auto& element = add<Monitor>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    std::string line(78, 'x');
    line += "\r\n";
    int turns = 0;
    for (int i = 0; i < 100'000; ++i) {
        element.append(line);
        if (i % 10'000 == 0) {
            QCoreApplication::processEvents();
            ++turns;
        }
    }
    element.append("the end");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.toPlainText().endsWith("the end"); }, 5000));
    EXPECT_EQ(turns, 10);
    EXPECT_LE(view.document()->characterCount(), monitorCharacters + 1);
    EXPECT_LE(view.blockCount(), monitorLines);
    EXPECT_EQ(element.contents().size(), 100'000U * 80U + 7U);
}

TEST_F(Binders, AnEndlessLineIsShownInRows) {
    auto& element = add<Monitor>("Text1");
    auto& view = show<QPlainTextEdit>(monitor(element));
    element.append(std::string(50'000, 'z'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.blockCount() == 50; }, 2000));
}

namespace {

Plot::Traits lengthTraits() {
    return {.title = "Length of the last packets",
            .x = {.caption = "Packet number", .unit = "", .ticks = PlotAxis::Ticks::WholeNumbers},
            .y = {.caption = "Length", .unit = "bytes", .from = 0.0},
            .style = Plot::Style::Bars,
            .gapCaption = "lost"};
}

/// How many pixels of a picture have this colour.
int pixels(const QImage& picture, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST_F(Binders, APlotDrawsItsValuesAndMarksItsGaps) {
    auto& element = add<Plot>("Lengths", lengthTraits());
    auto& view = show<QWidget>(plot(element));
    host.resize(700, 300);
    QCoreApplication::processEvents();
    QColor bars = view.palette().color(QPalette::Link);
    QColor lost = roles(view.palette()).error;
    EXPECT_EQ(view.accessibleName(), "Length of the last packets");
    QImage empty = view.grab().toImage();
    EXPECT_EQ(pixels(empty, bars), 0);

    element.add({1, 20});
    element.add({2, 10});
    QImage two = view.grab().toImage();
    int ofTwo = pixels(two, bars);
    EXPECT_GT(ofTwo, 1000);
    element.add({3, std::nullopt});
    QImage withGap = view.grab().toImage();
    EXPECT_LT(pixels(withGap, bars), ofTwo);
    EXPECT_GT(pixels(withGap, lost), pixels(two, lost));
}

TEST_F(Binders, APlotsPictureIsThatOfItsView) {
    auto& element = add<Plot>("Lengths", lengthTraits());
    auto& view = show<QWidget>(plot(element));
    element.add({1, 20});
    std::string bytes = element.picture();
    QImage picture;
    ASSERT_TRUE(picture.loadFromData(reinterpret_cast<const uchar*>(bytes.data()),
                                     static_cast<int>(bytes.size()), "PNG"));
    EXPECT_GE(picture.width(), 1440);
    EXPECT_GT(pixels(picture, view.palette().color(QPalette::Link)), 1000);
    delete &view;
    EXPECT_EQ(element.picture(), "");
}

TEST_F(Binders, APlotStandsAnySize) {
    auto& element = add<Plot>(
        "Errors", Plot::Traits{.title = "Errors",
                               .x = {"Read"},
                               .y = {.caption = "BER", .unit = "", .scale = PlotAxis::Scale::Logarithmic}});
    auto& view = show<QWidget>(plot(element));
    for (int number = 0; number < 3000; ++number) {
        element.add({static_cast<double>(number),
                     number % 7 == 0 ? std::nullopt : std::optional(1e-6 * number * number)});
    }
    for (QSize size : {QSize(1, 1), QSize(20, 300), QSize(300, 20), QSize(1600, 900)}) {
        view.resize(size);
        EXPECT_FALSE(view.grab().isNull());
    }
}

} // namespace zor
