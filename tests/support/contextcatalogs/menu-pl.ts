<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>Menu</name>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Open</source>
        <comment>state</comment>
        <translation>Otwarte</translation>
    </message>
    <message>
        <source>Close</source>
        <comment>verb</comment>
        <translation>Zamknij</translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n dzień</numerusform>
            <numerusform></numerusform>
            <numerusform>%n dni</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Open</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
</TS>
