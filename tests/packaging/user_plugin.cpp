// SPDX-License-Identifier: MIT
// A user for a program as it is installed: the toolkit loads this into the unchanged program, which then gets
// real clicks and keys. What to do is told line by line in a file; a line that cannot be done in time ends
// the program.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QGenericPlugin>
#include <QKeySequence>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

constexpr int pace = 30;            // ms between two steps
constexpr qint64 patience = 30'000; // ms for one step, on a busy machine
constexpr int gaveUp = 3;

/// What a step does once it can be done; empty as long as it cannot.
using Deed = std::function<void()>;

void nothing() {}

/// What can be seen under that name, in the window that asks for an answer if there is one.
QWidget* seen(const QString& name) {
    QWidget* found = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == name && widget->isVisible()) {
            found = widget;
            if (widget->window() == QApplication::activeModalWidget()) {
                break;
            }
        }
    }
    return found;
}

QAction* entry(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* action = window->findChild<QAction*>(name);
        if (action != nullptr && action->isVisible() && action->isEnabled()) {
            return action;
        }
    }
    return nullptr;
}

Deed see(const QString& name) {
    return seen(name) != nullptr ? Deed(nothing) : Deed();
}

Deed missNothing(const QString& name) {
    return seen(name) == nullptr ? Deed(nothing) : Deed();
}

Deed click(const QString& name) {
    if (QAction* action = entry(name)) {
        return [action] { action->trigger(); };
    }
    QWidget* widget = seen(name);
    if (widget == nullptr || !widget->isEnabled()) {
        return {};
    }
    return [widget] { QTest::mouseClick(widget, Qt::LeftButton, {}, {8, widget->height() / 2}); };
}

/// @param order  a field's name, a blank, and the text for it
Deed type(const QString& order) {
    auto* field = qobject_cast<QLineEdit*>(seen(order.section(QLatin1Char(' '), 0, 0)));
    if (field == nullptr || !field->isEnabled()) {
        return {};
    }
    return [field, text = order.section(QLatin1Char(' '), 1)] {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    };
}

/// @param order  a widget's name, a blank, and the key pressed in it
Deed key(const QString& order) {
    QWidget* widget = seen(order.section(QLatin1Char(' '), 0, 0));
    if (widget == nullptr) {
        return {};
    }
    return [widget, key = QKeySequence(order.section(QLatin1Char(' '), 1))[0].key()] {
        widget->setFocus();
        QTest::keyClick(widget, key);
    };
}

/// @param text  what the box says
Deed confirm(const QString& text) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box->text() != text) {
        return {};
    }
    return [box] { QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton); };
}

/// @param folder  where the dialog stands
Deed dialogIn(const QString& folder) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    bool there =
        dialog != nullptr && dialog->directory().canonicalPath() == QFileInfo(folder).canonicalFilePath();
    return there ? Deed(nothing) : Deed();
}

Deed choose(const QString& file) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name == nullptr) {
        return {};
    }
    return [name, file] {
        name->setText(file);
        QTest::keyClick(name, Qt::Key_Return);
    };
}

/// The gesture on the main window's free room, in a corner where no window is.
Deed doubleClick(const QString&) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* area = window->findChild<QMdiArea*>()) {
            return [room = area->viewport()] {
                QPoint corner = room->rect().bottomRight() - QPoint(4, 4);
                QWidget* page = room->childAt(corner);
                QTest::mouseDClick(page != nullptr ? page : room, Qt::LeftButton, {},
                                   page != nullptr ? page->mapFrom(room, corner) : corner);
            };
        }
    }
    return {};
}

struct Word {
    const char* name;
    Deed (*deed)(const QString& rest);
};
constexpr Word words[] = {
    {"see", see},         {"gone", missNothing}, {"click", click},
    {"key", key},         {"type", type},        {"confirm", confirm},
    {"dialog", dialogIn}, {"choose", choose},    {"doubleclick", doubleClick},
};

class User : public QObject {
  public:
    explicit User(const QString& path) {
        QFile script(path);
        if (script.open(QIODevice::ReadOnly)) {
            lines = QString::fromUtf8(script.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        }
        goOn();
    }

  private:
    void goOn() {
        QTimer::singleShot(pace, this, [this] { takeStep(); });
    }

    void takeStep() {
        if (lines.isEmpty()) {
            return;
        }
        if (!waiting.isValid()) {
            waiting.start();
        }
        Deed deed;
        for (const Word& word : words) {
            if (lines.constFirst().section(QLatin1Char(' '), 0, 0) == QLatin1String(word.name)) {
                deed = word.deed(lines.constFirst().section(QLatin1Char(' '), 1));
            }
        }
        if (!deed && waiting.elapsed() > patience) {
            std::fprintf(stderr, "could not: %s\n", lines.constFirst().toLocal8Bit().constData());
            std::_Exit(gaveUp);
        }
        // A deed may open a box that waits for its answer: what comes next is done inside of it.
        goOn();
        if (deed) {
            std::fprintf(stderr, "%s\n", lines.takeFirst().toLocal8Bit().constData());
            waiting.invalidate();
            deed();
        }
    }

    QStringList lines;
    QElapsedTimer waiting;
};

class UserPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "user.json")

  public:
    QObject* create(const QString&, const QString& script) override { return new User(script); }
};

} // namespace

#include "user_plugin.moc"
