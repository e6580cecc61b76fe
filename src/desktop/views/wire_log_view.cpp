// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "utilities/wire_log.h"

#include <QScrollBar>
#include <QTableView>

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

} // namespace

QWidget* wireLogView(Form& form) {
    auto& w = static_cast<WireLog&>(form);
    QWidget* table = gridView(w.Log, 12);
    followNewest(*table, w);
    return window(
        {line(labelled(w.LabelFilter, field(w.Filter, 20)), labelled(w.LabelResult, list(w.Result, 12)),
              tick(w.Pause), tick(w.Follow), stretch()),
         table, line(label(w.Count, Tone::Soft), stretch(), button(w.Clear), button(w.Copy), button(w.Save))},
        1);
}

} // namespace zor
