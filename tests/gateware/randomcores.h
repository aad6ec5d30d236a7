#pragma once

#include <memory>
#include <random>

#include "tests/gateware/coremodel.h"

// A core with what happens to it, drawn by a number: the same number gives the same.
struct RandomCore
{
    std::unique_ptr<JEX::AoCore> standard; // or:
    std::unique_ptr<JEX::AOCore_Lite> lite;
    RTLJEX::CoreOptions options;
    // What the control port loads before the last arm command; empty: nothing. Then `loaded` has the
    // settings.
    QByteArray settings;
    std::unique_ptr<JEX::AoCore> loaded;

    QList<coremodel::Sample> halves; // what the core's inputs show before each edge of the clock, either kind
    struct At
    {
        coremodel::Command::Kind kind;
        int half; // before which edge
    };
    QList<At> commands;

    RTLJEX::AnyCore any() const;
    // As the core sees it, when that many edges have been.
    coremodel::Story story(int edges) const;
    RTLJEX::CapturedCore expected(int edges) const;
};

// `unknowns`: whether inputs may be so.
RandomCore randomCore(unsigned number, bool unknowns);
