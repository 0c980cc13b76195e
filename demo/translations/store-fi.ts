<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="store-he-store">
        <source>Store</source>
        <translation>Kauppa</translation>
    </message>
    <message id="store-la-missing">
        <source>Requested packages</source>
        <translation>Asetukset on pyytänyt näitä paketteja, joita ei ole asennettu:</translation>
    </message>
</context>
</TS>
