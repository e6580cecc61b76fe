// SPDX-License-Identifier: MIT
// What a panel's settings come to: the part at its foot that is folded away at first.
#include "desktop/views/panel_parts.h"
#include "panels/common/forecast.h"

#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QTimer>

namespace zor {

namespace {

/// Brings what has just been folded out into sight, where the panel is higher than its window's room.
class IntoSight : public QObject {
  public:
    explicit IntoSight(QWidget& part)
        : QObject(&part)
        , shown(part) {
        shown.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            // Behind the layout's own event, which gives it its place.
            QTimer::singleShot(0, this, [this] { scroll(); });
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void scroll() {
        for (QWidget* above = shown.parentWidget(); above != nullptr; above = above->parentWidget()) {
            if (auto* area = qobject_cast<QScrollArea*>(above)) {
                area->ensureWidgetVisible(&shown);
                return;
            }
        }
    }

    QWidget& shown;
};

/// A sentence of up to two lines; its room stays.
QWidget* sentence(Label& element, Tone tone) {
    auto* text = static_cast<QLabel*>(label(element, tone));
    text->setWordWrap(true);
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 34);
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * 2);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return text;
}

QWidget* airGroup(Forecast& f) {
    return group("On the air", {
                                   labelled("Deviation", field(f.ForecastDeviation, 9), "kHz"),
                                   labelled("Data rate", field(f.ForecastRate, 9), "kbps"),
                                   labelled("Bytes", field(f.ForecastBytes, 9)),
                                   labelled("Carson's bandwidth", field(f.CarsonBandwidth, 9), "kHz"),
                                   labelled("99 % bandwidth", field(f.OccupiedBandwidth, 9), "kHz"),
                                   labelled("Time on the air", field(f.TimeOnAir, 9)),
                               });
}

QWidget* fitGroup(Forecast& f) {
    return group("Both ends", {
                                  labelled("Own crystal within", field(f.OwnTolerance, 9), "ppm"),
                                  labelled("Far crystal within", field(f.FarTolerance, 9), "ppm"),
                                  labelled("Receiver bandwidth", field(f.ForecastBandwidth, 9), "kHz"),
                                  labelled("Bandwidth needed", field(f.NeededBandwidth, 9), "kHz"),
                                  labelled("Margin", field(f.BandwidthMargin, 9), "kHz"),
                                  sentence(f.FitVerdict, Tone::Normal),
                              });
}

QWidget* currentGroup(Forecast& f) {
    return group("Current and battery", {
                                            line(labelled("Average", field(f.AverageCurrent, 9), "mA"),
                                                 stretch(), button(f.MeasureCurrents)),
                                            labelled("Battery", field(f.BatteryCapacity, 9), "mAh"),
                                            labelled("Lasts for", field(f.BatteryLife, 15)),
                                            sentence(f.CurrentSpread, Tone::Soft),
                                            sentence(f.CurrentSource, Tone::Soft),
                                        });
}

} // namespace

QWidget* forecastArea(ChipPanel& panel) {
    Forecast& f = panel.forecast();
    QWidget* area =
        plain(f.ForecastArea, {across({airGroup(f), fitGroup(f), currentGroup(f)}), timeline(f.CycleLine)});
    new IntoSight(*area);
    return area;
}

} // namespace zor
