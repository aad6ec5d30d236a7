#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>

// One measured figure beside what it is measured against, both in the same unit.
struct Row
{
    QString work;
    double figure = 0;
    double limit = 0; // 0: the goal is for the figure itself
    double goal = 0;  // of figure / limit, or of the figure
    QString unit;
};

// Prints the row; "over" when the goal is missed.
void print(const Row &row);
int rowsOverGoal();

// Milliseconds of the fastest of `runs`, which leaves out what else the machine did meanwhile.
template <typename Work>
double fastest(int runs, Work work)
{
    double best = 0;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        const double time = double(timer.nsecsElapsed()) / 1e6;
        best = i == 0 ? time : qMin(best, time);
    }
    return best;
}

// Both measured in turn, so that what else the machine does meanwhile meets both.
struct Times
{
    double figure = 0;
    double limit = 0;
};

template <typename Figure, typename Limit>
Times inTurn(int runs, Figure figure, Limit limit)
{
    Times times;
    for (int i = 0; i < runs; ++i) {
        const Times now{fastest(1, figure), fastest(1, limit)};
        times.figure = i == 0 ? now.figure : qMin(times.figure, now.figure);
        times.limit = i == 0 ? now.limit : qMin(times.limit, now.limit);
    }
    return times;
}

// Keeps the optimiser from dropping work whose result nobody uses.
template <typename T>
void keep(const T &value)
{
    asm volatile("" : : "g"(&value) : "memory");
}
