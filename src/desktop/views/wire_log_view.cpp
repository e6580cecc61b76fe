// SPDX-License-Identifier: MIT
#include "desktop/dock_window.h"
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/wire_log.h"

#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <array>

namespace zor {

namespace {

/// The newest row stays in sight until the user scrolls up; scrolled down to the end it follows again.
void followNewest(QWidget& table, WireLog& log) {
    auto* view = qobject_cast<QTableView*>(&table);
    if (view == nullptr) {
        view = table.findChild<QTableView*>();
    }
    QScrollBar* bar = view->verticalScrollBar();
    QObject::connect(bar, &QScrollBar::rangeChanged, view, [bar, &log](int, int greatest) {
        if (log.Follow.ticked()) {
            bar->setValue(greatest);
        }
    });
    QObject::connect(bar, &QScrollBar::actionTriggered, view,
                     [bar, &log] { log.Follow.tick(bar->sliderPosition() == bar->maximum()); });
}

constexpr std::array<Qt::DockWidgetArea, 3> areas = {Qt::NoDockWidgetArea, Qt::BottomDockWidgetArea,
                                                     Qt::RightDockWidgetArea};

std::optional<Qt::DockWidgetArea> wantedArea(const Form& form) {
    int position = static_cast<const WireLog&>(form).Dock.position();
    return position <= 0 ? std::nullopt : std::optional(areas.at(static_cast<std::size_t>(position)));
}

void areaChanged(Form& form, Qt::DockWidgetArea area) {
    auto entry = std::find(areas.begin(), areas.end(), area);
    static_cast<WireLog&>(form).Dock.choosePosition(static_cast<int>(entry - areas.begin()));
}

} // namespace

const Docking wireLogDocking{wantedArea, areaChanged};

QWidget* wireLogView(Form& form) {
    auto& w = static_cast<WireLog&>(form);
    QWidget* table = gridView(w.Log, 12);
    followNewest(*table, w);
    return window(
        {line(labelled(w.LabelFilter, textField(w.Filter, 20)), labelled(w.LabelResult, list(w.Result, 12)),
              tick(w.Pause), tick(w.Follow), stretch(), labelled(w.LabelDock, list(w.Dock, 7))),
         table, line(label(w.Count, Tone::Soft), stretch(), button(w.Clear), button(w.Copy), button(w.Save))},
        1);
}

} // namespace zor
