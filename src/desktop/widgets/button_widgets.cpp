// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/instrument_style.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>

namespace zor {

namespace {

/// A double click's first click has been told when the toolkit reports the double one, so only the double
/// click's own action is left to run.
bool runDoubleClick(Binding& binding) {
    auto* element = elementOf<Button>(binding);
    if (element == nullptr || !element->onDoubleClick) {
        return false;
    }
    binding.gesture([element] { element->secondClick(); });
    return true;
}

/// The space bar pressed twice within a double click's time is one, for who has no mouse at hand.
class KeyDoubleClick : public QObject {
  public:
    KeyDoubleClick(QPushButton& watched, Binding& widgetBinding)
        : QObject(&watched)
        , binding(widgetBinding) {
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (key.key() == Qt::Key_Space && !key.isAutoRepeat()) {
                bool soon = since.isValid() && since.elapsed() < QApplication::doubleClickInterval();
                since.start();
                return soon && runDoubleClick(binding);
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Binding& binding;
    QElapsedTimer since;
};

/// Clicks on a widget that is no button of the toolkit's, and double clicks on any.
class MouseGestures : public QObject {
  public:
    enum class Takes { DoubleClicks, AllClicks };

    MouseGestures(QWidget& watched, Binding& widgetBinding, Takes taken)
        : QObject(&watched)
        , binding(widgetBinding)
        , takes(taken) {
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonDblClick) {
            return runDoubleClick(binding);
        }
        if (event->type() == QEvent::MouseButtonRelease && takes == Takes::AllClicks &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            binding.gesture([this] { binding.element()->click(); });
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Binding& binding;
    Takes takes;
};

Binding& bindButton(QPushButton& push, Button& element) {
    auto* binding = new Binding(element, push);
    if (element.takesFocusOnClick) {
        binding->followFocus();
    } else {
        push.setFocusPolicy(Qt::TabFocus);
    }
    push.setAutoDefault(false);
    QObject::connect(&push, &QPushButton::clicked, binding,
                     [binding] { binding->gesture([&] { binding->element()->click(); }); });
    new MouseGestures(push, *binding, MouseGestures::Takes::DoubleClicks);
    new KeyDoubleClick(push, *binding);
    return *binding;
}

QColor toneColour(const QPalette& palette, Tone tone) {
    switch (tone) {
    case Tone::Soft:
        return roles(palette).softText;
    case Tone::Reminder:
        return roles(palette).reminder;
    case Tone::Error:
        return roles(palette).error;
    case Tone::Normal:
    case Tone::Title:
        break;
    }
    return palette.color(QPalette::WindowText);
}

void fillMenu(QMenu& menu, const MenuEntry& parent);

void addEntry(QWidget& owner, MenuEntry& entry) {
    QMenu* menu = entry.children().empty() ? nullptr : new QMenu(&owner);
    QAction* action = menu == nullptr ? new QAction(&owner) : menu->menuAction();
    if (entry.beginsSection()) {
        auto* line = new QAction(&owner);
        line->setSeparator(true);
        owner.addAction(line);
    }
    owner.addAction(action);
    auto* binding = new Binding(entry, *action);
    QObject::connect(action, &QAction::triggered, binding,
                     [binding] { binding->gesture([&] { binding->element()->click(); }); });
    binding->onDraw([binding, action, menu] {
        const auto& held = *elementOf<MenuEntry>(*binding);
        // Nobody opens a hidden menu, and there are many: one of the last files for each chip.
        if (menu != nullptr && menu->actions().isEmpty() && held.shown()) {
            fillMenu(*menu, held);
        }
        QString caption = toQt(held.caption());
        bool onBar = held.container() == nullptr && !caption.contains(QLatin1Char('&'));
        action->setText(onBar ? QLatin1Char('&') + caption : caption);
        // Once ticked an entry keeps the room for its tick.
        action->setCheckable(action->isCheckable() || held.checked());
        action->setChecked(held.checked());
    });
}

void fillMenu(QMenu& menu, const MenuEntry& parent) {
    for (MenuEntry* entry : parent.children()) {
        addEntry(menu, *entry);
    }
}

void fillDropDown(QToolButton& tool, Binding& binding) {
    const auto& held = *elementOf<BarButton>(binding);
    QMenu& menu = *tool.menu();
    menu.clear();
    for (const auto& entry : held.entries()) {
        QAction* action = menu.addAction(literalCaption(entry.caption));
        action->setEnabled(entry.enabled);
        QObject::connect(action, &QAction::triggered, &binding, [&binding, key = entry.key] {
            binding.gesture([&] { binding.element()->chooseText(key); });
        });
    }
}

bool sameEntries(const QMenu& menu, const std::vector<DropDownEntry>& entries) {
    auto actions = menu.actions();
    bool same = actions.size() == static_cast<qsizetype>(entries.size());
    for (std::size_t i = 0; same && i < entries.size(); ++i) {
        const auto* action = actions[static_cast<qsizetype>(i)];
        same =
            action->text() == literalCaption(entries[i].caption) && action->isEnabled() == entries[i].enabled;
    }
    return same;
}

} // namespace

QWidget* button(Button& element) {
    auto* push = new QPushButton;
    Binding& binding = bindButton(*push, element);
    binding.onDraw([&binding, push] { push->setText(toQt(binding.element()->caption())); });
    return push;
}

QWidget* smallButton(Button& element) {
    /// As wide as what stands on it; the toolkit would give it the width of a word.
    class SmallButton : public QPushButton {
      public:
        [[nodiscard]] QSize sizeHint() const override {
            constexpr int margins = 14;
            return {fontMetrics().horizontalAdvance(text()) + margins, QPushButton::sizeHint().height()};
        }
        [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    };
    auto* push = new SmallButton;
    Binding& binding = bindButton(*push, element);
    binding.onDraw([&binding, push] { push->setText(toQt(binding.element()->caption())); });
    push->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return push;
}

QWidget* strongButton(Button& element) {
    QWidget* push = button(element);
    makeStrong(*static_cast<QPushButton*>(push));
    return push;
}

void makeStrong(QPushButton& push) {
    // The style draws it flat: a gradient would take the contrast from its text.
    push.setProperty(strongProperty, true);
    QFont font = push.font();
    font.setBold(true);
    push.setFont(font);
    QPalette palette = push.palette();
    const RoleColours& colours = roles(palette);
    for (auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Button, colours.accent);
        palette.setColor(group, QPalette::ButtonText, colours.accentText);
    }
    push.setPalette(palette);
}

QWidget* label(Button& element, Tone tone) {
    auto* text = new QLabel;
    text->setTextFormat(Qt::PlainText);
    QFont font = text->font();
    font.setBold(tone == Tone::Reminder || tone == Tone::Title);
    text->setFont(font);
    QPalette palette = text->palette();
    if (tone != Tone::Normal) {
        for (auto group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::WindowText, toneColour(palette, tone));
        }
        text->setPalette(palette);
    }
    auto* binding = new Binding(element, *text);
    new MouseGestures(*text, *binding, MouseGestures::Takes::AllClicks);
    binding->onDraw([binding, text] { text->setText(linesToQt(binding->element()->caption())); });
    return text;
}

void addContextEntries(QWidget& widget, std::initializer_list<MenuEntry*> entries) {
    for (MenuEntry* entry : entries) {
        addEntry(widget, *entry);
    }
    widget.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void buildMenus(QMenuBar& bar, const Form& form) {
    for (Element* element : form.elements()) {
        auto* entry = dynamic_cast<MenuEntry*>(element);
        if (entry != nullptr && entry->container() == nullptr) {
            addEntry(bar, *entry);
        }
    }
}

QWidget* barButton(BarButton& element) {
    auto* tool = new QToolButton;
    tool->setToolButtonStyle(Qt::ToolButtonTextOnly);
    tool->setCheckable(true);
    tool->setAutoRaise(true);
    // A tool bar leaves the focus where it is.
    tool->setFocusPolicy(Qt::TabFocus);
    auto* binding = new Binding(element, *tool);
    QObject::connect(tool, &QToolButton::clicked, binding,
                     [binding] { binding->gesture([&] { binding->element()->click(); }); });
    if (!element.shortcut().empty()) {
        auto* keys = new QShortcut(QKeySequence(toQt(element.shortcut())), tool);
        keys->setContext(Qt::ApplicationShortcut);
        QObject::connect(keys, &QShortcut::activated, binding,
                         [binding] { binding->gesture([&] { binding->element()->click(); }); });
    }
    binding->follow(element.choiceNeeded, [tool] {
        // Behind the action that asked for it: a menu that is open holds its action up.
        QTimer::singleShot(0, tool, [tool] { tool->showMenu(); });
    });
    binding->onDraw([binding, tool] {
        const auto& held = *elementOf<BarButton>(*binding);
        tool->setText(toQt(held.caption()));
        tool->setChecked(held.pressed());
        if (tool->menu() == nullptr && !held.entries().empty()) {
            tool->setMenu(new QMenu(tool));
            tool->setPopupMode(QToolButton::MenuButtonPopup);
        }
        if (tool->menu() != nullptr && !sameEntries(*tool->menu(), held.entries())) {
            fillDropDown(*tool, *binding);
        }
    });
    return tool;
}

} // namespace zor
