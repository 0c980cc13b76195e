<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="security-he-device_lock">
        <source>Device lock</source>
        <translation>Gerätesperre</translation>
    </message>
    <message id="security-he-security_code">
        <source>Security code</source>
        <translation>Sicherheitscode</translation>
    </message>
    <message id="security-he-fingerprint">
        <source>Fingerprints</source>
        <translation>Fingerabdrücke</translation>
    </message>
    <message id="security-he-automatic_locking">
        <source>Automatic locking</source>
        <translation>Automatisch sperren</translation>
    </message>
    <message id="security-he-pin_code">
        <source>PIN code</source>
        <translation>PIN-Code</translation>
    </message>
    <message id="security-he-encryption">
        <source>Encryption</source>
        <translation>Verschlüsselung</translation>
    </message>
    <message id="security-he-location">
        <source>Location</source>
        <translation>Standort</translation>
    </message>
    <message id="security-he-positioning">
        <source>Positioning</source>
        <translation>Ortungsdienste</translation>
    </message>
    <message id="security-he-clear_location_history">
        <source>Clear location history</source>
        <translation>Standortverlauf löschen</translation>
    </message>
</context>
</TS>
