// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace zor {

namespace {

/// Does something with the box that will be on the screen by then.
void whenShown(const std::function<void(QMessageBox&)>& action) {
    QTimer::singleShot(0, [action] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        action(*box);
    });
}

void whenFileDialogShown(const std::function<void(QFileDialog&)>& action) {
    QTimer::singleShot(0, [action] {
        auto* window = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        action(*window);
    });
}

FileRequest configurationRequest(FileRequest::Mode mode) {
    return {.mode = mode,
            .title = "KT1102 Configuration File",
            .folder = "/no/such/folder",
            .startName = "*.tc2",
            .filter = "KT1101 Configuration files (*.tc1)|*.tc2|All files (*.*)|*.*",
            .defaultExtension = "tc2"};
}

} // namespace

TEST(QtDialogs, ABoxOfMoreLinesThanAScreenScrolls) {
    std::string report;
    for (int line = 0; line < 3000; ++line) {
        report += "difference in pos.: " + std::to_string(line) + "\r\n";
    }
    bool looked = false;
    whenShown([&](QMessageBox& box) {
        looked = true;
        EXPECT_LT(box.height(), 700);
        EXPECT_EQ(box.text().count(QLatin1Char('\n')), 3000);
        EXPECT_NE(box.findChild<QScrollArea*>(), nullptr);
        box.accept();
    });
    QtDialogs dialogs;
    EXPECT_EQ(dialogs.show({.text = report}), Answer::Ok);
    EXPECT_TRUE(looked);
}

TEST(FileFilters, PairsOfLabelAndPatternBecomeFilters) {
    EXPECT_EQ(fileFilters("Text files (*.txt) | *.txt |All files (*.*)| *.*"),
              (QStringList{"Text files (*.txt) (*.txt)", "All files (*.*) (*.*)"}));
    EXPECT_EQ(fileFilters("Documentation files (*.PDF)|*.pdf|All files (*.*)|*.*"),
              (QStringList{"Documentation files (*.PDF) (*.pdf)", "All files (*.*) (*.*)"}));
}

TEST(FileFilters, KeepALabelThatNamesAnotherPatternThanItsOwn) {
    EXPECT_EQ(fileFilters("KT1101 Configuration files (*.tc1)|*.tc2|All files (*.*)|*.*"),
              (QStringList{"KT1101 Configuration files (*.tc1) (*.tc2)", "All files (*.*) (*.*)"}));
}

TEST(FileChoice, ACancelledDialogGivesTheStartNameBack) {
    FileRequest request{.title = "Load", .startName = "*.tc", .defaultExtension = "tc"};
    FileChoice choice = fileChoice(request, "");
    EXPECT_EQ(choice.name, "*.tc");
    EXPECT_FALSE(choice.extensionDiffers);
}

TEST(FileChoice, APatternLeftInTheNameCountsAsCancelled) {
    FileRequest request{.title = "Save", .startName = "*.tc", .defaultExtension = "tc"};
    EXPECT_EQ(fileChoice(request, "/home/bench/*.tc").name, "*.tc");
}

TEST(FileChoice, AnotherExtensionIsTold) {
    FileRequest request{.title = "Load", .startName = "*.tc", .defaultExtension = "tc"};
    EXPECT_TRUE(fileChoice(request, "/home/bench/a.txt").extensionDiffers);
    EXPECT_FALSE(fileChoice(request, "/home/bench/a.TC").extensionDiffers);
    EXPECT_FALSE(fileChoice(request, "/home/bench/a").extensionDiffers);
    EXPECT_EQ(fileChoice(request, "/home/bench/a.txt").name, "/home/bench/a.txt");
}

TEST(Boxes, TheSafeAnswerIsTheDefaultAndEscapeGivesIt) {
    QtDialogs dialogs;
    Box question{.text = "Replace it?", .title = "File save error", .buttons = BoxButtons::YesNo};
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.standardButton(box.defaultButton()), QMessageBox::No);
        box.reject();
    });
    EXPECT_EQ(dialogs.show(question), Answer::No);
    whenShown([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_EQ(dialogs.show(question), Answer::Yes);
}

TEST(Boxes, ShowTheTextWithItsLineBreaksAndNoMarkup) {
    QtDialogs dialogs;
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Error occured:57,<b>Device</b>\nPlease try again!");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Port searching error");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        box.accept();
    });
    EXPECT_EQ(dialogs.show({.text = "Error occured:57,<b>Device</b>\r\nPlease try again!",
                            .title = "Port searching error",
                            .icon = BoxIcon::Warning}),
              Answer::Ok);
}

TEST(Boxes, BearTheirSigns) {
    struct Row {
        BoxIcon icon;
        QMessageBox::Icon shown;
    };
    for (const Row& row :
         {Row{BoxIcon::None, QMessageBox::NoIcon}, Row{BoxIcon::Information, QMessageBox::Information},
          Row{BoxIcon::Warning, QMessageBox::Warning}, Row{BoxIcon::Critical, QMessageBox::Critical},
          Row{BoxIcon::Question, QMessageBox::Question}}) {
        QtDialogs dialogs;
        whenShown([&row](QMessageBox& box) {
            EXPECT_EQ(box.icon(), row.shown);
            box.accept();
        });
        dialogs.show({.text = "x", .icon = row.icon});
    }
}

TEST(FileDialogs, OfferTheLabelsAsTheyAreAndTheStartNameInTheirNameField) {
    for (auto mode : {FileRequest::Mode::Save, FileRequest::Mode::Load}) {
        bool save = mode == FileRequest::Mode::Save;
        SCOPED_TRACE(save ? "save" : "load");
        QtDialogs dialogs;
        whenFileDialogShown([save](QFileDialog& window) {
            EXPECT_EQ(window.windowTitle(), "KT1102 Configuration File");
            EXPECT_EQ(window.defaultSuffix(), "tc2");
            EXPECT_EQ(window.acceptMode(), save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
            EXPECT_EQ(window.findChild<QLineEdit*>("fileNameEdit")->text(), "*.tc2");
            auto* types = window.findChild<QComboBox*>("fileTypeCombo");
            EXPECT_EQ(types->itemText(0), "KT1101 Configuration files (*.tc1)");
            EXPECT_EQ(types->itemText(1), "All files (*.*)");
            window.reject();
        });
        EXPECT_EQ(dialogs.chooseFile(configurationRequest(mode)).name, "*.tc2");
    }
}

TEST(FileDialogs, OfferTheFilesOfThePatternBesideTheLabel) {
    QTemporaryDir folder;
    for (const char* name : {"a.tc1", "b.tc2"}) {
        QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    }
    QtDialogs dialogs;
    FileRequest request = configurationRequest(FileRequest::Mode::Load);
    request.folder = folder.path().toStdString();
    whenFileDialogShown([](QFileDialog& window) {
        auto* files = window.findChild<QListView*>("listView");
        ASSERT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount(files->rootIndex()) > 0; }));
        ASSERT_EQ(files->model()->rowCount(files->rootIndex()), 1);
        EXPECT_EQ(files->model()->index(0, 0, files->rootIndex()).data(), "b.tc2");
        window.findChild<QLineEdit*>("fileNameEdit")->setText("b.tc2");
        window.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open)->click();
    });
    EXPECT_EQ(dialogs.chooseFile(request).name, (std::filesystem::path(request.folder) / "b.tc2").string());
}

TEST(FileDialogs, TakeTheirButtonPressedOnThePatternForCancelling) {
    QtDialogs dialogs;
    whenFileDialogShown([](QFileDialog& window) {
        window.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Save)->click();
        EXPECT_FALSE(window.isVisible());
        // A failing test shall not stand there for ever.
        window.reject();
    });
    EXPECT_EQ(dialogs.chooseFile(configurationRequest(FileRequest::Mode::Save)).name, "*.tc2");
    whenFileDialogShown([](QFileDialog& window) {
        // There is no file of that name to load.
        EXPECT_FALSE(
            window.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open)->isEnabled());
        window.reject();
    });
    EXPECT_EQ(dialogs.chooseFile(configurationRequest(FileRequest::Mode::Load)).name, "*.tc2");
}

} // namespace zor
