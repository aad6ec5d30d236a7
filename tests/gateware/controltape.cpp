#include "tests/gateware/controltape.h"

#include <algorithm>

// A line: recorded, tdi, update, shift, capture, select.
void ControlTape::add(const char *line, int times)
{
    for (int i = 0; i < times; ++i)
        m_lines += line;
}

void ControlTape::shift(char bit, bool isRecorded)
{
    const QByteArray line = QByteArray(isRecorded ? "1" : "0") + bit + "0101";
    m_lines += line;
}

void ControlTape::update()
{
    add("001001");
    add("000000");
}

void ControlTape::command(int code, quint32 argument)
{
    const quint64 bits = quint64(code) << 32 | argument;
    for (int i = 0; i < 40; ++i)
        shift(bits >> i & 1 ? '1' : '0', false);
    update();
}

void ControlTape::load(const QByteArray &settings)
{
    command(5, 0);
    for (int i = settings.size() - 1; i >= 0; --i)
        shift(settings[i], false);
    update();
}

void ControlTape::read(int words)
{
    add("000011");
    for (int i = 0; i < 32 * words; ++i)
        shift('0', true);
    update();
}

void ControlTape::idleUntil(int clocks)
{
    add("000000", clocks - m_lines.size());
}

QList<QByteArray> recordedWords(const QByteArray &bits)
{
    QList<QByteArray> words;
    for (int at = 0; at + 32 <= bits.size(); at += 32) {
        QByteArray word = bits.mid(at, 32);
        std::reverse(word.begin(), word.end());
        words += word;
    }
    return words;
}
