// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a sequence of calls, to the platform's services and of an action, and of their replies: errors and
// values of any types.

#include "harness.h"
#include "input.h"

#include "actions/quickactionreader.h"
#include "applications/allowlist.h"
#include "applications/alwaysallowedlist.h"
#include "applications/applicationssettingsmodel.h"
#include "applications/applicationsuser.h"
#include "applications/autostartclient.h"
#include "applications/autostartlist.h"
#include "applications/notificationsclient.h"
#include "applications/sandboxingclient.h"
#include "common/constants.h"

#include <launcherfoldermodel.h>

#include <QCoreApplication>
#include <QHash>

#include <dbus/dbus.h>

#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace
{
constexpr int MaxSteps = 8;
constexpr int MaxTypeDepth = 8;
constexpr uint s_user = 1000;
constexpr uint s_nobody = 65534; ///< a user for whom only this target calls the services

const QString s_application = QStringLiteral("x");

QByteArray readText(Input *input)
{
    const QList<QByteArray> known{"", "x", "x.desktop", "org.example.x", "enabledMode", "enabled", "Mode", "None"};
    const int kind = input->below(16);
    if (kind < known.size()) {
        return known.at(kind);
    }
    return QString::fromUtf8(input->take(kind)).remove(QChar(QChar::Null)).toUtf8();
}

/// Returns one complete type.
QByteArray readType(Input *input, int depth = 0)
{
    const QByteArray basic = "ybnqiuxtdsog";
    const QList<QByteArray> known{"as", "a{sv}", "a{sb}", "v"};
    const int kind = input->below(32);
    if (kind < known.size()) {
        return known.at(kind);
    }
    if (kind < 20 || depth == MaxTypeDepth) {
        return QByteArray(1, basic.at(kind % basic.size()));
    }
    if (kind < 24) {
        return "a" + readType(input, depth + 1);
    }
    if (kind < 28) {
        return "(" + readType(input, depth + 1) + basic.at(kind % basic.size()) + ")";
    }
    return QByteArray("a{") + basic.at(kind % basic.size()) + readType(input, depth + 1) + "}";
}

void appendValue(DBusMessageIter *to, DBusSignatureIter *type, Input *input, int depth);

void appendContainer(DBusMessageIter *to, DBusSignatureIter *type, Input *input, int depth)
{
    const int kind = dbus_signature_iter_get_current_type(type);
    DBusSignatureIter inner;
    QByteArray signature;
    if (kind == DBUS_TYPE_VARIANT) {
        // The variants around a type count for its depth, which libdbus limits.
        signature = depth < MaxTypeDepth ? readType(input, depth) : QByteArray("s");
        dbus_signature_iter_init(&inner, signature.constData());
    } else {
        dbus_signature_iter_recurse(type, &inner);
        char *const text = dbus_signature_iter_get_signature(&inner);
        signature = text;
        dbus_free(text);
    }
    const bool isNamed = kind == DBUS_TYPE_VARIANT || kind == DBUS_TYPE_ARRAY;
    DBusMessageIter content;
    dbus_message_iter_open_container(to, kind, isNamed ? signature.constData() : nullptr, &content);
    if (kind == DBUS_TYPE_ARRAY) {
        for (int count = input->below(5); count > 0; --count) {
            appendValue(&content, &inner, input, depth + 1);
        }
    } else {
        do {
            appendValue(&content, &inner, input, depth + 1);
        } while (dbus_signature_iter_next(&inner));
    }
    dbus_message_iter_close_container(to, &content);
}

void appendText(DBusMessageIter *to, int type, const QByteArray &text)
{
    const char *const characters = text.constData();
    dbus_message_iter_append_basic(to, type, &characters);
}

void appendValue(DBusMessageIter *to, DBusSignatureIter *type, Input *input, int depth)
{
    const int kind = dbus_signature_iter_get_current_type(type);
    if (dbus_type_is_container(kind)) {
        appendContainer(to, type, input, depth);
    } else if (kind == DBUS_TYPE_STRING) {
        appendText(to, kind, readText(input));
    } else if (kind == DBUS_TYPE_OBJECT_PATH) {
        appendText(to, kind, input->flag() ? "/" : "/org/example");
    } else if (kind == DBUS_TYPE_SIGNATURE) {
        appendText(to, kind, input->flag() ? "" : "a{sv}");
    } else if (kind == DBUS_TYPE_BOOLEAN) {
        const dbus_bool_t value = input->flag();
        dbus_message_iter_append_basic(to, kind, &value);
    } else {
        const QByteArray bytes = input->take(sizeof(DBusBasicValue)).leftJustified(sizeof(DBusBasicValue), '\0');
        dbus_message_iter_append_basic(to, kind, bytes.constData());
    }
}

void appendValues(DBusMessage *message, Input *input)
{
    DBusMessageIter iterator;
    dbus_message_iter_init_append(message, &iterator);
    for (int count = input->below(4); count > 0; --count) {
        const QByteArray signature = readType(input);
        DBusSignatureIter type;
        dbus_signature_iter_init(&type, signature.constData());
        appendValue(&iterator, &type, input, 0);
    }
}

/// Returns the method and, if the call has one, the user.
QByteArray nameOf(DBusMessage *call)
{
    dbus_uint32_t user = 0;
    dbus_message_get_args(call, nullptr, DBUS_TYPE_UINT32, &user, DBUS_TYPE_INVALID);
    return dbus_message_get_member(call) + QByteArray::number(user);
}

/// The services on a bus. They have a thread of their own, because some calls wait for the reply.
class Services
{
public:
    Services(DBusBusType bus, const QStringList &names);

    /// Sets the replies to the next calls.
    void setAnswers(const QByteArray &bytes);
    /// Returns the signature of the last reply to @p call, nothing if it was an error.
    std::optional<QByteArray> lastAnswer(const QByteArray &call) const;
    /// Called before the next reply: no other thread may write to the connection while its own waits.
    void emitConfigChanged(Input *input);

private:
    static DBusHandlerResult handle(DBusConnection *connection, DBusMessage *message, void *self);
    void answer(DBusMessage *call);
    void send(DBusMessage *message);

    DBusConnection *const m_connection;
    mutable std::mutex m_mutex; ///< protects the members below
    QByteArray m_bytes;
    Input m_answers{nullptr, 0};
    std::vector<DBusMessage *> m_pending;
    QHash<QByteArray, std::optional<QByteArray>> m_signatures; ///< by call
};

Services::Services(DBusBusType bus, const QStringList &names)
    : m_connection(dbus_bus_get_private(bus, nullptr))
{
    require(m_connection, "there is a bus");
    for (const QString &name : names) {
        dbus_bus_request_name(m_connection, name.toUtf8().constData(), 0, nullptr);
    }
    dbus_connection_add_filter(m_connection, handle, this, nullptr);
    std::thread([this] { // until the process ends
        while (dbus_connection_read_write_dispatch(m_connection, -1)) {}
    })
        .detach();
}

void Services::setAnswers(const QByteArray &bytes)
{
    const std::lock_guard lock(m_mutex);
    m_bytes = bytes;
    m_answers = Input(reinterpret_cast<const std::uint8_t *>(m_bytes.constData()), std::size_t(m_bytes.size()));
}

std::optional<QByteArray> Services::lastAnswer(const QByteArray &call) const
{
    const std::lock_guard lock(m_mutex);
    return m_signatures.value(call);
}

void Services::emitConfigChanged(Input *input)
{
    DBusMessage *const signal = dbus_message_new_signal(Constants::NotificationsPath.toUtf8().constData(),
                                                        "com.kelo.NotificationsConfig1", "configChanged");
    appendValues(signal, input);
    const std::lock_guard lock(m_mutex);
    m_pending.push_back(signal);
}

void Services::send(DBusMessage *message)
{
    dbus_connection_send(m_connection, message, nullptr);
    dbus_message_unref(message);
}

DBusHandlerResult Services::handle(DBusConnection *connection, DBusMessage *message, void *self)
{
    if (dbus_message_get_type(message) != DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return DBUS_HANDLER_RESULT_NOT_YET_HANDLED;
    }
    static_cast<Services *>(self)->answer(message);
    dbus_connection_flush(connection);
    return DBUS_HANDLER_RESULT_HANDLED;
}

void Services::answer(DBusMessage *call)
{
    const QList<QByteArray> errors{DBUS_ERROR_FAILED, DBUS_ERROR_SERVICE_UNKNOWN, DBUS_ERROR_NO_REPLY,
                                   "org.example.E"};
    const std::lock_guard lock(m_mutex);
    for (DBusMessage *signal : std::exchange(m_pending, {})) {
        send(signal);
    }
    const int kind = m_answers.below(16);
    DBusMessage *answer = nullptr;
    if (kind < errors.size()) {
        answer = dbus_message_new_error(call, errors.at(kind).constData(), nullptr);
    } else {
        answer = dbus_message_new_method_return(call);
    }
    appendValues(answer, &m_answers);
    const bool isError = kind < errors.size();
    m_signatures.insert(nameOf(call), isError ? std::nullopt : std::optional(dbus_message_get_signature(answer)));
    send(answer);
}

Services &sessionServices()
{
    static auto *const services = new Services(DBUS_BUS_SESSION,
                                               {Constants::NotificationsService, Constants::StoreService});
    return *services;
}

Services &systemServices()
{
    static auto *const services = new Services(DBUS_BUS_SYSTEM,
                                               {Constants::SandboxingService, Constants::AutostartService});
    return *services;
}

/// The only application in the sandbox.
bool installApplication()
{
    static const Scratch scratch;
    scratch.makeDirectory(QStringLiteral("applications"));
    scratch.write(QStringLiteral("applications/x.desktop"),
                  "[Desktop Entry]\nType=Application\nName=x\nX-DBus-ServiceName=org.example.x\n"
                  "[X-Application]\nPermissions=Internet;Mail\n");
    return qputenv("XDG_DATA_HOME", scratch.path().toUtf8()) && qputenv("XDG_DATA_DIRS", "/nonexistent");
}

/// The classes that call the services.
class Clients
{
public:
    Clients();

    void step(Input *input);
    /// Returns when all calls so far have their replies.
    void settle();

private:
    using Handled = std::function<void(bool hasValue)>;

    /// Waits until @p call has called the handler that it gets. Returns true if the handler got a value.
    static bool waitFor(const std::function<void(const Handled &)> &call);
    ApplicationsSettingsModel *model();
    void lookAtModel();
    void fetchAllowlist();
    void fetchNotifications();
    void trigger();

    QObject m_owner;
    SandboxingClient m_sandboxing{&m_owner};
    AutostartClient m_autostart{&m_owner};
    NotificationsClient m_notifications{&m_owner};
    ApplicationsUser m_user;
    AlwaysAllowedList m_alwaysAllowed{&m_sandboxing, &m_owner};
    Allowlist m_allowlist{&m_user, &m_sandboxing, &m_alwaysAllowed, &m_owner};
    AutostartList m_autostartList{&m_user, &m_sandboxing, &m_owner};
    std::unique_ptr<ApplicationsSettingsModel>
        m_model; ///< created on demand, because that takes longer than the rest
    QuickActionReader m_actions{nullptr};
};

Clients::Clients()
{
    m_user.setUid(s_user);
}

ApplicationsSettingsModel *Clients::model()
{
    static auto *const launcher = new LauncherFolderModel;
    if (!m_model) {
        m_model = std::make_unique<ApplicationsSettingsModel>();
        m_model->setApplications(launcher);
        m_model->setUid(s_user);
        m_model->classBegin();
        m_model->componentComplete();
    }
    return m_model.get();
}

bool Clients::waitFor(const std::function<void(const Handled &)> &call)
{
    std::optional<bool> result;
    call([&result](bool hasValue) { result = hasValue; });
    while (!result) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return *result;
}

void Clients::fetchAllowlist()
{
    const bool hasValue = waitFor([this](const Handled &handled) {
        m_sandboxing.fetchAllowlist(s_nobody, [handled](const auto &ids) { handled(ids.has_value()); });
    });
    const auto answer = systemServices().lastAnswer("GetAllowlist" + QByteArray::number(s_nobody));
    require(hasValue == (answer && answer->startsWith("as")), "a list is what begins with a list of strings");
}

void Clients::fetchNotifications()
{
    const bool hasValue = waitFor([this](const Handled &handled) {
        m_notifications.fetchList([handled](const auto &enabled) { handled(enabled.has_value()); });
    });
    const auto answer = sessionServices().lastAnswer("getList0");
    require(hasValue == (answer && answer->startsWith("a{sv}")), "a map is what begins with a map");
}

void Clients::settle()
{
    // A connection keeps the order of its messages.
    fetchAllowlist();
    fetchNotifications();
}

/// Calls a service for which the store would be asked to show the package.
void Clients::trigger()
{
    m_actions.trigger({{QStringLiteral("remote-service"), Constants::NotificationsService},
                       {QStringLiteral("remote-path"), Constants::NotificationsPath},
                       {QStringLiteral("remote-method"), QStringLiteral("call")},
                       {QStringLiteral("requires-package"), QStringLiteral("package")}});
}

void Clients::step(Input *input)
{
    switch (input->below(12)) {
    case 0:
        m_sandboxing.isAllowlistEnabled(s_user);
        break;
    case 1:
        m_sandboxing.needsPermissions(s_application);
        break;
    case 2:
        m_sandboxing.grantPermissions(s_user, s_application);
        break;
    case 3:
        m_autostart.fetchEnabled(s_user, [](const std::optional<QStringList> &) {});
        break;
    case 4:
        m_autostartList.toggle(s_application);
        break;
    case 5:
        m_autostartList.fetch();
        break;
    case 6:
        m_allowlist.isEnabled();
        break;
    case 7:
        m_allowlist.setEnabled(input->flag());
        break;
    case 8:
        model()->getAllowedNotificationsConfig();
        break;
    case 9:
        sessionServices().emitConfigChanged(input);
        break;
    case 10:
        trigger();
        break;
    default:
        model()->setFilterMode(input->below(2));
        model()->toggleSelectedApp(QStringLiteral("x.desktop"));
        model()->filterModeEnabled();
    }
    settle();
    if (m_model) {
        lookAtModel();
    }
}

void Clients::lookAtModel()
{
    require(m_model->count() == 1, "the application has a row");
    for (int role = ApplicationsSettingsModel::SectionRole;
         role <= ApplicationsSettingsModel::NotificationsEnabledRole; ++role) {
        const QVariant value = m_model->data(m_model->index(0), role);
        require(role == ApplicationsSettingsModel::SectionRole || value.isValid(),
                "a row has a value for each role");
    }
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool isInstalled = installApplication();
    require(isInstalled, "there is an application");
    Input input(data, size);
    // Each bus has its own replies, because both may be called at the same time.
    sessionServices().setAnswers(input.take(input.byte()));
    systemServices().setAnswers(input.take(input.byte()));
    Clients clients;
    for (int i = 0; i < MaxSteps && !input.atEnd(); ++i) {
        clients.step(&input);
    }
    clients.settle(); // the replies may have caused more calls
    clients.settle();
    return 0;
}
