// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "databaseflag.h"

#include "regularfile.h"

#include <QByteArray>

#include <glib.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>

namespace
{
constexpr size_t FlagSize = 1;
}

DatabaseFlag::~DatabaseFlag()
{
    close();
}

quint64 DatabaseFlag::generation()
{
    if (!m_flag || *m_flag != 0) {
        // The service removes a file after it has set its byte. The next write sets that of another file.
        close();
        open();
        ++m_generation;
    }
    return m_generation;
}

bool DatabaseFlag::canOpenDatabase() const
{
    return !m_isShort;
}

// dconf opens the database when it finds the flag set, too, and needs as much for it.
void DatabaseFlag::open()
{
    const QByteArray path = QByteArray(g_get_user_runtime_dir()) + "/dconf/user";
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    m_isShort = file < 0 && isShortage(errno);
    if (file < 0) {
        return;
    }
    // The byte after the flag makes sure that memory is allocated for it, and shows the service that it has a reader.
    if (pwrite(file, "", 1, FlagSize) == 1) {
        void *memory = mmap(nullptr, FlagSize, PROT_READ, MAP_SHARED, file, 0);
        m_isShort = memory == MAP_FAILED && isShortage(errno);
        m_flag = memory == MAP_FAILED ? nullptr : static_cast<const quint8 *>(memory);
    }
    ::close(file);
}

void DatabaseFlag::close()
{
    if (m_flag) {
        munmap(const_cast<quint8 *>(m_flag), FlagSize);
        m_flag = nullptr;
    }
}
