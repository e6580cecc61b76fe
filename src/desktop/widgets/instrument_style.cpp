// SPDX-License-Identifier: MIT
#include "desktop/widgets/instrument_style.h"

#include "desktop/widgets/colours.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

namespace zor {

namespace {

constexpr int titleInset = 8;

QColor greyedIf(bool disabled, QColor colour) {
    if (disabled) {
        colour.setAlphaF(0.5F);
    }
    return colour;
}

void drawCross(QPainter& painter, const QRect& box, const QColor& colour, bool hovered) {
    if (hovered) {
        QColor ground = colour;
        ground.setAlphaF(0.15F);
        painter.fillRect(box, ground);
    }
    QRectF arm = QRectF(box).adjusted(box.width() * 0.32, box.height() * 0.32, -box.width() * 0.32,
                                      -box.height() * 0.32);
    painter.setPen(QPen(colour, 1.4));
    painter.drawLine(arm.topLeft(), arm.bottomRight());
    painter.drawLine(arm.topRight(), arm.bottomLeft());
}

void drawTitleBar(const QStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter,
                  const QWidget* widget) {
    bool active = (bar.titleBarState & Qt::WindowActive) != 0;
    const RoleColours& colours = roles(bar.palette);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(bar.rect, active ? colours.titleBar : bar.palette.color(QPalette::Window));
    QColor ink = active ? bar.palette.color(QPalette::Active, QPalette::WindowText) : colours.softText;
    QRect close = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarCloseButton, widget);
    QRect text = bar.rect.adjusted(titleInset, 0, -titleInset, 0);
    text.setRight(close.isValid() ? close.left() - titleInset : text.right());
    if (const auto* sign = widget == nullptr ? nullptr
                                             : widget->findChild<QWidget*>(QStringLiteral("FloatSign"),
                                                                           Qt::FindDirectChildrenOnly)) {
        text.setRight(sign->x() - titleInset);
    }
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, text.width()));
    if (close.isValid()) {
        drawCross(painter, close, ink,
                  (bar.activeSubControls & QStyle::SC_TitleBarCloseButton) != 0 &&
                      (bar.state & QStyle::State_MouseOver) != 0);
    }
    painter.restore();
}

void drawIndicator(const QStyleOption& option, QPainter& painter, bool round) {
    const RoleColours& colours = roles(option.palette);
    bool disabled = (option.state & QStyle::State_Enabled) == 0;
    bool on = (option.state & QStyle::State_On) != 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    bool focused = (option.state & QStyle::State_HasFocus) != 0;
    painter.setPen(
        QPen(focused ? option.palette.color(QPalette::Highlight) : greyedIf(disabled, colours.edge), 1));
    painter.setBrush(option.palette.color(disabled ? QPalette::Window : QPalette::Base));
    QColor ink = greyedIf(disabled, option.palette.color(QPalette::Active, QPalette::Text));
    if (round) {
        painter.drawEllipse(box);
        if (on) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(ink);
            double inset = box.width() * 0.27;
            painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
        }
    } else {
        painter.drawRoundedRect(box, 2, 2);
        if (on) {
            QPainterPath mark;
            mark.moveTo(box.left() + box.width() * 0.22, box.top() + box.height() * 0.52);
            mark.lineTo(box.left() + box.width() * 0.42, box.top() + box.height() * 0.74);
            mark.lineTo(box.left() + box.width() * 0.80, box.top() + box.height() * 0.26);
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPath(mark);
        }
    }
    painter.restore();
}

/// A field's ground with an outline; Fusion's own is all but lost on a dark window.
void drawField(const QStyleOption& option, QPainter& painter) {
    const RoleColours& colours = roles(option.palette);
    bool disabled = (option.state & QStyle::State_Enabled) == 0;
    bool focused = (option.state & QStyle::State_HasFocus) != 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = colours.edge;
    edge.setAlphaF(disabled ? 0.35F : 0.75F);
    painter.setPen(QPen(focused ? option.palette.color(QPalette::Highlight) : edge, 1));
    painter.setBrush(option.palette.color(disabled ? QPalette::Disabled : QPalette::Active, QPalette::Base));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

/// Flat, in the accent itself; pressed a shade deeper, with an outline for the focus.
void drawStrongButton(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    bool down = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    bool focused = (option.state & QStyle::State_HasFocus) != 0;
    QColor ground = option.palette.color(QPalette::Button);
    painter.setPen(focused ? QPen(option.palette.color(QPalette::ButtonText), 1) : QPen(ground, 1));
    painter.setBrush(down ? ground.darker(120) : ground);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.restore();
}

/// The outline of lists, pages and areas of text.
void drawEdge(const QStyleOption& option, QPainter& painter) {
    painter.save();
    QColor edge = roles(option.palette).edge;
    edge.setAlphaF(0.5F);
    painter.setPen(edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// One of the base style's icons, loaded when it is first painted: bars and windows ask for icons that hardly
/// ever show, and loading them was a tenth of the start.
class IconOnDemand : public QIconEngine {
  public:
    IconOnDemand(const QStyle& baseStyle, QStyle::StandardPixmap wanted)
        : base(baseStyle)
        , which(wanted) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().pixmap(size, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().actualSize(size, mode, state);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new IconOnDemand(*this); }

  private:
    [[nodiscard]] const QIcon& icon() {
        if (loaded.isNull()) {
            loaded = base.standardIcon(which);
        }
        return loaded;
    }

    const QStyle& base;
    QStyle::StandardPixmap which;
    QIcon loaded;
};

} // namespace

InstrumentStyle::InstrumentStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void InstrumentStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        control == CC_TitleBar && bar != nullptr) {
        drawTitleBar(*this, *bar, *painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void InstrumentStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    if (element == CE_ToolBar) {
        // Flat: Fusion's seams between the bars cost more than all else on them.
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void InstrumentStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                    const QWidget* widget) const {
    switch (element) {
    case PE_IndicatorCheckBox:
        drawIndicator(*option, *painter, false);
        return;
    case PE_IndicatorRadioButton:
        drawIndicator(*option, *painter, true);
        return;
    case PE_FrameWindow:
        painter->save();
        painter->setPen(roles(option->palette).edge);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
        return;
    case PE_Frame:
        drawEdge(*option, *painter);
        return;
    case PE_PanelButtonCommand:
        // Disabled it is as quiet as any other.
        if (widget != nullptr && widget->property(strongProperty).toBool() &&
            (option->state & State_Enabled) != 0) {
            drawStrongButton(*option, *painter);
            return;
        }
        break;
    case PE_PanelLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame != nullptr && frame->lineWidth > 0) {
            drawField(*option, *painter);
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QIcon InstrumentStyle::standardIcon(StandardPixmap which, const QStyleOption*, const QWidget*) const {
    // An inner window asks for its menu's picture at once; our title bars show none.
    return which == SP_TitleBarMenuButton ? QIcon() : QIcon(new IconOnDemand(*baseStyle(), which));
}

int InstrumentStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (metric) {
    case PM_TitleBarHeight:
        return (option != nullptr ? option->fontMetrics.height() : 16) + 12;
    case PM_MdiSubWindowFrameWidth:
        return 3;
    case PM_TabBarTabHSpace:
        // Nine titles stand side by side beside the words.
        return 16;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int InstrumentStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* returned) const {
    // A title is drawn on the bar itself, and a window's corners are not cut.
    if (hint == SH_WindowFrame_Mask) {
        return 0;
    }
    // The menus are reached with one key.
    if (hint == SH_MenuBar_AltKeyNavigation) {
        return 1;
    }
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

} // namespace zor
