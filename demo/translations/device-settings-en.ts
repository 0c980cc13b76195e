<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="device-he-storage">
        <source>Storage</source>
        <translation>Storage</translation>
    </message>
    <message id="device-he-internal_storage">
        <source>Mass memory</source>
        <translation>Internal storage</translation>
    </message>
    <message id="device-he-memory_card">
        <source>Memory card</source>
        <translation>Memory card</translation>
    </message>
    <message id="device-he-battery">
        <source>Battery</source>
        <translation>Battery</translation>
    </message>
    <message id="device-he-power_saving">
        <source>Power save mode</source>
        <translation>Power saving</translation>
    </message>
    <message id="device-he-charge_limit">
        <source>Charging threshold</source>
        <translation>Charge limit</translation>
    </message>
    <message id="device-he-date_time">
        <source>Time and date</source>
        <translation>Date and time</translation>
    </message>
    <message id="device-he-time_zone">
        <source>Time zone</source>
        <translation>Time zone</translation>
    </message>
    <message id="device-he-language">
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message id="device-he-keyboards">
        <source>Text input</source>
        <translation>Keyboards</translation>
    </message>
    <message id="device-he-updates">
        <source>System updates</source>
        <translation>System updates</translation>
    </message>
    <message id="device-he-about">
        <source>About product</source>
        <translation>About this device</translation>
    </message>
    <message id="device-he-licences">
        <source>Legal</source>
        <translation>Licences</translation>
    </message>
    <message id="device-he-printing">
        <source>Printing</source>
        <translation>Printing</translation>
    </message>
    <message id="device-he-printers">
        <source>Printers</source>
        <translation>Printers</translation>
    </message>
    <message id="device-he-print_jobs">
        <source>Print jobs</source>
        <translation>Print jobs</translation>
    </message>
    <message id="device-he-free_space">
        <source>Free space</source>
        <translation>Free up space</translation>
    </message>
    <message id="device-he-format_card">
        <source>Format card</source>
        <translation>Format the memory card</translation>
    </message>
    <message id="device-he-check_updates">
        <source>Check updates</source>
        <translation>Check for updates</translation>
    </message>
</context>
</TS>
