<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="security-he-device_lock">
        <source>Device lock</source>
        <translation>Laitteen lukitus</translation>
    </message>
    <message id="security-he-security_code">
        <source>Security code</source>
        <translation>Suojakoodi</translation>
    </message>
    <message id="security-he-fingerprint">
        <source>Fingerprints</source>
        <translation>Sormenjäljet</translation>
    </message>
    <message id="security-he-automatic_locking">
        <source>Automatic locking</source>
        <translation>Lukitse automaattisesti</translation>
    </message>
    <message id="security-he-pin_code">
        <source>PIN code</source>
        <translation>PIN-koodi</translation>
    </message>
    <message id="security-he-encryption">
        <source>Encryption</source>
        <translation>Salaus</translation>
    </message>
    <message id="security-he-location">
        <source>Location</source>
        <translation>Sijainti</translation>
    </message>
    <message id="security-he-positioning">
        <source>Positioning</source>
        <translation>Paikannuspalvelut</translation>
    </message>
    <message id="security-he-clear_location_history">
        <source>Clear location history</source>
        <translation>Tyhjennä sijaintihistoria</translation>
    </message>
</context>
</TS>
