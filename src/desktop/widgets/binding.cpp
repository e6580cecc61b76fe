// SPDX-License-Identifier: MIT
#include "desktop/widgets/binding.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "elements/desk.h"
#include "shell/explanations.h"

#include <QAction>
#include <QFocusEvent>
#include <QWidget>

namespace zor {

namespace {

/// A widget that has no parent yet must not be shown, or it becomes a window of its own; its layout shows it
/// later unless it was hidden on purpose.
void setShown(QWidget& widget, bool shown) {
    if (widget.parentWidget() != nullptr || !shown) {
        widget.setVisible(shown);
    } else {
        widget.setAttribute(Qt::WA_WState_ExplicitShowHide, false);
    }
}

void addLine(QString& tip, const std::string& line) {
    if (!line.empty()) {
        tip += (tip.isEmpty() ? QString() : QStringLiteral("\n")) + linesToQt(line);
    }
}

/// The element's own tip or what the control is for, the keys behind its first line, what the setting may be,
/// and what belongs to the moment.
QString wholeTip(const Element& element) {
    bool hasOwn = !element.tip().empty() || !element.hint().empty();
    QString tip = linesToQt(hasOwn ? element.tip() : purposeOf(element));
    if (!element.shortcut().empty()) {
        QString keys = QLatin1String(" (") + toQt(element.shortcut()) + QLatin1Char(')');
        if (tip.isEmpty()) {
            tip = toQt(element.caption());
        }
        qsizetype lineEnd = tip.indexOf(QLatin1Char('\n'));
        tip.insert(lineEnd < 0 ? tip.size() : lineEnd, keys);
    }
    addLine(tip, rangeOf(element));
    addLine(tip, element.hint());
    return tip;
}

/// A menu or a box over the window borrows the focus; the field is not left by that.
bool focusIsBorrowed(Qt::FocusReason reason, const QWidget& widget) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           (reason == Qt::ActiveWindowFocusReason && !widget.isActiveWindow());
}

/// The widget's description is the reason why it is disabled.
constexpr const char* reasonTold = "reasonTold";

} // namespace

Binding::Binding(Element& boundElement, QObject& boundWidget)
    : QObject(&boundWidget)
    , bound(&boundElement)
    , target(boundWidget)
    , whole(typeid(boundWidget)) {
    target.setObjectName(toQt(boundElement.name()));
    for (Element* source = bound; source != nullptr; source = source->container()) {
        subscribe(*source);
    }
    if (QString spoken = spokenName(boundElement); !spoken.isEmpty() && widget() != nullptr) {
        widget()->setAccessibleName(spoken);
    }
    Form& form = boundElement.form();
    subscriptions.push_back(form.desk().removed.subscribe([this, &form](Form& leaving) {
        if (&leaving == &form) {
            letGo();
        }
    }));
    redraw();
}

Binding* Binding::of(const QObject* widget) {
    return widget == nullptr ? nullptr : widget->findChild<Binding*>(QString(), Qt::FindDirectChildrenOnly);
}

QWidget* Binding::widget() const {
    return qobject_cast<QWidget*>(&target);
}

void Binding::subscribe(Element& source) {
    subscriptions.push_back(source.changed.subscribe([this] { redraw(); }));
}

void Binding::letGo() {
    bound = nullptr;
    subscriptions.clear();
}

void Binding::onDraw(std::function<void()> drawingAction) {
    draw = std::move(drawingAction);
    // What every element has is shown already.
    drawBy(draw);
}

void Binding::redraw() {
    drawBy([this] {
        showState();
        if (draw) {
            draw();
        }
    });
}

void Binding::drawBy(const std::function<void()>& drawingAction) {
    // Showing a value may make the widget tell of it, and that must not come back here.
    if (!isLive() || drawing) {
        return;
    }
    drawing = true;
    drawingAction();
    drawing = false;
}

void Binding::gesture(const std::function<void()>& action) {
    if (!isLive() || drawing) {
        return;
    }
    // What the gesture does may take the widget, and this, away.
    QPointer<Binding> alive(this);
    action();
    if (alive) {
        redraw();
    }
}

void Binding::showState() {
    if (auto* menuAction = qobject_cast<QAction*>(&target)) {
        menuAction->setVisible(bound->shown());
        menuAction->setEnabled(bound->active());
        if (bound->shortcut() != shownShortcut) {
            shownShortcut = bound->shortcut();
            menuAction->setShortcut(QKeySequence(toQt(shownShortcut)));
            // A tool may float, a window of its own, and the keys count there too; a dialog keeps them out.
            menuAction->setShortcutContext(Qt::ApplicationShortcut);
        }
        return;
    }
    QWidget& own = *widget();
    if (visibilityIsShown) {
        setShown(own, bound->shown());
    }
    own.setEnabled(bound->active());
    own.setToolTip(wholeTip(*bound));
    if (!reason.isEmpty() || own.property(reasonTold).toBool()) {
        bool told = !bound->active() && !reason.isEmpty();
        own.setAccessibleDescription(told ? reason : QString());
        own.setProperty(reasonTold, told);
    }
    for (const auto& companion : companions) {
        if (companion) {
            setShown(*companion, bound->shown());
            companion->setEnabled(bound->active());
        }
    }
    showBackground();
}

void Binding::showBackground() {
    if (!backgroundIsShown || bound->background() == shownBackground) {
        return;
    }
    shownBackground = bound->background();
    QWidget& own = *widget();
    if (!shownBackground) {
        clearBackground();
        return;
    }
    QPalette palette = own.palette();
    QColor back = toQt(*shownBackground);
    for (auto role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        palette.setColor(role, back);
    }
    for (auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, readableOn(back));
    }
    own.setPalette(palette);
    own.setAutoFillBackground(true);
}

void Binding::clearBackground() {
    widget()->setPalette(QPalette());
    widget()->setAutoFillBackground(false);
}

void Binding::setReason(const QString& text) {
    reason = text;
    redraw();
}

void Binding::setBackgroundShown(bool shown) {
    backgroundIsShown = shown;
    if (!shown && std::exchange(shownBackground, std::nullopt)) {
        clearBackground();
    }
}

void Binding::followFocus() {
    widget()->installEventFilter(this);
}

void Binding::addCompanion(QWidget& companion) {
    companions.emplace_back(&companion);
    redraw();
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &target && isLive()) {
        if (event->type() == QEvent::ToolTip) {
            // What a setting may be depends on others, the crystal and the band.
            widget()->setToolTip(wholeTip(*bound));
        }
        if (event->type() == QEvent::FocusIn && !bound->focused()) {
            gesture([this] { bound->takeFocus(); });
        } else if (event->type() == QEvent::FocusOut && bound->focused() &&
                   !focusIsBorrowed(static_cast<QFocusEvent*>(event)->reason(), *widget())) {
            gesture([this] { bound->leave(); });
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zor
