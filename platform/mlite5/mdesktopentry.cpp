// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "mdesktopentry.h"

#include "regularfile.h"

#include <glib.h>

namespace
{
// Real files have some ten kilobytes, most of it translations.
constexpr qint64 MaxSize = 1 << 20;

struct KeyPath {
    QString group;
    QString key;
};

// A key has no slash; a group may have one.
KeyPath splitPath(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return {path.left(slash), path.mid(slash + 1)};
}

struct FreeKeyFile {
    void operator()(GKeyFile *file) const
    {
        g_key_file_free(file);
    }
};

using Reader = gchar *(*)(GKeyFile *, const gchar *, const gchar *, GError **);

QString readWith(Reader read, GKeyFile *file, const QString &group, const QString &key)
{
    GError *error = nullptr;
    gchar *text = read(file, group.toUtf8().constData(), key.toUtf8().constData(), &error);
    QString value = error ? QString() : QString::fromUtf8(text);
    g_clear_error(&error);
    g_free(text);
    return value;
}
}

class MDesktopEntryPrivate
{
public:
    explicit MDesktopEntryPrivate(const QString &fileName);

    GKeyFile *file() const
    {
        return m_file.get();
    }

    const QString m_fileName;
    QString m_error;
    bool m_errorIsTemporary = false;

private:
    std::unique_ptr<GKeyFile, FreeKeyFile> m_file;
};

MDesktopEntryPrivate::MDesktopEntryPrivate(const QString &fileName)
    : m_fileName(fileName)
    , m_file(g_key_file_new())
{
    const FileContent content = readRegularFile(fileName, MaxSize);
    m_error = content.error;
    m_errorIsTemporary = content.isShortage;
    if (!m_error.isEmpty()) {
        return;
    }
    GError *error = nullptr;
    if (!g_key_file_load_from_data(m_file.get(), content.bytes.constData(), gsize(content.bytes.size()),
                                   G_KEY_FILE_NONE, &error)) {
        m_error = QString::fromUtf8(error->message);
        g_error_free(error);
        m_file.reset(g_key_file_new()); // the part before the error would look like the whole file
    }
}

MDesktopEntry::MDesktopEntry(const QString &fileName)
    : d(std::make_unique<MDesktopEntryPrivate>(fileName))
{
}

MDesktopEntry::~MDesktopEntry() = default;

QString MDesktopEntry::fileName() const
{
    return d->m_fileName;
}

bool MDesktopEntry::isValid() const
{
    return contains(QStringLiteral("Desktop Entry/Type")) && contains(QStringLiteral("Desktop Entry/Name"));
}

QString MDesktopEntry::errorString() const
{
    return d->m_error;
}

bool MDesktopEntry::isErrorTemporary() const
{
    return d->m_errorIsTemporary;
}

bool MDesktopEntry::containsGroup(const QString &group) const
{
    return g_key_file_has_group(d->file(), group.toUtf8().constData());
}

bool MDesktopEntry::contains(const QString &path) const
{
    const KeyPath split = splitPath(path);
    return contains(split.group, split.key);
}

bool MDesktopEntry::contains(const QString &group, const QString &key) const
{
    return g_key_file_has_key(d->file(), group.toUtf8().constData(), key.toUtf8().constData(), nullptr);
}

QString MDesktopEntry::value(const QString &path) const
{
    const KeyPath split = splitPath(path);
    return value(split.group, split.key);
}

QString MDesktopEntry::value(const QString &group, const QString &key) const
{
    const QString value = readWith(g_key_file_get_string, d->file(), group, key);
    // "\;" is an escape sequence in lists only, other sequences are wrong: the raw value is better than none.
    return value.isNull() ? readWith(g_key_file_get_value, d->file(), group, key) : value;
}

QString MDesktopEntry::localizedValue(const QString &group, const QString &key) const
{
    gchar *locale = g_key_file_get_locale_for_key(d->file(), group.toUtf8().constData(), key.toUtf8().constData(),
                                                  nullptr);
    const QString translated = locale ? QStringLiteral("%1[%2]").arg(key, QString::fromUtf8(locale)) : key;
    g_free(locale);
    return value(group, translated);
}
