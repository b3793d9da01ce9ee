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

/// The library's callbacks carry a pointer to this. It runs in the event loop, by a notifier for each
/// socket.
struct SessionManager::Private
{
    Private();
    ~Private();

    static Status addClient(SmsConn, SmPointer self, unsigned long *mask, SmsCallbacks *callbacks, char **);
    static Status registerClient(SmsConn client, SmPointer self, char *previousId);
    void accept(IceListenObj listener);
    void drop(IceConn connection);

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
    const auto takeAnybody = [](char *) -> Bool { return True; };
    IceSetIOErrorHandler([](IceConn) {}); // the library's own ends the process
    if (SmsInitialize("norvane-test", "1", &addClient, this, takeAnybody, int(error.size()), error.data()) ==
            0 ||
        IceListenForConnections(&listenerCount, &listeners, int(error.size()), error.data()) == 0)
        return;
    char *names = IceComposeNetworkIdList(listenerCount, listeners);
    address = QString::fromLocal8Bit(names);
    std::free(names);
    for (int i = 0; i < listenerCount; ++i) {
        const IceListenObj listener = listeners[i];
        IceSetHostBasedAuthProc(listener, takeAnybody);
        auto notifier =
            std::make_unique<QSocketNotifier>(IceGetListenConnectionNumber(listener), QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [this, listener] { accept(listener); });
        listening.push_back(std::move(notifier));
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
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this, connection] {
        if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesIOError)
            drop(connection);
    });
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

/// Answers what the toolkit asks; the library wants a callback for everything that a program may say.
Status SessionManager::Private::addClient(SmsConn, SmPointer self, unsigned long *mask,
                                          SmsCallbacks *callbacks, char **)
{
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client = {&registerClient, self};
    callbacks->interact_request = {[](SmsConn who, SmPointer, int) { SmsInteract(who); }, self};
    callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, self};
    callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, self};
    callbacks->save_yourself_phase2_request = {[](SmsConn who, SmPointer) { SmsSaveYourselfPhase2(who); },
                                               self};
    callbacks->save_yourself_done = {[](SmsConn who, SmPointer data, Bool success) {
                                         auto *d = static_cast<Private *>(data);
                                         d->saving = false;
                                         d->saved = success != False;
                                         SmsSaveComplete(who);
                                     },
                                     self};
    callbacks->close_connection = {[](SmsConn who, SmPointer data, int count, char **reasons) {
                                       SmFreeReasons(count, reasons);
                                       static_cast<Private *>(data)->drop(SmsGetIceConnection(who));
                                   },
                                   self};
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
    callbacks->get_properties = {[](SmsConn who, SmPointer) { SmsReturnProperties(who, 0, nullptr); }, self};
    return 1;
}

Status SessionManager::Private::registerClient(SmsConn client, SmPointer self, char *previousId)
{
    std::free(previousId);
    char *id = SmsGenerateClientID(client);
    SmsRegisterClientReply(client, id);
    std::free(id);
    // A program that joins is asked for its state at once.
    SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
    auto *d = static_cast<Private *>(self);
    d->client = client;
    d->saving = true;
    return 1;
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
