<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="messages-he-messages">
        <source>Messages</source>
        <translation>Viestit</translation>
    </message>
</context>
</TS>
