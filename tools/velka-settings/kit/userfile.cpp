// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "userfile.h"

#include "printable.h"
#include "regularfile.h"

#include <QSaveFile>

namespace
{
constexpr qint64 MaxUserFileSize = 64 << 20;
}

std::optional<QByteArray> UserFile::read(const QString &path, QString *problem)
{
    const FileContent content = readRegularFile(path, MaxUserFileSize);
    if (!content.error.isEmpty()) {
        *problem = QStringLiteral("cannot read \"%1\": %2").arg(printable(path), content.error);
        return {};
    }
    return content.bytes;
}

QString UserFile::write(const QString &path, const QByteArray &content, QFileDevice::Permissions permissions)
{
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
                           && (!permissions || file.setPermissions(permissions)) && file.commit();
    return isWritten ? QString()
                     : QStringLiteral("cannot write \"%1\": %2").arg(printable(path), file.errorString());
}
