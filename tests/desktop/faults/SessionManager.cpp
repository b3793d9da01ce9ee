#include "faults/SessionManager.h"

#include <QHash>
#include <QSocketNotifier>
#include <array>
#include <cstdlib>

extern "C" {
#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
}

namespace norvane::test {

struct SessionManager::Private
{
    Private();
    ~Private();

    void listen();
    void accept(IceListenObj listener);
    void read(IceConn connection);
    void drop(IceConn connection);

    // What the program of the session says.
    static Status newClient(SmsConn client, SmPointer self, unsigned long *mask, SmsCallbacks *callbacks,
                            char **reason);
    static Status registerClient(SmsConn client, SmPointer self, char *previousId);
    static void saveYourselfDone(SmsConn client, SmPointer self, Bool success);
    static void saveYourselfPhase2(SmsConn client, SmPointer self);
    static void interact(SmsConn client, SmPointer self, int type);
    static void closeConnection(SmsConn client, SmPointer self, int count, char **reasons);

    int listenerCount = 0;
    IceListenObj *listeners = nullptr;
    QString address;
    SmsConn client = nullptr;
    bool saving = false; ///< asked to save, and no answer yet
    bool saved = false;
    std::vector<std::unique_ptr<QSocketNotifier>> listening;
    QHash<IceConn, QSocketNotifier *> connections;
};

SessionManager::Private::Private()
{
    std::array<char, 256> error{};
    // The library's own handlers end the process.
    IceSetIOErrorHandler([](IceConn) {});
    if (SmsInitialize(
            "norvane-test", "1", &newClient, this, [](char *) -> Bool { return True; }, int(error.size()),
            error.data()) != 0)
        listen();
}

void SessionManager::Private::listen()
{
    std::array<char, 256> error{};
    if (IceListenForConnections(&listenerCount, &listeners, int(error.size()), error.data()) == 0)
        return;
    char *names = IceComposeNetworkIdList(listenerCount, listeners);
    address = QString::fromLocal8Bit(names);
    std::free(names);
    for (int i = 0; i < listenerCount; ++i) {
        const IceListenObj listener = listeners[i];
        IceSetHostBasedAuthProc(listener, [](char *) -> Bool { return True; });
        listening.push_back(
            std::make_unique<QSocketNotifier>(IceGetListenConnectionNumber(listener), QSocketNotifier::Read));
        QObject::connect(listening.back().get(), &QSocketNotifier::activated, listening.back().get(),
                         [this, listener] { accept(listener); });
    }
}

SessionManager::Private::~Private()
{
    while (!connections.isEmpty())
        drop(connections.constBegin().key());
    listening.clear();
    if (listeners != nullptr)
        IceFreeListenObjs(listenerCount, listeners);
}

void SessionManager::Private::accept(IceListenObj listener)
{
    IceAcceptStatus status = IceAcceptFailure;
    const IceConn connection = IceAcceptConnection(listener, &status);
    if (connection == nullptr)
        return;
    auto *notifier = new QSocketNotifier(IceConnectionNumber(connection), QSocketNotifier::Read);
    connections.insert(connection, notifier);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [this, connection] { read(connection); });
}

void SessionManager::Private::read(IceConn connection)
{
    if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesIOError)
        drop(connection);
}

void SessionManager::Private::drop(IceConn connection)
{
    QSocketNotifier *notifier = connections.take(connection);
    if (notifier == nullptr)
        return;
    notifier->setEnabled(false);
    notifier->deleteLater();
    if (client != nullptr && SmsGetIceConnection(client) == connection)
        SmsCleanUp(std::exchange(client, nullptr));
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
}

Status SessionManager::Private::newClient(SmsConn, SmPointer self, unsigned long *mask,
                                          SmsCallbacks *callbacks, char **)
{
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client = {&registerClient, self};
    callbacks->interact_request = {&interact, self};
    callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, self};
    callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, self};
    callbacks->save_yourself_phase2_request = {&saveYourselfPhase2, self};
    callbacks->save_yourself_done = {&saveYourselfDone, self};
    callbacks->close_connection = {&closeConnection, self};
    callbacks->set_properties = {[](SmsConn, SmPointer, int count, SmProp **properties) {
                                     for (int i = 0; i < count; ++i)
                                         SmFreeProperty(properties[i]);
                                     std::free(properties);
                                 },
                                 self};
    callbacks->delete_properties = {[](SmsConn, SmPointer, int count, char **names) {
                                        for (int i = 0; i < count; ++i)
                                            std::free(names[i]);
                                        std::free(names);
                                    },
                                    self};
    callbacks->get_properties = {
        [](SmsConn connection, SmPointer) { SmsReturnProperties(connection, 0, nullptr); }, self};
    return 1;
}

Status SessionManager::Private::registerClient(SmsConn client, SmPointer self, char *previousId)
{
    auto *d = static_cast<Private *>(self);
    std::free(previousId);
    char *id = SmsGenerateClientID(client);
    SmsRegisterClientReply(client, id);
    std::free(id);
    // A program that joins is asked for its state at once.
    SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
    d->client = client;
    d->saving = true;
    return 1;
}

void SessionManager::Private::saveYourselfDone(SmsConn client, SmPointer self, Bool success)
{
    auto *d = static_cast<Private *>(self);
    d->saving = false;
    d->saved = success != False;
    SmsSaveComplete(client);
}

void SessionManager::Private::saveYourselfPhase2(SmsConn client, SmPointer)
{
    SmsSaveYourselfPhase2(client);
}

void SessionManager::Private::interact(SmsConn client, SmPointer, int)
{
    SmsInteract(client);
}

void SessionManager::Private::closeConnection(SmsConn client, SmPointer self, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    static_cast<Private *>(self)->drop(SmsGetIceConnection(client));
}

SessionManager::SessionManager() : m_d(std::make_unique<Private>()) {}

SessionManager::~SessionManager() = default;

QString SessionManager::address() const
{
    return m_d->address;
}

bool SessionManager::hasClient() const
{
    return m_d->client != nullptr && !m_d->saving;
}

void SessionManager::askToSave()
{
    m_d->saving = true;
    m_d->saved = false;
    SmsSaveYourself(m_d->client, SmSaveBoth, True, SmInteractStyleAny, False);
}

bool SessionManager::hasSaved() const
{
    return m_d->saved && !m_d->saving;
}

void SessionManager::cancel()
{
    SmsShutdownCancelled(m_d->client);
}

void SessionManager::die()
{
    SmsDie(m_d->client);
}

} // namespace norvane::test
