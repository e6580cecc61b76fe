// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedLayout>
#include <QStylePainter>
#include <QTabBar>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

namespace zor {

namespace {

/// Ticks and radio buttons set themselves before they tell; redrawing puts back what was refused.
void bindClick(QAbstractButton& widget, Binding& binding) {
    QObject::connect(&widget, &QAbstractButton::clicked, &binding,
                     [&binding] { binding.gesture([&] { binding.element()->click(); }); });
}

/// A strip of tabs with a thin bar under each title that says how full its page is.
class FilledTabBar : public QTabBar {
  public:
    explicit FilledTabBar(std::function<double(int)> pageFill)
        : fill(std::move(pageFill)) {}

  protected:
    [[nodiscard]] QSize tabSizeHint(int tab) const override {
        QSize hint = QTabBar::tabSizeHint(tab);
        return fill ? hint + QSize(0, barHeight + 1) : hint;
    }

    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QTabBar::wheelEvent(event);
        } else {
            event->ignore();
        }
    }

    void paintEvent(QPaintEvent* event) override {
        QTabBar::paintEvent(event);
        if (!fill) {
            return;
        }
        const RoleColours& colours = roles(palette());
        QPainter painter(this);
        for (int tab = 0; tab < count(); ++tab) {
            QRect room = tabRect(tab).adjusted(sideGap, 0, -sideGap, 0);
            room.setTop(room.bottom() - barHeight - 1);
            room.setHeight(barHeight);
            painter.fillRect(room, palette().color(QPalette::Mid));
            double share = std::clamp(fill(tab), 0.0, 1.0);
            if (share > 0) {
                room.setWidth(std::max(barHeight, static_cast<int>(room.width() * share)));
                painter.fillRect(room, colours.accent);
            }
        }
    }

  private:
    static constexpr int barHeight = 3;
    static constexpr int sideGap = 9;

    std::function<double(int)> fill;
};

/// A combo box that shows the element's text, whether or not an entry has it.
class ListView : public QComboBox {
  public:
    QString shownText;
    bool locked = false;
    WheelUse wheel = WheelUse::ChoosesWithFocus;
    int columns = 4;

    /// As wide as its widest entry. The toolkit's own hint follows the entries only with the drop-down window
    /// made beforehand, which costs half of what the whole list does and is hardly ever opened.
    [[nodiscard]] QSize sizeHint() const override {
        if (!hint.isValid()) {
            QFontMetrics metrics = fontMetrics();
            constexpr int emptyWidth = 7;     // letters
            constexpr int arrowRoom = 14 + 2; // px, however small the letters
            int widest = count() == 0 ? emptyWidth * metrics.horizontalAdvance(QLatin1Char('x')) : 0;
            for (int entry = 0; entry < count(); ++entry) {
                widest = std::max(widest, metrics.boundingRect(itemText(entry)).width());
            }
            QStyleOptionComboBox look;
            initStyleOption(&look);
            QSize text(widest, std::max(metrics.height() + 2, arrowRoom));
            hint = style()->sizeFromContents(QStyle::CT_ComboBox, &look, text, this);
            int arrow = hint.height() + 8;
            // A text that is no entry's, from a file say, may be of any length; it is cut to the room that is
            // there.
            int told = metrics.horizontalAdvance(QLatin1Char('0')) * columns;
            hint.setWidth(std::max(hint.width(), told + arrow));
        }
        return hint;
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void measureAnew() {
        hint = {};
        updateGeometry();
    }

    void showPopup() override {
        if (!locked) {
            QComboBox::showPopup();
        }
    }

  protected:
    void changeEvent(QEvent* event) override {
        QComboBox::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
            measureAnew();
        }
    }
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionComboBox look;
        initStyleOption(&look);
        QRect room = style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, this);
        look.currentText = fontMetrics().elidedText(shownText, Qt::ElideRight, room.width());
        painter.drawComplexControl(QStyle::CC_ComboBox, look);
        painter.drawControl(QStyle::CE_ComboBoxLabel, look);
    }
    void wheelEvent(QWheelEvent* event) override {
        // A page is scrolled over its lists without changing them.
        if (wheel == WheelUse::ChoosesWithFocus && hasFocus() && !locked) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }

  private:
    mutable QSize hint;
};

/// A slider that the wheel moves while it has the focus alone.
class CalmSlider : public QSlider {
  public:
    CalmSlider()
        : QSlider(Qt::Horizontal) {
        setFocusPolicy(Qt::StrongFocus);
    }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QSlider::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

void drawList(ListView& view, const ListBox& held) {
    QStringList entries;
    for (const auto& entry : held.entries()) {
        entries += toQt(entry);
    }
    bool same = view.count() == entries.size();
    for (int i = 0; same && i < view.count(); ++i) {
        same = view.itemText(i) == entries[i];
    }
    if (!same) {
        view.clear();
        view.addItems(entries);
        view.measureAnew();
    }
    for (int i = 0; i < view.count() && i < static_cast<int>(held.entryTips().size()); ++i) {
        view.setItemData(i, toQt(held.entryTips()[static_cast<std::size_t>(i)]), Qt::ToolTipRole);
    }
    view.setCurrentIndex(held.position());
    view.locked = held.locked();
    view.shownText = toQt(held.text());
    // A text that is no entry's is known to nobody else; else what the list is for can be said.
    view.setAccessibleDescription(view.currentText() == view.shownText ? QString() : view.shownText);
    view.update();
}

/// @param text  what stands beside the box
QWidget* tickSaying(TickBox& element, std::function<QString(const Binding&)> text) {
    auto* box = new QCheckBox;
    auto* binding = new Binding(element, *box);
    binding->followFocus();
    bindClick(*box, *binding);
    binding->onDraw([binding, box, text = std::move(text)] {
        box->setText(text(*binding));
        box->setChecked(elementOf<TickBox>(*binding)->ticked());
    });
    return box;
}

} // namespace

QWidget* tick(TickBox& element) {
    return tickSaying(element,
                      [](const Binding& binding) { return mnemonicCaption(binding.element()->caption()); });
}

QWidget* tick(TickBox& element, const QString& face) {
    return tickSaying(element, [face](const Binding&) { return face; });
}

QWidget* option(Option& element) {
    auto* radio = new QRadioButton;
    // The group is the element's business; the toolkit's own could not be left without a choice.
    radio->setAutoExclusive(false);
    auto* binding = new Binding(element, *radio);
    binding->followFocus();
    bindClick(*radio, *binding);
    binding->onDraw([binding, radio] {
        radio->setText(mnemonicCaption(binding->element()->caption()));
        radio->setChecked(elementOf<Option>(*binding)->chosen());
    });
    return radio;
}

QWidget* optionRow(std::initializer_list<Option*> elements) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    for (Option* element : elements) {
        layout->addWidget(option(*element));
    }
    layout->addStretch();
    return row;
}

QWidget* list(ListBox& element, int columns, WheelUse wheel) {
    auto* view = new ListView;
    view->columns = columns;
    view->wheel = wheel;
    // The toolkit would give it the focus at the first notch of a wheel over it.
    view->setFocusPolicy(Qt::StrongFocus);
    view->setMaxVisibleItems(20);
    auto* binding = new Binding(element, *view);
    binding->followFocus();
    QObject::connect(view, &QComboBox::activated, binding, [binding](int position) {
        binding->gesture([&] { binding->element()->choosePosition(position); });
    });
    binding->onDraw([binding, view] { drawList(*view, *elementOf<ListBox>(*binding)); });
    return view;
}

QWidget* slider(Slider& element) {
    auto* bar = new CalmSlider;
    auto* binding = new Binding(element, *bar);
    binding->followFocus();
    QObject::connect(bar, &QSlider::valueChanged, binding,
                     [binding](int value) { binding->gesture([&] { binding->element()->slide(value); }); });
    binding->onDraw([binding, bar] {
        const auto& held = *elementOf<Slider>(*binding);
        bar->setRange(held.minimum(), held.maximum());
        bar->setPageStep(std::max(1, (held.maximum() - held.minimum()) / 10));
        bar->setValue(held.value());
    });
    return bar;
}

QWidget* upDown(UpDown& element) {
    auto* pair = new QWidget;
    auto* layout = new QVBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* binding = new Binding(element, *pair);
    auto add = [&](Qt::ArrowType arrow, bool (Element::*step)()) {
        auto* button = new QToolButton;
        button->setArrowType(arrow);
        button->setAccessibleName(arrow == Qt::UpArrow ? QStringLiteral("Raise") : QStringLiteral("Lower"));
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(18, 13);
        layout->addWidget(button);
        QObject::connect(button, &QToolButton::clicked, binding,
                         [binding, step] { binding->gesture([&] { (binding->element()->*step)(); }); });
    };
    add(Qt::UpArrow, &Element::stepUp);
    add(Qt::DownArrow, &Element::stepDown);
    pair->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return pair;
}

QWidget* spin(TextField& text, UpDown& arrows, int columns) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(field(text, columns));
    layout->addWidget(upDown(arrows));
    row->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return row;
}

QWidget* tabs(TabStrip& element, const std::vector<QWidget*>& pages, std::function<double(int)> fill) {
    auto* whole = new QWidget;
    auto* layout = new QVBoxLayout(whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* strip = new FilledTabBar(std::move(fill));
    strip->setDrawBase(false);
    strip->setExpanding(false);
    // In a narrow room the window scrolls, as a whole; arrows that scroll the titles would hide some of them.
    strip->setUsesScrollButtons(false);
    for (const auto& title : element.titles()) {
        // A mark before a letter makes it the tab's key.
        strip->addTab(toQt(title));
    }
    layout->addWidget(strip);
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    // A stack of pages heeds no margins, so the frame around it has them.
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(10, 10, 10, 10);
    auto* room = new QWidget;
    inside->addWidget(room);
    auto* stack = new QStackedLayout(room);
    for (QWidget* page : pages) {
        // A page that its own element hid would not count for the size that all pages share.
        if (Binding* pageBinding = Binding::of(page)) {
            pageBinding->setVisibilityShown(false);
            page->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
        }
        stack->addWidget(page);
    }
    layout->addWidget(frame, 1);

    auto* binding = new Binding(element, *strip);
    QObject::connect(strip, &QTabBar::currentChanged, binding, [binding](int index) {
        binding->gesture([&] { binding->element()->choosePosition(index + 1); });
    });
    binding->onDraw([binding, strip, frame, stack] {
        // A strip that is out of reach keeps its page: what stands there says for itself whether it can be
        // used.
        frame->setVisible(binding->element()->shown());
        int index = elementOf<TabStrip>(*binding)->page() - 1;
        strip->setCurrentIndex(index);
        stack->setCurrentIndex(index);
    });
    return whole;
}

} // namespace zor
