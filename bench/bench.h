#pragma once

#include <QString>

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

// Milliseconds since some start. After useProcessorTime() those that this process and its children have
// computed, which tells the truth on a busy machine but leaves out waiting.
double now();
void useProcessorTime();

// Milliseconds of the fastest of `runs`, which leaves out what else the machine did meanwhile.
template <typename Work>
double fastest(int runs, Work work)
{
    double best = 0;
    for (int i = 0; i < runs; ++i) {
        const double start = now();
        work();
        const double time = now() - start;
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
        const Times both{fastest(1, figure), fastest(1, limit)};
        times.figure = i == 0 ? both.figure : qMin(times.figure, both.figure);
        times.limit = i == 0 ? both.limit : qMin(times.limit, both.limit);
    }
    return times;
}

// Keeps the optimiser from dropping work whose result nobody uses.
template <typename T>
void keep(const T &value)
{
    asm volatile("" : : "g"(&value) : "memory");
}
