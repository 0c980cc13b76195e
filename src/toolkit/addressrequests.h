// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QQmlParserStatus>
#include <QVector>

#include <memory>

class ApplicationObject;
struct AddressRequest;

/**
 * The requests of other programs to open entries, which arrive under a name on the session bus. An address only
 * navigates: it runs no action and changes no value.
 *
 * Requests are announced from the event loop, in the order of their arrival, and never before the component is
 * complete. While "active" is false they wait. At most AddressRequest::MaxWaiting wait; the callers of others get an error.
 */
class AddressRequests : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    /// The name of the application, such as "org.example.Settings". At first empty, so that there are no requests.
    Q_PROPERTY(QString service READ service WRITE setService NOTIFY serviceChanged)
    /// At first true.
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)
    /// True while this program has the name. False as long as another program has it.
    Q_PROPERTY(bool owned READ isOwned NOTIFY ownedChanged)

public:
    explicit AddressRequests(QObject *parent = nullptr);
    ~AddressRequests() override;

    QString service() const;
    void setService(const QString &service);
    bool isActive() const;
    void setActive(bool isActive);
    bool isOwned() const;

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    /// @p path is the path of an entry, which need not exist.
    void openRequested(const QString &path, const QString &activationToken);
    /// The window is to be shown as it is.
    void activateRequested(const QString &activationToken);

    void serviceChanged();
    void activeChanged();
    void ownedChanged();

private:
    void publish();
    bool take(const QVector<AddressRequest> &requests);
    void deliverLater();
    void deliver();

    QString m_service;
    std::unique_ptr<ApplicationObject> m_object; ///< null without a name
    QVector<AddressRequest> m_waiting;
    bool m_isActive = true;
    bool m_isComplete = true;
};
