// SPDX-License-Identifier: MIT
#include "desktop/widgets/field_keys.h"

#include <QCoreApplication>
#include <QPointer>

#include <limits>

namespace zor {

bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

char typedKey(const QKeyEvent& key, char16_t codes) {
    if (isEnter(key)) {
        return '\r';
    }
    if (key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete) {
        return '\b';
    }
    bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (command || key.text().isEmpty()) {
        return 0;
    }
    QChar typed = key.text().front();
    return typed.isPrint() && typed.unicode() < codes ? typed.toLatin1() : '\0';
}

LineField::LineField(int columnCount)
    : columns(columnCount) {
    setMaxLength(std::numeric_limits<int>::max());
}

QSize LineField::sizeHint() const {
    QSize hint = QLineEdit::sizeHint();
    hint.setWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * columns + 2 * hint.height() / 3);
    return hint;
}

CommaKey::CommaKey(LineField& line)
    : QObject(&line) {
    line.installEventFilter(this);
}

bool CommaKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.text() != QLatin1String(",")) {
        return QObject::eventFilter(watched, event);
    }
    QKeyEvent point(QEvent::KeyPress, Qt::Key_Period, key.modifiers(), QStringLiteral("."),
                    key.isAutoRepeat());
    QCoreApplication::sendEvent(watched, &point);
    return true;
}

UndoKeys::UndoKeys(QWidget& owner, Binding& fieldBinding)
    : QObject(&owner)
    , binding(fieldBinding) {
    owner.installEventFilter(this);
}

bool UndoKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    bool steps = key.modifiers() == Qt::ControlModifier && (key.key() == Qt::Key_Z || key.key() == Qt::Key_Y);
    const auto* field = elementOf<TextField>(binding);
    // Swallowed without being accepted, the key is a shortcut.
    return steps && field != nullptr && !field->typedIn();
}

LockedFieldActions::LockedFieldActions(QWidget& owner, QWidget& eventSource, Binding& fieldBinding)
    : QObject(&owner)
    , binding(fieldBinding) {
    eventSource.installEventFilter(this);
    if (&owner != &eventSource) {
        owner.installEventFilter(this);
    }
}

bool LockedFieldActions::eventFilter(QObject* watched, QEvent* event) {
    auto* field = elementOf<TextField>(binding);
    if (field == nullptr) {
        return false;
    }
    if (event->type() == QEvent::KeyPress && field->readOnly() && field->onKey) {
        char key = typedKey(*static_cast<QKeyEvent*>(event), 0x80);
        if (key != 0) {
            binding.gesture([&] { field->press(key); });
            return true;
        }
    }
    if (event->type() == QEvent::MouseButtonPress && field->onClick) {
        // The click goes on to place the caret.
        binding.gesture([&] { field->click(); });
    }
    if (event->type() == QEvent::MouseButtonDblClick && field->onDoubleClick) {
        binding.gesture([&] { field->doubleClick(); });
        return true;
    }
    return QObject::eventFilter(watched, event);
}

FieldKeys::FieldKeys(LineField& lineField, Binding& fieldBinding)
    : QObject(&lineField)
    , line(lineField)
    , binding(fieldBinding) {
    line.installEventFilter(this);
}

bool FieldKeys::eventFilter(QObject* watched, QEvent* event) {
    if (field() == nullptr) {
        return false;
    }
    if (event->type() == QEvent::FocusIn) {
        line.kept = field()->text();
    } else if (event->type() == QEvent::KeyPress && !line.isReadOnly()) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isEnter(key)) {
            commit();
            return true;
        }
        if (key.key() == Qt::Key_Escape && field()->text() != line.kept) {
            binding.gesture([this] { field()->replace(line.kept); });
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void FieldKeys::commit() {
    QPointer<FieldKeys> alive(this);
    binding.gesture([this] { field()->enter(); });
    if (alive && field() != nullptr) {
        line.kept = field()->text();
    }
}

} // namespace zor
