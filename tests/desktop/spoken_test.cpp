// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/binding.h"
#include "desktop/widgets/spoken.h"
#include "panels/common/chip_panel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTabBar>

#include <set>

namespace zor {

namespace {

/// What a listener can stop at or be told of, as the toolkit's tree gives it.
bool isControl(const QAccessibleInterface& node) {
    static const std::set<QAccessible::Role> roles{
        QAccessible::PushButton,   QAccessible::CheckBox,       QAccessible::RadioButton,
        QAccessible::EditableText, QAccessible::ComboBox,       QAccessible::Slider,
        QAccessible::SpinBox,      QAccessible::PageTab,        QAccessible::PageTabList,
        QAccessible::Table,        QAccessible::MenuItem,       QAccessible::ButtonMenu,
        QAccessible::Indicator,    QAccessible::Graphic,        QAccessible::Chart,
        QAccessible::ProgressBar,  QAccessible::Window,         QAccessible::Dialog,
        QAccessible::Button,       QAccessible::ButtonDropDown, QAccessible::List,
        QAccessible::ColumnHeader};
    return roles.contains(node.role());
}

bool isBound(const QAccessibleInterface& node) {
    const Binding* binding = Binding::of(node.object());
    return binding != nullptr && binding->widget() != nullptr;
}

/// A label or notice that is empty just now has nothing to say.
bool isTextOnly(const QAccessibleInterface& node) {
    return node.role() == QAccessible::StaticText || node.role() == QAccessible::Grouping ||
           node.role() == QAccessible::ToolBar || node.role() == QAccessible::Client;
}

QString described(const QAccessibleInterface& node) {
    const QObject* object = node.object();
    return object == nullptr
               ? QString::number(node.role())
               : object->objectName() + QLatin1Char(' ') + QLatin1String(object->metaObject()->className()) +
                     QLatin1Char(' ') + QString::number(node.role());
}

/// Controls without a name, from this one down. A table's cells are its rows, which speak for themselves.
void collectNameless(QAccessibleInterface& node, QStringList& nameless) {
    bool hidden = node.state().invisible && !node.state().offscreen;
    bool counts = isControl(node) || (isBound(node) && !isTextOnly(node)) || node.state().focusable;
    if (!hidden && counts && node.text(QAccessible::Name).trimmed().isEmpty()) {
        nameless += described(node);
    }
    if (node.role() == QAccessible::Table || node.role() == QAccessible::List ||
        node.role() == QAccessible::ComboBox) {
        return;
    }
    for (int i = 0; i < node.childCount(); ++i) {
        if (QAccessibleInterface* child = node.child(i)) {
            collectNameless(*child, nameless);
        }
    }
}

QStringList namelessIn(QWidget& root) {
    QStringList nameless;
    collectNameless(*QAccessible::queryAccessibleInterface(&root), nameless);
    nameless.sort();
    return nameless;
}

QAccessibleInterface& spoken(Program& program, const char* form, const QString& element) {
    auto* widget = program.window.windowOf(*program.desk.find(form))->content().findChild<QWidget*>(element);
    return *QAccessible::queryAccessibleInterface(widget);
}

/// What is announced while it lives.
class Listening {
  public:
    Listening() {
        setAnnouncer([this](const QString& text) { heard += text; });
    }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { setAnnouncer({}); }

    QStringList heard;
};

/// On every page of every tab strip.
QStringList namelessOnAllPages(QWidget& root) {
    QStringList nameless = namelessIn(root);
    for (auto* strip : root.findChildren<QTabBar*>()) {
        for (int page = 0; page < strip->count(); ++page) {
            strip->setCurrentIndex(page);
            QCoreApplication::processEvents();
            nameless += namelessIn(root);
        }
    }
    nameless.removeDuplicates();
    return nameless;
}

} // namespace

class EveryViewSpoken : public testing::TestWithParam<std::string> {};

TEST_P(EveryViewSpoken, NamesEveryControl) {
    EXPECT_EQ(namelessOnAllPages(OpenView(GetParam()).window().shell()).join("; ").toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryViewSpoken, testing::ValuesIn(everyForm()),
                         [](const auto& view) { return view.param; });

TEST(Spoken, TheMainWindowNamesEveryControl) {
    Program program;
    program.start();
    program.main.linkBar.Toolbar3.setVisible(true);
    program.main.menu.mnuAdv.setVisible(true);
    EXPECT_EQ(namelessIn(program.window).join("; ").toStdString(), "");
}

TEST(Spoken, ALampSaysWhetherItIsLit) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    QAccessibleInterface& lamp = spoken(program, "OpalV2", "status(1)");
    EXPECT_EQ(lamp.role(), QAccessible::Indicator);
    EXPECT_EQ(lamp.text(QAccessible::Name).toStdString(), panel.status(1).caption());
    panel.status(1).paint(true, panel.OnColor);
    EXPECT_EQ(lamp.text(QAccessible::Value), "lit");
    EXPECT_TRUE(lamp.text(QAccessible::Description).startsWith("lit"));
    EXPECT_TRUE(lamp.state().checked);
    panel.status(1).paint(false, panel.OffColor);
    EXPECT_EQ(lamp.text(QAccessible::Value), "dark");
    EXPECT_TRUE(lamp.text(QAccessible::Description).startsWith("dark"));
    EXPECT_FALSE(lamp.state().checked);
}

TEST(Spoken, EveryWordSpeaksItsMeaning) {
    for (const PanelRow& row : panelRows()) {
        SCOPED_TRACE(row.name);
        Program program;
        ChipPanel& panel = startWithPanel(program, row.name);
        for (const ControlWord* word : panel.words()) {
            QAccessibleInterface& node = spoken(program, row.name, name(*word));
            EXPECT_EQ(node.text(QAccessible::Name).toStdString(), word->caption());
            EXPECT_EQ(node.text(QAccessible::Value).toStdString(), word->text());
            EXPECT_FALSE(word->tip().empty()) << word->name();
            EXPECT_EQ(node.text(QAccessible::Description).remove('\r').toStdString(), [&] {
                std::string tip = word->tip();
                std::erase(tip, '\r');
                return tip;
            }()) << word->name();
        }
    }
}

TEST(Spoken, ADisabledSettingSaysWhy) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    QAccessibleInterface& field = spoken(program, "OpalV2", "WKUPM");
    auto& tick = *panel.find("pm1");
    tick.tick(false);
    ASSERT_FALSE(panel.find("WKUPM")->active());
    EXPECT_EQ(field.text(QAccessible::Description).toStdString(), panel.find("Label39")->caption());
    EXPECT_FALSE(field.text(QAccessible::Description).isEmpty());
    tick.tick(true);
    ASSERT_TRUE(panel.find("WKUPM")->active());
    EXPECT_NE(field.text(QAccessible::Description).toStdString(), panel.find("Label39")->caption());
}

TEST(Spoken, NoticesAreAnnouncedOnce) {
    Program program;
    ChipPanel& panel = startWithPanel(program, "OpalV2");
    Listening listening;
    auto& line = dynamic_cast<TextField&>(*panel.find("Statusline"));
    line.setText("Minimum supply voltage is 2.0 V!");
    line.setText("Minimum supply voltage is 2.0 V!");
    line.setText(" ");
    EXPECT_EQ(listening.heard, QStringList{"Minimum supply voltage is 2.0 V!"});
    program.main.Notice.setCaption("No board found.");
    EXPECT_EQ(listening.heard.last(), "No board found.");
    // The port's state changes with each exchange; it is looked at, not called out.
    program.main.linkBar.CommStatus.setText("reading...");
    EXPECT_EQ(listening.heard.size(), 2);
}

} // namespace zor
