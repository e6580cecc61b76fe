// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_dialogs.h"

#include "desktop/adapters/qt_text.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollArea>
#include <QSpacerItem>

#include <algorithm>

namespace zor {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::None:
        return QMessageBox::NoIcon;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

/// A text of more lines than this scrolls: a box must not be higher than the screen.
constexpr int mostLines = 24;

void makeScroll(QMessageBox& window) {
    auto* label = window.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr || window.layout() == nullptr) {
        return;
    }
    auto* room = new QScrollArea;
    room->setFrameShape(QFrame::NoFrame);
    delete window.layout()->replaceWidget(label, room);
    room->setWidget(label);
    room->setWidgetResizable(true);
    QFontMetrics metrics(window.font());
    room->setMinimumSize(label->sizeHint().width() + 2 * metrics.height(), metrics.lineSpacing() * mostLines);
}

/// A short text must not leave the title cut: the frame's own font and buttons take room beside it.
void makeRoomForTitle(QMessageBox& window) {
    auto* table = qobject_cast<QGridLayout*>(window.layout());
    if (table == nullptr) {
        return;
    }
    QFont bold = window.font();
    bold.setBold(true);
    constexpr int frameButtons = 140;
    int width = QFontMetrics(bold).horizontalAdvance(window.windowTitle()) + frameButtons;
    table->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Minimum), table->rowCount(),
                   0, 1, table->columnCount());
}

} // namespace

Answer QtDialogs::show(const Box& box) {
    QMessageBox window(QApplication::activeWindow());
    window.setObjectName(QStringLiteral("box"));
    window.setWindowTitle(toQt(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(linesToQt(box.text));
    window.setIcon(iconOf(box.icon));
    if (std::ranges::count(box.text, '\n') > mostLines) {
        makeScroll(window);
    }
    makeRoomForTitle(window);
    if (box.buttons == BoxButtons::YesNo) {
        window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        window.setDefaultButton(QMessageBox::No);
        window.setEscapeButton(QMessageBox::No);
        return window.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
    }
    window.setStandardButtons(QMessageBox::Ok);
    window.exec();
    return Answer::Ok;
}

FileChoice QtDialogs::chooseFile(const FileRequest& request) {
    QFileDialog window(QApplication::activeWindow());
    window.setObjectName(QStringLiteral("fileDialog"));
    window.setWindowTitle(toQt(request.title));
    bool save = request.mode == FileRequest::Mode::Save;
    window.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    window.setOption(QFileDialog::HideNameFilterDetails);
    window.setOption(QFileDialog::DontConfirmOverwrite, !request.asksToReplace);
    window.setNameFilters(fileFilters(request.filter));
    window.setDefaultSuffix(toQt(request.defaultExtension));
    std::error_code missing;
    if (std::filesystem::is_directory(request.folder, missing)) {
        auto folder = std::filesystem::weakly_canonical(request.folder, missing);
        window.setDirectory(toQt(folder.string()));
    }
    window.selectFile(toQt(request.proposal.empty() ? request.startName : request.proposal));
    bool accepted = window.exec() == QDialog::Accepted && !window.selectedFiles().isEmpty();
    return fileChoice(request, accepted ? fromQt(window.selectedFiles().constFirst()) : std::string());
}

QStringList fileFilters(const std::string& filter) {
    QStringList parts = toQt(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString label = parts[i].trimmed();
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // The toolkit reads the pattern from the last brackets and shows what stands before them: the whole
        // label, whatever pattern that names itself.
        filters += label + QLatin1String(" (") + patterns + QLatin1Char(')');
    }
    return filters;
}

FileChoice fileChoice(const FileRequest& request, const std::string& accepted) {
    FileChoice choice;
    std::string name = std::filesystem::path(accepted).filename().string();
    choice.name = accepted.empty() || name == request.startName ? request.startName : accepted;
    choice.extensionDiffers = extensionDiffers(choice.name, request.defaultExtension);
    return choice;
}

} // namespace zor
