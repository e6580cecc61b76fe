// SPDX-License-Identifier: MIT
#include "desktop/widgets/instrument_style.h"
#include "virtual/temporary_place.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTimer>

namespace {

/// A program that was left has told the toolkit so, and no box of the tests behind it would wait for its
/// answer. Going once through the application's own loop takes that back.
class ForgetsTheEnd : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QApplication::exec();
    }
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The fonts that the build found, and no others that this machine happens to have.
    qputenv("FONTCONFIG_FILE", ZOR_TEST_FONTS);
    qputenv("TMPDIR", zor::testing::temporaryPlace().c_str());
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle(new zor::InstrumentStyle);
    testing::UnitTest::GetInstance()->listeners().Append(new ForgetsTheEnd);
    return RUN_ALL_TESTS();
}
