// SPDX-License-Identifier: MIT
#include "desktop/demo_tour.h"

#include "desktop/adapters/qt_text.h"
#include "elements/button.h"
#include "elements/menu.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "panels/common/chip_panel.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QTemporaryFile>

#include <algorithm>
#include <set>

namespace zor {

using namespace std::chrono_literals;

namespace {

/// Entries that open no window of ours (dialogs of the system, files, the end of the program), and those
/// whose windows have a stop of their own.
const std::set<std::string> notVisited{
    "mnuFileExit",     "mnuSaveWorkspace", "mnuViewToolbar", "mnuHelpBrowseDoc", "mnuHelpBrowseEx",
    "mnuHelpSWguide",  "mnuHelp1100DS",    "mnuHelp2100DS",  "mnutoolsTerminal", "mnutoolsEEPROM",
    "mnutoolsWireLog", "mnutoolsSniffer",  "mnuFileRecord",  "mnuFilePlay",      "mnuViewTx0"};

} // namespace

DemoTour::DemoTour(MainWindow& mainForm, DesktopWindow& mainWindow, const QDir& pictures, QString filePrefix)
    : main(mainForm)
    , window(mainWindow)
    , folder(pictures)
    , prefix(std::move(filePrefix))
    , boxCloser(mainForm.loop(), [this] { closeBoxes(); }) {}

bool DemoTour::canWriteTo(const QDir& folder) {
    QTemporaryFile trial(folder.filePath(QStringLiteral("XXXXXX.png")));
    return folder.mkpath(QStringLiteral(".")) && trial.open();
}

void DemoTour::play() {
    boxCloser.start(200ms);
    settle(300ms);
    QPixmap start = look();
    for (Form* form : openForms()) {
        form->userClose();
    }
    waitForBoard();
    if (main.menu.mnuload.enabled()) {
        visitLoader();
    } else {
        keep(start, QStringLiteral("start"));
        visitEverything();
    }
    boxCloser.stop();
    main.userClose();
}

void DemoTour::visitEverything() {
    takePicture(QStringLiteral("connected"));
    visitTerminal();
    visitFirstSteps();
    visitWireLog();
    visitHeaderGenerator();
    visitCurrents();
    visitContentEditor();
    visitEeprom();
    visitLinks();
    visitRegisters();
    visitPlay();
    for (MenuEntry* menu : {&main.menu.File, &main.menu.View, &main.menu.Tools, &main.menu.Help}) {
        visit(*menu);
    }
    visitCompare();
}

void DemoTour::settle(std::chrono::milliseconds time) {
    bool over = false;
    main.loop().startTimer(time, EventLoop::Repeat::Once, [&over] { over = true; });
    main.loop().runUntil([&over] { return over; });
}

void DemoTour::waitForBoard() {
    main.loop().runUntil(
        [this] { return main.bench().link.CommState() == 0 && !main.linkBar.Connect.enabled(); });
    // A loader refuses what a board is set up with.
    main.loop().runUntil(
        [this] { return main.linkBar.CommStatus.text() == "Comm. OK" || main.menu.mnuload.enabled(); });
    settle(500ms);
}

QPixmap DemoTour::look() const {
    if (QApplication::activeModalWidget() == nullptr) {
        // A box that was answered leaves no window active where there is no window manager.
        window.activateWindow();
        QCoreApplication::processEvents();
    }
    QPixmap picture = window.grab();
    // A dialog is a window of its own; on the picture it lies where the user sees it.
    for (QWidget* dialog : QApplication::topLevelWidgets()) {
        if (dialog != &window && dialog->isVisible() && dialog->isModal()) {
            QPainter painter(&picture);
            QRect place(window.mapFromGlobal(dialog->pos()), dialog->size());
            painter.drawPixmap(place.topLeft(), dialog->grab());
            painter.setPen(Qt::gray);
            painter.drawRect(place.adjusted(-1, -1, 0, 0));
        }
    }
    return picture;
}

void DemoTour::takePicture(const QString& name) {
    keep(look(), name);
}

void DemoTour::keep(const QPixmap& picture, const QString& name) {
    if (!picture.save(folder.filePath(prefix + name + QStringLiteral(".png")))) {
        hasFailed = true;
    }
}

std::vector<Form*> DemoTour::openForms() const {
    std::vector<Form*> open;
    for (Form* form : main.desk().forms()) {
        if (form->isOpen() && form != &main) {
            open.push_back(form);
        }
    }
    return open;
}

void DemoTour::visit(MenuEntry& entry) {
    for (MenuEntry* child : entry.children()) {
        visit(*child);
    }
    bool file = entry.name().starts_with("mnuRecent");
    if (!entry.children().empty() || file || notVisited.contains(entry.name()) || !entry.usable()) {
        return;
    }
    auto before = openForms();
    entry.click();
    for (Form* form : openForms()) {
        if (std::find(before.begin(), before.end(), form) == before.end()) {
            visitForm(*form);
            return;
        }
    }
}

void DemoTour::visitFirstSteps() {
    main.menu.mnuViewTx0.click();
    ChipPanel& panel = *main.bench().openPanel();
    panel.FreqCenter.type("315");
    settle(150ms);
    takePicture(QStringLiteral("OpalV2"));
    panel.FreqCenter.type("316");
    settle(150ms);
    takePicture(QStringLiteral("step-back"));
    panel.FreqCenter.type("315");
    panel.userClose();
    settle(50ms);
}

void DemoTour::visitTerminal() {
    main.menu.mnutoolsTerminal.click();
    Form* terminal = main.desk().find("Terminal");
    for (char key : std::string("i\r")) {
        terminal->find("Text1")->press(key);
    }
    settle(900ms);
    static_cast<TickBox*>(terminal->find("En_ScriptWindow"))->tick(true);
    terminal->find("Script")->edit("Z3\r\nQ\r\nRS\r\n");
    terminal->find("SendScript")->click();
    settle(200ms);
    visitForm(*terminal);
}

/// Writes the beacon that the content editor handed over into the device, verifies it, and finds the two
/// bytes that are changed then.
void DemoTour::visitEeprom() {
    Form& programmer = *main.desk().find("eeprom");
    static_cast<TickBox*>(programmer.find("EditorWindow"))->tick(true);
    auto* verifyAfter = static_cast<TickBox*>(programmer.find("VerifyAfterProgramming"));
    verifyAfter->tick(true);
    programmer.find("Prog")->click();
    waitForEeprom(programmer);
    verifyAfter->tick(false);
    // "Ortolan" stands behind the words, the transmit command's head and the preamble.
    constexpr std::size_t changedByte = 24;
    constexpr std::size_t digitsOfByte = 3;
    std::string image = programmer.find("WorkSheet")->text();
    image.replace(digitsOfByte * changedByte, 2, "75");
    image.replace(digitsOfByte * (changedByte + 3), 2, "6D");
    programmer.find("WorkSheet")->edit(image);
    programmer.find("Verify")->click();
    settle(3500ms);
    takePicture(QStringLiteral("eeprom-running"));
    waitForEeprom(programmer);
    // Onto one of the two, whose address and bytes are told then.
    static_cast<TextField*>(programmer.find("WorkSheet"))->placeCaret(digitsOfByte * changedByte);
    visitForm(programmer);
}

void DemoTour::waitForEeprom(const Form& programmer) {
    main.loop().runUntil([&programmer] { return programmer.find("Read")->enabled(); });
    // The box that tells the end is closed, and its picture taken, by then.
    settle(500ms);
}

void DemoTour::visitHeaderGenerator() {
    // Its menu is brought out by a gesture; what it shows is a panel's.
    main.menu.mnuViewTopazTRx.click();
    main.perform([this] { main.bench().tools.open(Tool::Frm_GenHeader); });
    visitForm(*main.bench().tools.find(Tool::Frm_GenHeader));
    main.menu.mnuViewTopazTRx.click();
}

void DemoTour::visitForm(Form& form) {
    settle(150ms);
    QString name = toQt(form.name());
    if (auto* panel = dynamic_cast<ChipPanel*>(&form)) {
        workOn(*panel);
        if (main.bench().IsBijakuModeSet()) {
            name += QLatin1Char('B');
        }
    }
    takePicture(name);
    form.userClose();
    settle(50ms);
}

void DemoTour::workOn(ChipPanel& panel) {
    panel.ShowStatus.click();
    if (Option* band = panel.band(Band::Band868); band != nullptr && band->visible()) {
        band->click();
        panel.FreqCenter.type("868.3");
    } else {
        panel.FreqCenter.type("315");
    }
    if (Element* power = panel.find("OutputPower")) {
        power->chooseText("-3 dB");
    }
    // A transceiver listens, as the guide's first packet wants it.
    if (panel.find("chb_er") != nullptr) {
        panel.find("chb_er")->tick(true);
        panel.find("EnRxFIFO")->tick(true);
    }
    panel.Update.click();
    panel.CalibratePLL.click();
    panel.ReadStatus.click();
    settle(800ms);
    panel.IRQpoll.click();
    settle(500ms);
    panel.PB_PowerSupply.click();
    if (Form* supply = main.desk().find("frm_PowerSupply")) {
        supply->find("PB_Current")->click();
        supply->userClose();
    }
    // One setting that has not been sent yet: its word is marked.
    panel.Cxtal.chooseText("10.0 pF");
    settle(100ms);
}

void DemoTour::closeBoxes() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        takePicture(QStringLiteral("box"));
        box->accept();
    }
}

} // namespace zor
