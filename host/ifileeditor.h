#pragma once

#include <QString>

namespace Core {

// What a view that edits a file can do beside being a Core::IView, found by dynamic_cast. A host offers what
// goes with it only for such views.
class IFileEditor
{
public:
    virtual ~IFileEditor();

    // Saves to another file, which is the view's from then. Checks and tells what is wrong as saving does;
    // false leaves the view with its file.
    virtual bool saveFileAs(const QString &path) = 0;

    // The check of a save, of what the view shows now, without saving: what is wrong is among the view's
    // findings then. Returns how many there are.
    virtual int checkShown() const = 0;

    // What the view shows of its file, "core 1 tab 0", by positions, for a host that opens the file again
    // later. A place that is not there is left alone; it may come from anywhere.
    virtual QString shownPlace() const = 0;
    virtual void showPlace(const QString &place) = 0;
};

} // namespace Core
