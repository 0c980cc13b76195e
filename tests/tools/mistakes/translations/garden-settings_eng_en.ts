<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="en">
<context>
    <name></name>
    <message id="garden-he-garden">
        <source>Garden</source>
        <translation>Garden</translation>
    </message>
    <message id="garden-he-watering">
        <source>Watering</source>
        <translation>Watering</translation>
    </message>
    <message id="garden-la-watering_short">
        <source>Water</source>
        <translation>Water</translation>
    </message>
    <message id="garden-he-amount">
        <source>Amount</source>
        <translation>Amount</translation>
    </message>
    <message id="garden-he-light">
        <source>Light</source>
        <translation>Light</translation>
    </message>
</context>
</TS>
