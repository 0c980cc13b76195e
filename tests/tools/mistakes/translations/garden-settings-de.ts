<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="garden-he-garden">
        <source>Garden</source>
        <translation>Garten</translation>
    </message>
    <message id="garden-he-watering">
        <source>Watering</source>
        <translation>Bewässerung</translation>
    </message>
    <message id="garden-la-watering_short">
        <source>Water</source>
        <translation>Wasser</translation>
    </message>
    <message id="garden-he-amount">
        <source>Amount</source>
        <translation>Menge</translation>
    </message>
    <message id="garden-he-light">
        <source>Light</source>
        <translation>Licht</translation>
    </message>
</context>
</TS>
