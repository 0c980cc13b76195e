<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="garden-he-garden">
        <source>Garden</source>
        <translation>Puutarha</translation>
    </message>
    <message id="garden-he-watering">
        <source>Watering</source>
        <translation>Kastelu</translation>
    </message>
    <message id="garden-la-watering_short">
        <source>Water</source>
        <translation>Vesi</translation>
    </message>
    <message id="garden-he-amount">
        <source>Amount</source>
        <translation>Määrä</translation>
    </message>
    <message id="garden-he-light">
        <source>Light</source>
        <translation>Valo</translation>
    </message>
</context>
</TS>
