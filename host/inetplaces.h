#pragma once

#include <QString>

namespace Core {

// Where a net is declared.
struct NetPlace
{
    bool isInDesign = false;
    QString file; // absolute; empty: unknown
    int line = 0;
};

// A widget that shows nets of a design. The host's command Go to Declaration asks the one with the focus, or
// the next of its parents that is one.
class INetPlaces
{
public:
    virtual ~INetPlaces();

    virtual QString focusedNet() const = 0; // full name of the net or bus of the current row; may be empty
    virtual NetPlace placeOf(const QString &net) const = 0;
};

} // namespace Core
