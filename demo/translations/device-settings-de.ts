<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="device-he-storage">
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message id="device-he-internal_storage">
        <source>Mass memory</source>
        <translation>Interner Speicher</translation>
    </message>
    <message id="device-he-memory_card">
        <source>Memory card</source>
        <translation>Speicherkarte</translation>
    </message>
    <message id="device-he-battery">
        <source>Battery</source>
        <translation>Akku</translation>
    </message>
    <message id="device-he-power_saving">
        <source>Power save mode</source>
        <translation>Energiesparmodus</translation>
    </message>
    <message id="device-he-charge_limit">
        <source>Charging threshold</source>
        <translation>Ladegrenze</translation>
    </message>
    <message id="device-he-date_time">
        <source>Time and date</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message id="device-he-time_zone">
        <source>Time zone</source>
        <translation>Zeitzone</translation>
    </message>
    <message id="device-he-language">
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message id="device-he-keyboards">
        <source>Text input</source>
        <translation>Tastaturen</translation>
    </message>
    <message id="device-he-updates">
        <source>System updates</source>
        <translation>Systemaktualisierungen</translation>
    </message>
    <message id="device-he-about">
        <source>About product</source>
        <translation>Über dieses Gerät</translation>
    </message>
    <message id="device-he-licences">
        <source>Legal</source>
        <translation>Lizenzen</translation>
    </message>
    <message id="device-he-printing">
        <source>Printing</source>
        <translation>Drucken</translation>
    </message>
    <message id="device-he-printers">
        <source>Printers</source>
        <translation>Drucker</translation>
    </message>
    <message id="device-he-print_jobs">
        <source>Print jobs</source>
        <translation>Druckaufträge</translation>
    </message>
    <message id="device-he-free_space">
        <source>Free space</source>
        <translation>Speicherplatz freigeben</translation>
    </message>
    <message id="device-he-format_card">
        <source>Format card</source>
        <translation>Speicherkarte formatieren</translation>
    </message>
    <message id="device-he-check_updates">
        <source>Check updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
</context>
</TS>
