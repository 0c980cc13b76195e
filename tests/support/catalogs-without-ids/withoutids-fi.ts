<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="test-both">
        <source>Both</source>
        <translation>Molemmat</translation>
    </message>
    <message id="test-locale">
        <source>Locale</source>
        <translation>Kieli</translation>
    </message>
</context>
</TS>
