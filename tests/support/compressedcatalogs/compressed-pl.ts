<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<dependencies>
    <dependency catalog="dependent-pl"/>
</dependencies>
<context>
    <name>Menu</name>
    <message>
        <source>Open</source>
        <translation>Otwieraj</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>Back</source>
        <translation>Wstecz</translation>
    </message>
    <message>
        <source>Next</source>
        <comment>page</comment>
        <translation>Dalej</translation>
    </message>
</context>
</TS>
