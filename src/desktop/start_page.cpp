// SPDX-License-Identifier: MIT
#include "desktop/start_page.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/pick_row.h"
#include "desktop/views/compose.h"
#include "desktop/views/pictures.h"
#include "desktop/widgets/colours.h"
#include "shell/main_window.h"
#include "shell/start_advice.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr int pageWidth = 920;
/// Height of the room in which the page offers fewer files.
constexpr int smallArea = 560;

constexpr int chipCharacters = 14;
constexpr int fileCharacters = 22;

QLabel* text(const QString& words, bool soft) {
    auto* label = static_cast<QLabel*>(soft ? remark(words) : caption(words));
    label->setWordWrap(soft);
    return label;
}

} // namespace

StartPage::StartPage(MainWindow& mainForm, QWidget& area)
    : QWidget(&area)
    , main(mainForm) {
    setObjectName(QStringLiteral("StartPage"));
    setAccessibleName(QStringLiteral("Start page"));
    hide();
}

void StartPage::setVisible(bool visible) {
    // At the start the splash lies over it, and many a workspace never shows it.
    if (visible && layout() == nullptr) {
        build();
    }
    QWidget::setVisible(visible);
}

void StartPage::build() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * spaceBetween);
    layout->addWidget(header());
    layout->addWidget(boardGroup());
    layout->addWidget(chipGroups());
    offers = across({fileGroup(), demoGroup()});
    layout->addWidget(offers);
    layout->addStretch(1);
    for (Element* element :
         std::initializer_list<Element*>{&main.linkBar.CommStatus, &main.linkBar.LoadBoard,
                                         &main.linkBar.LoadboardList, &main.linkBar.Connect}) {
        subscriptions.push_back(element->changed.subscribe([this] { follow(); }));
    }
    subscriptions.push_back(main.bench().recentFiles.changed.subscribe([this] { showFiles(); }));
    subscriptions.push_back(main.menu.View.changed.subscribe([this] { showFiles(); }));
    follow();
    showFiles();
}

QWidget* StartPage::header() {
    auto* words = new QWidget;
    auto* column = new QVBoxLayout(words);
    column->setContentsMargins(0, 0, 0, 0);
    QLabel* title = text(toQt(main.plainCaption().empty() ? main.title() : main.plainCaption()), false);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.5);
    title->setFont(font);
    column->addWidget(title);
    column->addWidget(text(QStringLiteral("Sub-gigahertz transmitters, receivers and transceivers"), true));
    return words;
}

QWidget* StartPage::boardGroup() {
    auto* box = new QGroupBox(QStringLiteral("Board"));
    auto* row = new QHBoxLayout(box);
    auto* words = new QVBoxLayout;
    headline = text({}, false);
    QFont bold = headline->font();
    bold.setBold(true);
    headline->setFont(bold);
    hint = text({}, true);
    words->addWidget(headline);
    words->addWidget(hint);
    connectButton = new QPushButton(QStringLiteral("&Connect"));
    connectButton->setAutoDefault(false);
    makeStrong(*connectButton);
    QSizePolicy keeps = connectButton->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    connectButton->setSizePolicy(keeps);
    connectButton->setToolTip(QStringLiteral("Searches the preferred ports for a board"));
    connect(connectButton, &QPushButton::clicked, this, [this] { main.linkBar.Connect.click(); });
    row->addLayout(words, 1);
    row->addWidget(connectButton);
    return box;
}

QWidget* StartPage::chipGroups() {
    std::vector<QWidget*> groups;
    for (ChipClass chipClass : {ChipClass::Transmitter, ChipClass::Receiver, ChipClass::Transceiver}) {
        auto* box = new QGroupBox(QString::fromLatin1(titleOf(chipClass)));
        auto* column = new QVBoxLayout(box);
        column->setSpacing(2);
        PickColumns columns{chipCharacters, {}, {}};
        for (const PanelChoice* chip : chipsOf(chipClass)) {
            columns.names << QString::fromLatin1(chip->caption);
            columns.remarks << toQt(bandsOf(*chip));
        }
        for (const PanelChoice* chip : chipsOf(chipClass)) {
            auto* row = new PickRow(QString::fromLatin1(chip->caption), toQt(bandsOf(*chip)), columns);
            row->setToolTip(QStringLiteral("Opens the panel of the %1").arg(row->text()));
            MenuEntry& entry = main.menu.*chip->view;
            connect(row, &QPushButton::clicked, this, [&entry] { entry.click(); });
            auto show = [row, &entry] { row->setEnabled(entry.active()); };
            for (Element* source = &entry; source != nullptr; source = source->container()) {
                subscriptions.push_back(source->changed.subscribe(show));
            }
            show();
            column->addWidget(row);
        }
        column->addStretch(1);
        groups.push_back(box);
    }
    return across(groups);
}

QWidget* StartPage::demoGroup() {
    auto* box = new QGroupBox(QStringLiteral("Without hardware"));
    auto* row = new QHBoxLayout(box);
    auto* words = new QVBoxLayout;
    words->addWidget(
        text(QStringLiteral("Try everything on a simulated board with all chips behind it."), false));
    words->addWidget(text(QStringLiteral("Nothing is sent to a device."), true));
    auto* start = new QPushButton(QStringLiteral("Start the &demo"));
    start->setAutoDefault(false);
    connect(start, &QPushButton::clicked, this, [this] {
        auto action = std::exchange(startDemo, nullptr);
        showOffers();
        if (action && !action()) {
            offerDemo(std::move(action));
        }
    });
    start->setToolTip(QStringLiteral("Starts a simulated board and connects to it"));
    row->addLayout(words, 1);
    row->addWidget(start);
    demo = box;
    demo->hide();
    return box;
}

QWidget* StartPage::fileGroup() {
    auto* box = new QGroupBox(QStringLiteral("Last files"));
    fileRows = new QVBoxLayout(box);
    fileRows->setSpacing(2);
    files = box;
    return box;
}

void StartPage::showFiles() {
    while (QLayoutItem* item = fileRows->takeAt(0)) {
        if (QWidget* row = item->widget()) {
            // A click on it may be what changed the list.
            row->hide();
            row->deleteLater();
        }
        delete item;
    }
    std::vector<LastFile> last =
        lastFiles(main.bench().recentFiles.all(), static_cast<std::size_t>(filesShown));
    PickColumns columns{fileCharacters, {}, {}};
    for (const LastFile& file : last) {
        columns.names << toQt(file.name);
        columns.remarks << toQt(file.chip + "  …");
    }
    for (const LastFile& file : last) {
        auto* row = new PickRow(toQt(file.name), toQt(file.chip + "  " + file.folder), columns);
        row->setToolTip(toQt("Opens the panel of the " + file.chip + " with " + file.path));
        row->setEnabled(main.menu.View.active());
        connect(row, &QPushButton::clicked, this,
                [this, path = file.path] { main.perform([this, path] { main.openFile(path); }); });
        fileRows->addWidget(row);
        // At once: the layout would show it later, and the page be laid out twice.
        row->show();
    }
    fileRows->addStretch(1);
    files->setVisible(!last.empty());
    showOffers();
}

void StartPage::showOffers() {
    if (offers == nullptr) {
        return;
    }
    demo->setVisible(startDemo && startAdvice(main).offersDemo);
    offers->setVisible(!files->isHidden() || !demo->isHidden());
}

void StartPage::offerDemo(std::function<bool()> start) {
    startDemo = std::move(start);
    showOffers();
}

void StartPage::follow() {
    StartAdvice advice = startAdvice(main);
    headline->setText(toQt(advice.headline));
    hint->setText(toQt(advice.hint));
    connectButton->setVisible(advice.offersConnect && main.linkBar.Connect.active());
    showOffers();
}

bool StartPage::event(QEvent* event) {
    bool used = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
        // What came or went wants another size.
        fit();
    }
    return used;
}

void StartPage::fit() {
    if (isHidden()) {
        // Laying it out costs as much as opening the window does, most often behind the splash.
        return;
    }
    const QWidget& area = *parentWidget();
    constexpr int margin = 24;
    // A narrow window needs its width.
    constexpr int sideMargin = 8;
    int rows = area.height() < smallArea ? fewFiles : mostFiles;
    if (std::exchange(filesShown, rows) != rows) {
        showFiles();
    }
    int width = std::min(pageWidth, area.width() - 2 * sideMargin);
    width = std::max(width, minimumSizeHint().width());
    // Texts that take another line in a narrow page make it higher.
    int height = std::max(layout()->totalMinimumHeightForWidth(width),
                          std::min(layout()->totalHeightForWidth(width), area.height() - 2 * margin));
    setGeometry(std::max(0, (area.width() - width) / 2),
                std::max(0, std::min(margin * 2, (area.height() - height) / 2)), width, height);
}

} // namespace zor
