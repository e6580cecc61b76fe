// SPDX-License-Identifier: MIT
#include "desktop/widgets/instrument_style.h"
#include "virtual/temporary_place.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The fonts that the build found, and no others that this machine happens to have.
    qputenv("FONTCONFIG_FILE", ZOR_TEST_FONTS);
    qputenv("TMPDIR", zor::testing::temporaryPlace().c_str());
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    // A test that closes its last window would ask this program to end, and no later box would wait for its
    // answer.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new zor::InstrumentStyle);
    return RUN_ALL_TESTS();
}
