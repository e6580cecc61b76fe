// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "shell/main_window.h"

#include <QEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QToolBar>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace zor {

namespace {

/// The dot before the port's state: filled while the line is in use, hollow while it is not.
class LineDot : public QWidget, public Spoken {
  public:
    explicit LineDot(TextField& commStatus)
        : status(commStatus) {
        subscription = status.changed.subscribe([this] {
            update();
            tellSpokenValue(*this);
        });
        setFixedSize(26, 14);
        setAccessibleName(QStringLiteral("Line in use"));
    }

    [[nodiscard]] QAccessible::Role spokenRole() const override { return QAccessible::Indicator; }
    [[nodiscard]] QString spokenValue() const override {
        return spokenOn() ? QStringLiteral("lit") : QStringLiteral("dark");
    }
    [[nodiscard]] bool spokenOn() const override {
        return status.text() == "Comm. OK" || status.text() == "reading...";
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        bool lit = spokenOn();
        const RoleColours& colours = roles(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(lit ? colours.litEdge : colours.darkEdge, 1.4));
        painter.setBrush(lit ? QBrush(colours.lit) : QBrush(Qt::NoBrush));
        painter.drawEllipse(QRectF(8, 1.5, 11, 11));
    }

  private:
    TextField& status;
    Subscription subscription;
};

/// A window too narrow for its bars side by side stands them in rows, so that nothing of them is folded away.
class BarRows : public QObject {
  public:
    BarRows(QMainWindow& mainWindow, std::vector<QToolBar*> allBars)
        : QObject(&mainWindow)
        , window(mainWindow)
        , bars(std::move(allBars)) {
        window.installEventFilter(this);
        for (QToolBar* bar : bars) {
            bar->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        bool ofWindow = watched == &window && event->type() == QEvent::Resize;
        bool ofBar = watched != &window &&
                     (event->type() == QEvent::LayoutRequest || event->type() == QEvent::ShowToParent ||
                      event->type() == QEvent::HideToParent);
        if ((ofWindow || ofBar) && !std::exchange(arranging, true)) {
            arrange();
            arranging = false;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    struct Standing {
        QToolBar* bar;
        bool beginsRow;
        friend bool operator==(const Standing&, const Standing&) = default;
    };
    using Rows = std::vector<Standing>;

    [[nodiscard]] Rows rowsOf(const std::vector<QToolBar*>& order) const {
        Rows rows;
        int used = 0;
        for (QToolBar* bar : order) {
            int needed = bar->isHidden() ? 0 : bar->sizeHint().width();
            bool breaks = used > 0 && used + needed > window.width();
            rows.push_back({bar, breaks});
            used = breaks ? needed : used + needed;
        }
        return rows;
    }

    static std::ptrdiff_t count(const Rows& rows) {
        return std::count_if(rows.begin(), rows.end(), [](const Standing& one) { return one.beginsRow; });
    }

    /// In their order, unless the last two the other way round take a row less.
    void arrange() {
        Rows wanted = rowsOf(bars);
        std::vector<QToolBar*> other = bars;
        std::iter_swap(other.end() - 1, other.end() - 2);
        if (Rows fewer = rowsOf(other); count(fewer) < count(wanted)) {
            wanted = std::move(fewer);
        }
        if (wanted == standing) {
            return;
        }
        standing = wanted;
        for (const Standing& one : wanted) {
            window.removeToolBarBreak(one.bar);
        }
        for (const Standing& one : wanted) {
            bool hidden = one.bar->isHidden();
            window.addToolBar(one.bar);
            one.bar->setHidden(hidden);
        }
        for (const Standing& one : wanted) {
            if (one.beginsRow) {
                window.insertToolBarBreak(one.bar);
            }
        }
    }

    QMainWindow& window;
    std::vector<QToolBar*> bars;
    Rows standing;
    bool arranging = false;
};

/// One bar: widgets that are hidden and greyed with the bar's element.
QToolBar* addBar(QMainWindow& window, Bar& element, const QString& title,
                 const std::vector<QWidget*>& widgets) {
    auto* bar = new QToolBar(title);
    bar->setMovable(false);
    // The toolkit's own menu would hide a bar without its element knowing.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    // One by one, so that a narrow window puts what does not fit behind the bar's arrow.
    for (QWidget* widget : widgets) {
        // The bar shows and hides what stands in it, and fails to once a widget was hidden by itself.
        if (Binding* binding = Binding::of(widget)) {
            binding->setVisibilityShown(false);
            widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
        }
        bar->addWidget(widget);
    }
    window.addToolBar(bar);
    new Binding(element, *bar);
    return bar;
}

QWidget* statusField(TextField& element, int columns) {
    QWidget* text = frameless(element);
    text->setFixedWidth(text->fontMetrics().averageCharWidth() * columns);
    return text;
}

/// The same, wider while its text needs it: a board's name is of no use without its beginning or its port.
QWidget* boardField(TextField& element, int columns) {
    auto* line = qobject_cast<QLineEdit*>(statusField(element, columns));
    auto makeRoom = [line, least = line->width()] {
        constexpr int margins = 12; // px
        line->setFixedWidth(std::max(least, line->fontMetrics().horizontalAdvance(line->text()) + margins));
    };
    QObject::connect(line, &QLineEdit::textChanged, line, makeRoom);
    makeRoom();
    return line;
}

} // namespace

void addMainBars(QMainWindow& window, MainWindow& main) {
    LinkBar& link = main.linkBar;
    QToolBar* chips =
        addBar(window, main.Toolbar1, "Chips",
               {barButton(main.TX), barButton(main.RX), barButton(main.TRX), barButton(main.EE)});
    QToolBar* board =
        addBar(window, link.Toolbar2, "Board",
               {barButton(link.Connect), barButton(link.Disconnect), new LineDot(link.CommStatus),
                statusField(link.CommStatus, 13), label(link.Text2), boardField(link.LoadBoard, 18),
                list(link.LoadboardList, 22, WheelUse::NeverChooses)});
    QToolBar* data = addBar(window, link.Toolbar3, "Data",
                            {label(link.Text1), list(link.CB_Mode, 20, WheelUse::NeverChooses)});
    new BarRows(window, {chips, board, data});
}

} // namespace zor
