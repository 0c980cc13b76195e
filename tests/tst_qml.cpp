// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "docs/codeblock.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QQmlContext>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QtQuickTest>

/// Functions with which the QML tests change the sandbox.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
            qFatal("This test writes into system directories: run it through scripts/sandbox");
        }
        write(QStringLiteral("/usr/share/velka-settings/favorites-blacklist.json"), "[]");
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral(VELKA_QML_DIR));
        engine->rootContext()->setContextProperty(QStringLiteral("world"), this);
    }

public:
    Q_INVOKABLE void writeEntries(const QString &fileName, const QString &json)
    {
        write(m_entries.filePath(fileName), json.toUtf8());
    }

    Q_INVOKABLE void removeEntries(const QString &fileName)
    {
        QFile::remove(m_entries.filePath(fileName));
    }

    /// Returns the output of the dconf tool, which is another process.
    Q_INVOKABLE QString dconf(const QStringList &arguments)
    {
        return QString::fromUtf8(::dconf(arguments));
    }

    /// Returns the Settings application of README.md.
    Q_INVOKABLE QString application()
    {
        const QVector<CodeBlock> blocks = readCodeBlocks(QStringLiteral(README));
        for (const CodeBlock &block : blocks) {
            if (block.name == QLatin1String("Settings.qml")) {
                return block.text;
            }
        }
        return {};
    }

    /// Opens an address as another program does.
    Q_INVOKABLE bool open(const QString &service, const QString &address)
    {
        return QProcess::startDetached(QStringLiteral(VELKA_TOOL),
                                       {QStringLiteral("open"), QStringLiteral("--service"), service, address});
    }

    Q_INVOKABLE void writePage(const QString &path, const QString &qml)
    {
        QDir().mkpath(QFileInfo(path).path());
        write(path, qml.toUtf8());
    }

    /// Fails the test function if it ends without a warning that contains @p text.
    Q_INVOKABLE void expectWarning(const QString &text)
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(text)));
    }

    /// Fails the test function if it ends without an information message that matches @p pattern.
    Q_INVOKABLE void expectInfo(const QString &pattern)
    {
        QTest::ignoreMessage(QtInfoMsg, QRegularExpression(pattern));
    }

private:
    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("Can't write %s", qPrintable(path));
        }
    }

    const QDir m_entries{QStringLiteral("/usr/share/velka-settings/entries")};
};

QUICK_TEST_MAIN_WITH_SETUP(tst_qml, Setup)
#include "tst_qml.moc"
