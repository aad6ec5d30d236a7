#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <memory>

// The manager of a desktop's session with one program in it, to which it speaks the real protocol. It lives
// in the event loop of a test, of which it is the only one.
class SessionManager : public QObject
{
public:
    SessionManager();
    ~SessionManager() override;

    QByteArray address() const; // for the program's variable SESSION_MANAGER

    void endSession(bool mayInteract); // asks for everything to be saved
    void cancelEnd();
    void die();

    // What the program did: "registered", "saved", "asks" (whether it may ask the user: yes), "asked",
    // "cancels" (the user does not want the session to end), "left".
    QStringList events;

    struct Private; // what the library knows
private:
    const std::unique_ptr<Private> d;
};
