// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/views/compose.h"
#include "desktop/views/pictures.h"
#include "desktop/views/views.h"
#include "shell/about.h"

#include <QLabel>

namespace zor {

namespace {

/// A caption whose lines have two halves with a tabulator between them, as a table.
QWidget* tableLabel(Label& element) {
    auto* table = new QLabel;
    table->setTextFormat(Qt::RichText);
    auto* binding = new Binding(element, *table);
    binding->onDraw([binding, table] {
        QString rows;
        for (const QString& line : linesToQt(binding->element()->caption()).split(QLatin1Char('\n'))) {
            QStringList halves = line.toHtmlEscaped().split(QLatin1Char('\t'));
            rows += QStringLiteral("<tr><td style='padding-right:24px'>%1</td><td>%2</td></tr>")
                        .arg(halves.value(0), halves.value(1));
        }
        table->setText(QStringLiteral("<table cellpadding='2'>%1</table>").arg(rows));
    });
    return table;
}

} // namespace

QWidget* splashView(Form& form) {
    auto& s = static_cast<Splash&>(form);
    return window({splashPicture(s.Picture1), line(stretch(), label(s.lblVersion, Tone::Soft))}, 0);
}

QWidget* aboutView(Form& form) {
    auto& a = static_cast<About&>(form);
    auto* description = label(a.lblDescription);
    static_cast<QLabel*>(description)->setWordWrap(true);
    return window({
        across({column({iconPicture(a.picIcon, 64)}),
                column({label(a.lblTitle, Tone::Title), label(a.lblVersion, Tone::Soft), description})},
               1),
        remark("Free software under the MIT licence; its file LICENSE tells the whole of it."),
        stretch(),
        line(stretch(), button(a.cmdSysInfo), button(a.cmdOK)),
    });
}

QWidget* productsView(Form& form) {
    auto& p = static_cast<Products&>(form);
    return window({
        label(p.lblProducts, Tone::Title),
        tableLabel(p.lblList),
        stretch(),
        line(stretch(), button(p.cmdOK)),
    });
}

QWidget* dataFilterHelpView(Form& form) {
    auto& h = static_cast<DataFilterHelp&>(form);
    return window({dataFilterPicture(h.Picture1), line(stretch(), button(h.cmdClose))}, 0);
}

} // namespace zor
