<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="garden-settings-he-garden">
        <source>Garden</source>
        <translation>Puutarha</translation>
    </message>
    <message id="garden-settings-he-watering">
        <source>Watering</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
