// SPDX-License-Identifier: MIT
#include "desktop/views/pictures.h"

#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "platform/dialogs.h"

#include <QIconEngine>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>
#include <utility>

namespace zor {

namespace {

/// Eight bits of data over a carrier whose frequency follows them, as dense as the room allows.
void drawSign(QPainter& painter, const QRectF& box, const QColor& data, const QColor& carrier) {
    constexpr std::string_view pattern = "01101001";
    double bitWidth = box.width() / static_cast<double>(pattern.size());
    double bitTop = box.top() + box.height() * 0.06;
    double bitLow = box.top() + box.height() * 0.22;
    double middle = box.top() + box.height() * 0.62;
    // A curve of one piece with its handles at 4/3 of the swing and 4/(3 pi) of its width is a half wave.
    double handle = box.height() * 0.30 * 4 / 3;
    int slowHalves = std::max(1, static_cast<int>(std::lround(bitWidth / 16)));

    QPainterPath wave(QPointF(box.left(), middle));
    QPainterPath bits(QPointF(box.left(), pattern.front() == '1' ? bitTop : bitLow));
    for (std::size_t bit = 0; bit < pattern.size(); ++bit) {
        bool one = pattern[bit] == '1';
        double left = box.left() + bitWidth * static_cast<double>(bit);
        bits.lineTo(left, one ? bitTop : bitLow);
        bits.lineTo(left + bitWidth, one ? bitTop : bitLow);
        int halves = one ? 2 * slowHalves : slowHalves;
        double width = bitWidth / halves;
        double reach = width * 4 / (3 * std::numbers::pi);
        for (int half = 0; half < halves; ++half) {
            double start = left + width * half;
            wave.cubicTo(start + reach, middle - handle, start + width - reach, middle - handle,
                         start + width, middle);
            handle = -handle;
        }
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(data, 2));
    painter.drawPath(bits);
    painter.setPen(QPen(carrier, 1));
    painter.drawPath(wave);
}

/// A tile with one bit of the sign: a slow wave, then a fast one. All eight would be a blur in 16 pixels.
void paintTile(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / 64, place.height() / 64);
    const RoleColours& colours = roles(Scheme::Light);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.accent);
    painter.drawRoundedRect(QRectF(1, 1, 62, 62), 12, 12);
    QPainterPath wave(QPointF(8, 38));
    double handle = 19;
    for (auto [left, width] :
         {std::pair(8.0, 12.0), {20.0, 12.0}, {32.0, 6.0}, {38.0, 6.0}, {44.0, 6.0}, {50.0, 6.0}}) {
        double reach = width * 4 / (3 * std::numbers::pi);
        wave.cubicTo(left + reach, 38 - handle, left + width - reach, 38 - handle, left + width, 38);
        handle = -handle;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.accentText, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(wave);
    painter.setPen(QPen(colours.lit, 4, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPolyline(QPolygonF({{8, 17}, {32, 17}, {32, 11}, {56, 11}}));
    painter.restore();
}

/// Draws the tile in whatever size is asked for, when it is.
class TileEngine : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        paintTile(*painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
        QPixmap tile(size);
        tile.fill(Qt::transparent);
        QPainter painter(&tile);
        paintTile(painter, tile.rect());
        return tile;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new TileEngine(*this); }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    /// What is handed to the window manager: larger ones it has from the installed program's entry, and
    /// drawing them would cost the start more than all its menus.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> sizes;
        for (int side : {16, 24, 32, 48, 64}) {
            sizes.append({side, side});
        }
        return sizes;
    }
};

class IconView : public QWidget {
  public:
    explicit IconView(int side) { setFixedSize(side, side); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintTile(painter, rect());
    }
};

class SplashView : public QWidget {
  public:
    explicit SplashView(Button& picture) {
        binding = new Binding(picture, *this);
        setMinimumSize(420, 210);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setCursor(Qt::PointingHandCursor);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QRectF room = QRectF(rect()).adjusted(12, 12, -12, -8);
        painter.setPen(palette().color(QPalette::WindowText));
        double line = painter.fontMetrics().height();
        painter.drawText(room, Qt::AlignTop | Qt::AlignLeft, QString::fromLatin1(productTitle));
        painter.setPen(roles(palette()).softText);
        painter.drawText(room.adjusted(0, line + 4, 0, 0), Qt::AlignTop | Qt::AlignLeft,
                         QStringLiteral("Sub-gigahertz transmitters, receivers and transceivers"));
        drawSign(painter, room.adjusted(0, line * 2 + 16, 0, 0), roles(palette()).softText,
                 roles(palette()).accent);
    }
    void mouseReleaseEvent(QMouseEvent*) override {
        binding->gesture([this] { binding->element()->click(); });
    }

  private:
    Binding* binding;
};

/// The filter's blocks from left to right, the two ways of getting at the bits below one another.
class DataFilterView : public QWidget {
  public:
    DataFilterView() { setMinimumSize(560, 260); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        double column = width() / 5.0;
        double top = height() * 0.16;
        double low = height() * 0.60;
        QSizeF size(column * 0.78, height() * 0.24);
        auto at = [&](double place, double y) { return QRectF(QPointF(column * place + 10, y), size); };
        QRectF demodulator = at(0, (top + low) / 2);
        QRectF analogue = at(1.35, top);
        QRectF digital = at(1.35, low);
        QRectF comparator = at(2.7, top);
        QRectF recovery = at(2.7, low);
        block(painter, demodulator, "FSK\ndemodulator");
        block(painter, analogue, "Analog RC\nfilter");
        block(painter, digital, "Digital filter");
        block(painter, comparator, "Comparator");
        block(painter, recovery, "Clock\nrecovery");
        arrow(painter, right(demodulator), left(analogue));
        arrow(painter, right(demodulator), left(digital));
        arrow(painter, right(analogue), left(comparator));
        arrow(painter, right(digital), left(recovery));
        output(painter, comparator, "DATA");
        output(painter, recovery, "DATA, DCLK\nor FIFO");
    }

  private:
    static QPointF left(const QRectF& box) { return {box.left(), box.center().y()}; }
    static QPointF right(const QRectF& box) { return {box.right(), box.center().y()}; }

    void block(QPainter& painter, const QRectF& box, const char* text) const {
        painter.setPen(QPen(roles(palette()).edge, 1.2));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(box, 4, 4);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(box, Qt::AlignCenter, QString::fromLatin1(text));
    }

    void arrow(QPainter& painter, QPointF from, QPointF to) const {
        QColor ink = roles(palette()).softText;
        painter.setPen(QPen(ink, 1.4));
        double bend = (from.x() + to.x()) / 2;
        QPainterPath path(from);
        path.lineTo(bend, from.y());
        path.lineTo(bend, to.y());
        path.lineTo(to);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setBrush(ink);
        painter.drawPolygon(QPolygonF({to, to + QPointF(-8, -4), to + QPointF(-8, 4)}));
    }

    void output(QPainter& painter, const QRectF& from, const char* text) const {
        QPointF end = right(from) + QPointF(width() / 5.0 * 0.45, 0);
        arrow(painter, right(from), end);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRectF(end.x() + 6, from.top(), width() - end.x() - 6, from.height()),
                         Qt::AlignVCenter | Qt::AlignLeft, QString::fromLatin1(text));
    }
};

} // namespace

QIcon productIcon() {
    return QIcon(new TileEngine);
}

QWidget* iconPicture(Element& element, int height) {
    auto* view = new IconView(height);
    new Binding(element, *view);
    return view;
}

QWidget* splashPicture(Button& element) {
    return new SplashView(element);
}

QWidget* dataFilterPicture(Element& element) {
    auto* picture = new DataFilterView;
    new Binding(element, *picture);
    return picture;
}

} // namespace zor
