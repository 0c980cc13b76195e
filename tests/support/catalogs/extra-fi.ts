<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="test-both">
        <source>Both</source>
        <translation>Muuten molemmat</translation>
    </message>
    <message id="test-extra">
        <source>Extra</source>
        <translation>Muu</translation>
    </message>
    <message id="test-keywords">
        <source>loud; very quiet;</source>
        <translation>kova; hyvin hiljainen;</translation>
    </message>
</context>
</TS>
