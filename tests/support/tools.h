#pragma once

#include <QtTest>

// What a tool said that has to do what it is told, on both channels or as `channels` says: a failure ends the
// test.
inline QByteArray runTool(const QString &folder, const QString &program, const QStringList &arguments,
                          QProcess::ProcessChannelMode channels = QProcess::MergedChannels)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(channels);
    process.start(program, arguments);
    const bool isOver = process.waitForFinished(600000);
    const QByteArray said = process.readAllStandardOutput();
    if (!isOver || process.exitStatus() != QProcess::NormalExit || process.exitCode())
        qFatal("%s: %s", qPrintable(program),
               (said + process.readAllStandardError()).right(4000).constData());
    return said;
}
