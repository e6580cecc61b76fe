// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "shell/main_window.h"

#include <QEvent>
#include <QMainWindow>
#include <QPainter>
#include <QToolBar>

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
    void arrange() {
        int used = 0;
        for (QToolBar* bar : bars) {
            if (bar->isHidden()) {
                continue;
            }
            int needed = bar->sizeHint().width();
            bool breaks = used > 0 && used + needed > window.width();
            if (breaks != window.toolBarBreak(bar)) {
                breaks ? window.insertToolBarBreak(bar) : window.removeToolBarBreak(bar);
            }
            used = breaks ? needed : used + needed;
        }
    }

    QMainWindow& window;
    std::vector<QToolBar*> bars;
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

} // namespace

void addMainBars(QMainWindow& window, MainWindow& main) {
    LinkBar& link = main.linkBar;
    QToolBar* chips =
        addBar(window, main.Toolbar1, "Chips",
               {barButton(main.TX), barButton(main.RX), barButton(main.TRX), barButton(main.EE)});
    QToolBar* board =
        addBar(window, link.Toolbar2, "Board",
               {barButton(link.Connect), barButton(link.Disconnect), new LineDot(link.CommStatus),
                statusField(link.CommStatus, 13), label(link.Text2), statusField(link.LoadBoard, 18),
                list(link.LoadboardList, 22, WheelUse::NeverChooses)});
    QToolBar* data = addBar(window, link.Toolbar3, "Data",
                            {label(link.Text1), list(link.CB_Mode, 20, WheelUse::NeverChooses)});
    new BarRows(window, {chips, board, data});
}

} // namespace zor
