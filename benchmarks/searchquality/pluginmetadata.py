# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

"""Reads the metadata of a Qt plugin from its file, without loading it: CBOR behind a mark."""

MARK = b"QTMETADATA !"
HEADER_SIZE = len(MARK) + 4
METADATA_KEY = 4
BYTES, TEXT, ARRAY, MAP, TAG = 2, 3, 4, 5, 6
BREAK = 0xFF
SIMPLE = {20: False, 21: True, 22: None}


class Decoder:
    def __init__(self, data, position):
        self._data = data
        self._position = position

    def value(self):
        major, info = divmod(self._take(1)[0], 32)
        count = self._count(info)
        if major in (BYTES, TEXT):
            data = self._take(count)
            return data.decode() if major == TEXT else data
        if major == ARRAY:
            return self._values(count)
        if major == MAP:
            values = self._values(None if count is None else 2 * count)
            return dict(zip(values[::2], values[1::2]))
        if major == TAG:
            return self.value()
        return (count, -1 - (count or 0))[major] if major < BYTES else SIMPLE.get(info)

    def _take(self, size):
        self._position += size
        return self._data[self._position - size:self._position]

    def _count(self, info):
        """Returns the number that begins a value, None for a container of indefinite length."""
        if info < 24:
            return info
        return int.from_bytes(self._take(1 << (info - 24)), "big") if info < 28 else None

    def _values(self, count):
        values = []
        while len(values) != count:
            if count is None and self._data[self._position] == BREAK:
                self._position += 1
                break
            values.append(self.value())
        return values


def plugin_metadata(file):
    """Returns the metadata that the plugin's author wrote, empty for a file without metadata."""
    data = file.read_bytes()
    mark = data.find(MARK)
    return Decoder(data, mark + HEADER_SIZE).value().get(METADATA_KEY, {}) if mark >= 0 else {}
