// SPDX-License-Identifier: MIT
#include "desktop/views/panel_parts.h"

#include "desktop/adapters/qt_text.h"
#include "panels/common/forecast.h"

#include <QEvent>
#include <QLabel>
#include <QObject>

#include <utility>

namespace zor {

QWidget* mark(Label& element) {
    return keepRoom(label(element, Tone::Reminder));
}

namespace {

/// Indicators in a row of the status area.
constexpr int lampColumns = 8;

/// Shows a widget while the panel's status area is folded out.
class FoldWatcher : public QObject {
  public:
    FoldWatcher(ChipPanel& panel, QWidget& folded)
        : QObject(&folded)
        , subscription(
              panel.changed.subscribe([&panel, &folded] { folded.setVisible(panel.statusShown()); })) {
        folded.setVisible(panel.statusShown());
    }

  private:
    Subscription subscription;
};

QWidget* wordsColumn(ChipPanel& panel) {
    std::vector<std::pair<QString, QWidget*>> rows;
    for (ControlWord* control : panel.words()) {
        rows.emplace_back(toQt(control->caption()), word(*control));
    }
    QWidget* column = wordsGroup("Control words", rows);
    addContextEntries(*column, {&panel.SetFromHeader, &panel.CopyWords, &panel.CopyArray});
    for (std::size_t place = 0; place < rows.size(); ++place) {
        // A word's own menu has what the column's has.
        addContextEntries(*rows[place].second, {&panel.setFromWord(place), &panel.SetFromHeader,
                                                &panel.CopyWords, &panel.CopyArray});
    }
    return column;
}

QWidget* actionsGroup(ChipPanel& panel) {
    return group("Chip", {
                             line(mark(panel.LabelUpdate), stretch(), strongButton(panel.Update)),
                             mark(panel.LabelCalibration),
                             button(panel.CalibratePLL),
                             across({button(panel.ConfLoad), button(panel.ConfSave)}),
                         });
}

QWidget* lamps(const ChipPanel& panel) {
    std::vector<QWidget*> all;
    for (int index = 1; index <= panel.statusCount(); ++index) {
        all.push_back(lamp(panel.status(index)));
    }
    return grid(lampColumns, std::move(all));
}

QWidget* statusGroup(ChipPanel& panel, std::vector<Cell> answers) {
    answers.insert(answers.begin(), Cell(lamps(panel)));
    answers.push_back(stretch());
    answers.emplace_back(lampSample(panel.OnColor, true, "set"));
    answers.emplace_back(lampSample(panel.OffColor, false, "clear"));
    QWidget* box = group("Status", {Line(std::move(answers))});
    new FoldWatcher(panel, *box);
    return box;
}

} // namespace

namespace {

/// While a reason is on the screen, what it stands beside and is disabled says it to who listens, too.
class ReasonTeller : public QObject {
  public:
    explicit ReasonTeller(QLabel& reasonLabel)
        : QObject(&reasonLabel)
        , label(reasonLabel) {
        label.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show || event->type() == QEvent::ShowToParent ||
            event->type() == QEvent::HideToParent) {
            tell();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void tell() {
        if (label.parentWidget() == nullptr) {
            return;
        }
        for (Binding* beside : label.parentWidget()->findChildren<Binding*>()) {
            beside->setReason(label.isHidden() ? QString() : label.text());
        }
    }

    QLabel& label;
};

} // namespace

QWidget* reason(Label& element) {
    QWidget* text = label(element, Tone::Soft);
    auto* inner = static_cast<QLabel*>(text);
    inner->setWordWrap(true);
    inner->setMinimumWidth(inner->fontMetrics().averageCharWidth() * 36);
    new ReasonTeller(*inner);
    return keepRoom(text);
}

QWidget* formula(Label& text, Label& exponent) {
    auto* base = static_cast<QLabel*>(label(text, Tone::Soft));
    auto* raised = static_cast<QLabel*>(label(exponent, Tone::Soft));
    QFont small = raised->font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    raised->setFont(small);
    raised->setParent(base);
    QString beforeGap = base->text().left(base->text().indexOf(QLatin1String("  ")));
    raised->move(base->fontMetrics().horizontalAdvance(beforeGap) + 1, 0);
    base->setContentsMargins(0, raised->fontMetrics().ascent() / 3, 0, 0);
    return base;
}

QWidget* crystalGroup(ChipPanel& p) {
    return group("Crystal", {
                                line(option(p.StdCrystal), option(p.NonStdCrystal), stretch()),
                                line(labelled("Frequency", field(p.Crystalfreq), "MHz"),
                                     labelled("Load", list(p.Cxtal, 7))),
                            });
}

QWidget* frequencyGroup(ChipPanel& p) {
    std::vector<Cell> bands;
    for (Band which : p.traits().offeredBands) {
        bands.emplace_back(option(*p.band(which)));
    }
    bands.push_back(stretch());
    return group("Band and frequency", {
                                           Line(std::move(bands)),
                                           line(labelled("Centre", field(p.FreqCenter, 10), "MHz"),
                                                labelled("Step", field(p.FreqStep, 6), "kHz")),
                                       });
}

QWidget* supplyGroup(ChipPanel& p) {
    return group("Supply", {line(labelled("Voltage", field(p.PowerSupply, 6), "V"), stretch(),
                                 button(p.PB_PowerSupply))});
}

QWidget* wakeUpGroup(ChipPanel& p, Lines more) {
    Lines lines = {
        line(labelled("M", field(p.WKUPM, 6)), labelled("R", field(p.WKUPR, 4)),
             labelled("Time", field(p.WKUPTIME, 8)), label(p.Label8, Tone::Soft)),
    };
    lines.insert(lines.end(), more.begin(), more.end());
    lines.emplace_back(reason(p.Label39));
    return group("Wake-up timer", std::move(lines));
}

QWidget* lowBatteryGroup(ChipPanel& p, Lines more) {
    Lines lines = {
        line(labelled("T", field(p.LBD, 4)), labelled("Threshold", field(p.LBDV, 6), "V")),
    };
    lines.insert(lines.end(), more.begin(), more.end());
    lines.emplace_back(reason(p.Label38));
    return group("Low battery detector", std::move(lines));
}

QWidget* panelWindow(ChipPanel& p, QWidget* settings, std::vector<Cell> answers) {
    return window({
        across({column({settings, statusGroup(p, std::move(answers))}),
                column({wordsColumn(p), actionsGroup(p)})},
               0),
        stretch(),
        line(statusLine(p.Statusline), lamp(p.IRQ), button(p.IRQpoll), button(p.ReadStatus),
             button(p.ShowStatus), button(p.forecast().ShowForecast)),
        forecastArea(p),
    });
}

} // namespace zor
