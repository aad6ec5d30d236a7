#pragma once

#include <QtTest>

// The work must not take longer than that.
template <class Work>
void inTime(int milliseconds, Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    QVERIFY2(timer.elapsed() < milliseconds, qPrintable(QString::number(timer.elapsed())));
}
