// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/spoken.h"
#include "elements/bit_cell.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace zor {

namespace {

constexpr int margin = 3;
/// What most bit names need.
constexpr int nameCharacters = 7;

/// A cell for one bit. 1 is filled, 0 hollow, no data hatched, so that colour is never alone; a tall cell has
/// its number and digit inside and the name below, a flat one only its name.
class BitCellView : public QWidget, public Spoken {
  public:
    BitCellView(CellShape cellShape, CellUse use, int bitNumber)
        : shape(cellShape)
        , number(bitNumber) {
        setFocusPolicy(use == CellUse::Clicked ? Qt::TabFocus : Qt::NoFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    void show(const BitCell& cell) {
        name = toQt(cell.caption());
        state = cell.state();
        ground = cell.background();
        setAccessibleName(QStringLiteral("Bit %1 %2: %3").arg(number).arg(name, spokenValue()));
        setToolTip(accessibleName());
        update();
    }

    [[nodiscard]] QSize sizeHint() const override {
        int width = fontMetrics().averageCharWidth() * nameCharacters + 2 * margin;
        return {width, boxHeight() + (shape == CellShape::Tall ? fontMetrics().height() : 0)};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 4 + 2 * margin, sizeHint().height()};
    }

    [[nodiscard]] QAccessible::Role spokenRole() const override {
        return onClick ? QAccessible::Button : QAccessible::Indicator;
    }
    [[nodiscard]] QString spokenValue() const override {
        return QLatin1String(stateWords[static_cast<int>(state)]);
    }
    [[nodiscard]] bool spokenOn() const override { return state == BitState::One; }
    [[nodiscard]] bool canBePressed() const override { return static_cast<bool>(onClick); }
    bool spokenPress() override {
        if (onClick) {
            onClick();
        }
        return canBePressed();
    }

    /// A click, or the space bar.
    std::function<void()> onClick;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (onClick && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            onClick();
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (onClick && event->key() == Qt::Key_Space) {
            onClick();
        } else {
            QWidget::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QRect box(0, 0, width(), boxHeight());
        paintBox(painter, box);
        painter.setPen(textColour());
        QFont shown = font();
        shown.setBold(state == BitState::One);
        painter.setFont(shown);
        QRect inside = box.adjusted(margin, 0, -margin, 0);
        if (shape == CellShape::Flat) {
            paintName(painter, inside);
            return;
        }
        if (state != BitState::NoData) {
            painter.drawText(inside, Qt::AlignCenter,
                             state == BitState::One ? QStringLiteral("1") : QStringLiteral("0"));
        }
        QFont small = font();
        small.setPointSizeF(small.pointSizeF() * 0.75);
        painter.setFont(small);
        painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, QString::number(number));
        painter.setFont(shown);
        painter.setPen(state == BitState::One ? palette().color(QPalette::WindowText)
                                              : roles(palette()).softText);
        paintName(painter, QRect(0, boxHeight(), width(), height() - boxHeight()));
    }

  private:
    static constexpr const char* stateWords[] = {"unknown", "0", "1"};

    [[nodiscard]] int boxHeight() const { return fontMetrics().height() + 2 * margin; }

    [[nodiscard]] QColor textColour() const {
        return state == BitState::One && ground ? readableOn(toQt(*ground)) : roles(palette()).softText;
    }

    void paintBox(QPainter& painter, const QRect& box) const {
        const RoleColours& colours = roles(palette());
        QRectF edge = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setPen(QPen(hasFocus() ? colours.accent : colours.edge, hasFocus() ? 2 : 1));
        painter.setBrush(state == BitState::One && ground ? QBrush(toQt(*ground))
                                                          : palette().brush(QPalette::Base));
        painter.drawRoundedRect(edge, 2, 2);
        if (state == BitState::NoData && ground) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QBrush(toQt(*ground), Qt::BDiagPattern));
            painter.drawRoundedRect(edge, 2, 2);
        }
    }

    void paintName(QPainter& painter, const QRect& room) const {
        painter.drawText(room, Qt::AlignCenter,
                         painter.fontMetrics().elidedText(name, Qt::ElideRight, room.width()));
    }

    CellShape shape;
    int number;
    QString name;
    BitState state = BitState::NoData;
    std::optional<Colour> ground;
};

} // namespace

QWidget* bitCell(BitCell& element, CellShape shape, CellUse use) {
    auto* view = new BitCellView(shape, use, element.number());
    auto* binding = new Binding(element, *view);
    // The cell paints its ground itself, in a pattern of its own for each state.
    binding->setBackgroundShown(false);
    binding->onDraw([binding, view] { view->show(*elementOf<BitCell>(*binding)); });
    if (use == CellUse::Clicked) {
        view->onClick = [binding] { binding->gesture([&] { binding->element()->click(); }); };
    }
    return view;
}

QWidget* bitRow(std::deque<BitCell>& cells, CellShape shape, CellUse use, std::size_t lowest,
                std::size_t count) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(margin);
    for (std::size_t number = lowest + count; number-- > lowest;) {
        layout->addWidget(bitCell(cells[number], shape, use), 1);
    }
    return row;
}

} // namespace zor
