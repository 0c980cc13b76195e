// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QDir>
#include <QFile>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// What the QML tests may do to the sandbox they run in.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
            qFatal("This test writes into system directories: run it through scripts/sandbox");
        }
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral(VELKA_QML_DIR));
        engine->rootContext()->setContextProperty(QStringLiteral("world"), this);
    }

public:
    Q_INVOKABLE void writeEntries(const QString &fileName, const QString &json)
    {
        QFile file(m_entries.filePath(fileName));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(json.toUtf8());
        }
    }

    Q_INVOKABLE void removeEntries(const QString &fileName)
    {
        QFile::remove(m_entries.filePath(fileName));
    }

private:
    const QDir m_entries{QStringLiteral("/usr/share/velka-settings/entries")};
};

QUICK_TEST_MAIN_WITH_SETUP(tst_qml, Setup)
#include "tst_qml.moc"
