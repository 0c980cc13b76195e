<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="accessibility-he-accessibility">
        <source>Accessibility</source>
        <translation>Accessibility</translation>
    </message>
    <message id="accessibility-he-magnifier">
        <source>Screen magnifier</source>
        <translation>Screen magnifier</translation>
    </message>
    <message id="accessibility-he-colour_filter">
        <source>Colour filter</source>
        <translation>Colour filter</translation>
    </message>
</context>
</TS>
