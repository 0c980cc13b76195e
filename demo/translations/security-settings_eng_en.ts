<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="security-he-device_lock">
        <source>Device lock</source>
        <translation>Device lock</translation>
    </message>
    <message id="security-he-security_code">
        <source>Security code</source>
        <translation>Security code</translation>
    </message>
    <message id="security-he-fingerprint">
        <source>Fingerprints</source>
        <translation>Fingerprints</translation>
    </message>
    <message id="security-he-automatic_locking">
        <source>Automatic locking</source>
        <translation>Automatic locking</translation>
    </message>
    <message id="security-he-pin_code">
        <source>PIN code</source>
        <translation>PIN code</translation>
    </message>
    <message id="security-he-encryption">
        <source>Encryption</source>
        <translation>Encryption</translation>
    </message>
    <message id="security-he-location">
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message id="security-he-positioning">
        <source>Positioning</source>
        <translation>Positioning</translation>
    </message>
    <message id="security-he-clear_location_history">
        <source>Clear location history</source>
        <translation>Clear location history</translation>
    </message>
</context>
</TS>
