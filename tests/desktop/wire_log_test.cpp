// SPDX-License-Identifier: MIT
#include "program.h"

#include "link/connect.h"
#include "utilities/wire_log.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableView>
#include <QTimer>

namespace zor {

TEST(WireLogWindow, AMillionCharactersLeaveItAliveAndBounded) {
    Program program;
    program.start();
    program.main.perform([&] { program.main.bench().tools.open(Tool::frm_WireLog); });
    auto& log = dynamic_cast<WireLog&>(*program.desk.find("frm_WireLog"));
    log.Clear.click();
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&beats] { ++beats; });
    heart.start(1);
    std::string line = "RX 16: 00 01 02 03 04 05 06 07 08\r\n";
    std::size_t come = 0;
    int parts = 0;
    // As a driver hands it on: character by character, some thousand at a time.
    while (come < 1'000'000) {
        int before = beats;
        for (int i = 0; i < 4096; ++i) {
            std::string_view character(&line[come++ % line.size()], 1);
            program.main.bench().connect->tap.bytes.emit(
                {WireBytes::Port::Working, 1, WireBytes::Direction::FromBoard, character, false});
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return beats > before; }, 5000)) << "after " << come;
        ++parts;
    }
    EXPECT_EQ(parts, 245);
    auto lines = static_cast<std::size_t>(come / line.size());
    ASSERT_GT(lines, WireRecorder::capacity);
    ASSERT_TRUE(QTest::qWaitFor([&] { return log.Log.rowCount() == WireRecorder::capacity; }, 10'000));
    EXPECT_EQ(log.Count.caption(), "20000 of 20000 lines; the last 20000 are kept");
    auto* table = program.window.windowOf(log)->content().findChild<QTableView*>();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->model()->rowCount(), 20'000);
    EXPECT_TRUE(log.Follow.ticked());
    EXPECT_TRUE(log.Filter.edit("no such text"));
    EXPECT_EQ(log.Log.rowCount(), 0U);
}

TEST(WireLogWindow, TheFilterTakesACommaAsItIs) {
    Program program;
    program.start();
    program.main.perform([&] { program.main.bench().tools.open(Tool::frm_WireLog); });
    auto& log = dynamic_cast<WireLog&>(*program.desk.find("frm_WireLog"));
    auto* line = program.window.windowOf(log)->content().findChild<QLineEdit*>(QStringLiteral("Filter"));
    ASSERT_NE(line, nullptr);
    line->setFocus();
    QTest::keyClicks(line, "a,b");
    EXPECT_EQ(log.Filter.text(), "a,b");
}

} // namespace zor
