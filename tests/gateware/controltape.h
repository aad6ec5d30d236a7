#pragma once

#include <QByteArray>
#include <QList>

// What the control port of a core gets, clock by clock, and what it says at the clocks that are recorded.
class ControlTape
{
public:
    void command(int code, quint32 argument);
    void load(const QByteArray &settings); // the last digit first
    void read(int words);
    void idleUntil(int clocks);

    int clocks() const { return m_lines.size(); }
    QByteArray text() const { return m_lines.join('\n') + '\n'; } // a line for each clock, see simulation.cpp

private:
    void add(const char *line, int times = 1);
    void shift(char bit, bool isRecorded);
    void update();

    QList<QByteArray> m_lines;
};

// The recorded bits as 32-bit words.
QList<QByteArray> recordedWords(const QByteArray &bits);
