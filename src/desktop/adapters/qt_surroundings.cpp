// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_surroundings.h"

#include "desktop/adapters/qt_text.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace zor {

bool QtSurroundings::openDocument(const std::filesystem::path& document) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(document.string())));
}

bool QtSurroundings::startSystemInformation() {
    // The desktops' own tools, in no order of merit.
    for (const char* tool : {"kinfocenter", "hardinfo2", "hardinfo", "mate-system-monitor",
                             "gnome-system-monitor", "xfce4-taskmanager"}) {
        QString path = QStandardPaths::findExecutable(QLatin1String(tool));
        if (!path.isEmpty() && QProcess::startDetached(path, {})) {
            return true;
        }
    }
    return false;
}

void QtSurroundings::copyText(const std::string& text) {
    QGuiApplication::clipboard()->setText(linesToQt(text));
}

} // namespace zor
