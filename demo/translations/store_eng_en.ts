<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="store-he-store">
        <source>Store</source>
        <translation>Store</translation>
    </message>
    <message id="store-la-missing">
        <source>Requested packages</source>
        <translation>Requested packages</translation>
    </message>
</context>
</TS>
