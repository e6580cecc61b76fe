// SPDX-License-Identifier: MIT
#include "desktop/widgets/spoken.h"

#include <QAccessibleWidget>
#include <QWidget>

#include <utility>

namespace zor {

namespace {

/// How a Spoken widget is asked.
class SpokenWidget : public QAccessibleWidget {
  public:
    SpokenWidget(QWidget& shown, Spoken& speaker)
        : QAccessibleWidget(&shown, speaker.spokenRole())
        , spoken(speaker) {}

    [[nodiscard]] QString text(QAccessible::Text which) const override {
        QString known = QAccessibleWidget::text(which);
        QString value = spoken.spokenValue();
        if (which == QAccessible::Value) {
            return value;
        }
        // Many readers ask a picture for no value, but all for what describes it.
        if (which == QAccessible::Description && !value.isEmpty()) {
            return known.isEmpty() ? value : value + QStringLiteral(". ") + known;
        }
        return known;
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = role() == QAccessible::Indicator;
        state.checked = spoken.spokenOn();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (spoken.canBePressed()) {
            names.prepend(pressAction());
        }
        return names;
    }

    void doAction(const QString& action) override {
        if (action == pressAction() && widget()->isEnabled()) {
            spoken.spokenPress();
            return;
        }
        QAccessibleWidget::doAction(action);
    }

  private:
    Spoken& spoken;
};

std::function<void(const QString&)>& ownAnnouncer() {
    static std::function<void(const QString&)> announcer;
    return announcer;
}

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    auto* speaker = widget == nullptr ? nullptr : dynamic_cast<Spoken*>(widget);
    return speaker == nullptr ? nullptr : new SpokenWidget(*widget, *speaker);
}

} // namespace

void speakOfOwnWidgets() {
    // The toolkit takes the same factory once only.
    QAccessible::installFactory(interfaceOf);
}

void tellSpokenValue(QWidget& widget) {
    if (const auto* speaker = dynamic_cast<Spoken*>(&widget); speaker != nullptr && QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(&widget, speaker->spokenValue());
        QAccessible::updateAccessibility(&event);
    }
}

void setAnnouncer(std::function<void(const QString&)> announcer) {
    ownAnnouncer() = std::move(announcer);
}

void announce(QWidget& widget, const QString& text) {
    if (text.trimmed().isEmpty()) {
        return;
    }
    if (ownAnnouncer()) {
        ownAnnouncer()(text);
        return;
    }
    if (!QAccessible::isActive()) {
        return;
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&widget, text);
#else
    QAccessibleEvent event(&widget, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}

} // namespace zor
