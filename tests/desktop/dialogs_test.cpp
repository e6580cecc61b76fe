// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
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

} // namespace

TEST(FileFilters, PairsOfLabelAndPatternBecomeFilters) {
    EXPECT_EQ(fileFilters("Text files (*.txt) | *.txt |All files (*.*)| *.*"),
              (QStringList{"Text files (*.txt)", "All files (*.*)"}));
    EXPECT_EQ(fileFilters("Documentation files (*.PDF)|*.pdf|All files (*.*)|*.*"),
              (QStringList{"Documentation files (*.pdf)", "All files (*.*)"}));
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

TEST(FileDialogs, OfferTheFiltersAndTheStartNameAndCancelGivesTheLatterBack) {
    QtDialogs dialogs;
    QTimer::singleShot(0, [] {
        auto* window = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->windowTitle(), "Save Script File");
        EXPECT_EQ(window->defaultSuffix(), "txt");
        EXPECT_EQ(window->acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(window->nameFilters(), (QStringList{"Text files (*.txt)", "All files (*.*)"}));
        window->reject();
    });
    FileChoice choice = dialogs.chooseFile({.mode = FileRequest::Mode::Save,
                                            .title = "Save Script File",
                                            .folder = "/no/such/folder",
                                            .startName = "*.txt",
                                            .filter = "Text files (*.txt) | *.txt |All files (*.*)| *.*",
                                            .defaultExtension = "txt"});
    EXPECT_EQ(choice.name, "*.txt");
}

} // namespace zor
