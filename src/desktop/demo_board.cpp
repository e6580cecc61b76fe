// SPDX-License-Identifier: MIT
#include "desktop/demo_board.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace zor {

namespace {

constexpr int startLimit = 5'000; // ms
constexpr int endLimit = 1'000;
constexpr QLatin1String eepromStatement("eeprom");

QString simulatorPath() {
    QDir here(QCoreApplication::applicationDirPath());
    QString name = QStringLiteral("loadboard-sim");
    QString found =
        QStandardPaths::findExecutable(name, {here.path(), here.filePath(QStringLiteral("../../simulator")),
                                              here.filePath(QStringLiteral("../simulator"))});
    return found.isEmpty() ? QStandardPaths::findExecutable(name) : found;
}

} // namespace

DemoBoard::~DemoBoard() {
    stop();
}

QString DemoBoard::start(const QStringList& arguments) {
    QString program = simulatorPath();
    if (program.isEmpty()) {
        return {};
    }
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // It watches its standard input, so that it ends with this program however this program ends.
    QStringList air = farEnd.isEmpty() ? QStringList() : QStringList{QStringLiteral("--air"), farEnd};
    process.start(program,
                  QStringList(arguments)
                      << air << QStringLiteral("--control") << QStringLiteral("--exit-with-stdin"),
                  QIODevice::ReadWrite);
    QByteArray line;
    while (!line.endsWith('\n')) {
        if (!process.waitForReadyRead(startLimit)) {
            return {};
        }
        line += process.readLine();
    }
    startArguments = arguments;
    started = true;
    terminal = QString::fromLocal8Bit(line.trimmed());
    if (!carried.isEmpty()) {
        tell(carried);
    }
    hadEeprom = carried == eepromStatement;
    return terminal;
}

bool DemoBoard::died() const {
    // The terminal goes first; the process may still be at its end.
    return started && (process.state() == QProcess::NotRunning || !QFile::exists(terminal));
}

QString DemoBoard::startAgain() {
    if (!process.waitForFinished(endLimit)) {
        stop();
    }
    return start(startArguments);
}

void DemoBoard::tell(const QString& statement) {
    if (process.state() == QProcess::NotRunning) {
        return;
    }
    process.write(statement.toLocal8Bit() + '\n');
    // What is sent to the board from now on comes behind it.
    process.waitForBytesWritten(endLimit);
}

void DemoBoard::mount(const QString& chip) {
    carried = QStringLiteral("chip ") + chip;
    tell(carried);
}

void DemoBoard::mountEeprom() {
    carried = QString(eepromStatement);
    tell(hadEeprom ? eepromStatement + QStringLiteral(" again") : carried);
    hadEeprom = started;
}

void DemoBoard::mountRegisters(const QString& registerList) {
    tell(QStringLiteral("registers ") + registerList);
    tell(QStringLiteral("loop 0.002 7"));
}

void DemoBoard::stop() {
    started = false;
    if (process.state() == QProcess::NotRunning) {
        return;
    }
    process.terminate();
    if (!process.waitForFinished(endLimit)) {
        process.kill();
        process.waitForFinished(endLimit);
    }
}

} // namespace zor
