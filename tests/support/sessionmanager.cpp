#include "tests/support/sessionmanager.h"

#include <QSocketNotifier>

#include <cstdlib>
#include <vector>

#include <X11/SM/SMlib.h>

struct SessionManager::Private
{
    int listeners = 0;
    IceListenObj *listening = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> notifiers;
    SmsConn program = nullptr;
    bool isEnding = false;
    SessionManager *manager = nullptr;

    void accept(IceListenObj from);
    void read(IceConn connection, QSocketNotifier *notifier);
};

namespace {

SessionManager::Private *mine(SmPointer data)
{
    return static_cast<SessionManager::Private *>(data);
}

// No cookies: what can reach the socket of a test is the test's.
Bool letAnybodyIn(char *)
{
    return True;
}

// As the protocol wants it, a new program is asked for its state at once.
Status registerClient(SmsConn connection, SmPointer data, char *previousId)
{
    free(previousId);
    char *id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    free(id);
    mine(data)->manager->events << "registered";
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    return 1;
}

void interactRequest(SmsConn connection, SmPointer data, int)
{
    mine(data)->manager->events << "asks";
    SmsInteract(connection);
}

void interactDone(SmsConn, SmPointer data, Bool cancels)
{
    mine(data)->manager->events << (cancels ? "cancels" : "asked");
}

void saveYourselfDone(SmsConn connection, SmPointer data, Bool)
{
    mine(data)->manager->events << "saved";
    if (!mine(data)->isEnding)
        SmsSaveComplete(connection);
}

void closeConnection(SmsConn connection, SmPointer data, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    mine(data)->manager->events << "left";
    mine(data)->program = nullptr;
    const IceConn below = SmsGetIceConnection(connection);
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(below, False);
    IceCloseConnection(below);
}

void setProperties(SmsConn, SmPointer, int count, SmProp **properties)
{
    for (int i = 0; i < count; ++i)
        SmFreeProperty(properties[i]);
    free(properties);
}

void deleteProperties(SmsConn, SmPointer, int count, char **names)
{
    for (int i = 0; i < count; ++i)
        free(names[i]);
    free(names);
}

// What is left out, our program does not send.
Status newClient(SmsConn connection, SmPointer data, unsigned long *mask, SmsCallbacks *callbacks, char **)
{
    mine(data)->program = connection;
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask;
    callbacks->register_client = {registerClient, data};
    callbacks->interact_request = {interactRequest, data};
    callbacks->interact_done = {interactDone, data};
    callbacks->save_yourself_done = {saveYourselfDone, data};
    callbacks->close_connection = {closeConnection, data};
    callbacks->set_properties = {setProperties, data};
    callbacks->delete_properties = {deleteProperties, data};
    return 1;
}

} // namespace

void SessionManager::Private::accept(IceListenObj from)
{
    IceAcceptStatus status = IceAcceptFailure;
    const IceConn connection = IceAcceptConnection(from, &status);
    if (!connection)
        return;
    notifiers.emplace_back(new QSocketNotifier(IceConnectionNumber(connection), QSocketNotifier::Read));
    QSocketNotifier *notifier = notifiers.back().get();
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [this, connection, notifier] { read(connection, notifier); });
}

void SessionManager::Private::read(IceConn connection, QSocketNotifier *notifier)
{
    const IceProcessMessagesStatus status = IceProcessMessages(connection, nullptr, nullptr);
    if (status != IceProcessMessagesSuccess)
        notifier->setEnabled(false);
    if (status != IceProcessMessagesIOError)
        return;
    // Of a program that ended without a word.
    program = nullptr;
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
}

SessionManager::SessionManager() : d(new Private)
{
    char error[256] = "";
    d->manager = this;
    if (!SmsInitialize("test", "1", newClient, d.get(), letAnybodyIn, sizeof error, error) ||
        !IceListenForConnections(&d->listeners, &d->listening, sizeof error, error))
        qFatal("no session manager: %s", error);
    IceSetIOErrorHandler([](IceConn) {}); // a broken pipe is no fault
    for (int i = 0; i < d->listeners; ++i) {
        const IceListenObj from = d->listening[i];
        IceSetHostBasedAuthProc(from, letAnybodyIn);
        d->notifiers.emplace_back(
            new QSocketNotifier(IceGetListenConnectionNumber(from), QSocketNotifier::Read));
        connect(d->notifiers.back().get(), &QSocketNotifier::activated, this,
                [this, from] { d->accept(from); });
    }
}

SessionManager::~SessionManager()
{
    d->notifiers.clear();
    IceFreeListenObjs(d->listeners, d->listening);
}

QByteArray SessionManager::address() const
{
    char *ids = IceComposeNetworkIdList(d->listeners, d->listening);
    const QByteArray address(ids);
    free(ids);
    return address;
}

void SessionManager::endSession(bool mayInteract)
{
    d->isEnding = true;
    SmsSaveYourself(d->program, SmSaveBoth, True, mayInteract ? SmInteractStyleAny : SmInteractStyleNone,
                    False);
}

void SessionManager::cancelEnd()
{
    d->isEnding = false;
    SmsShutdownCancelled(d->program);
}

void SessionManager::die()
{
    SmsDie(d->program);
}
