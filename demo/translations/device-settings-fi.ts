<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="device-he-storage">
        <source>Storage</source>
        <translation>Tallennustila</translation>
    </message>
    <message id="device-he-internal_storage">
        <source>Mass memory</source>
        <translation>Sisäinen tallennustila</translation>
    </message>
    <message id="device-he-memory_card">
        <source>Memory card</source>
        <translation>Muistikortti</translation>
    </message>
    <message id="device-he-battery">
        <source>Battery</source>
        <translation>Akku</translation>
    </message>
    <message id="device-he-power_saving">
        <source>Power save mode</source>
        <translation>Virransäästö</translation>
    </message>
    <message id="device-he-charge_limit">
        <source>Charging threshold</source>
        <translation>Latausraja</translation>
    </message>
    <message id="device-he-date_time">
        <source>Time and date</source>
        <translation>Päiväys ja aika</translation>
    </message>
    <message id="device-he-time_zone">
        <source>Time zone</source>
        <translation>Aikavyöhyke</translation>
    </message>
    <message id="device-he-language">
        <source>Language</source>
        <translation>Kieli</translation>
    </message>
    <message id="device-he-keyboards">
        <source>Text input</source>
        <translation>Näppäimistöt</translation>
    </message>
    <message id="device-he-updates">
        <source>System updates</source>
        <translation>Järjestelmäpäivitykset</translation>
    </message>
    <message id="device-he-about">
        <source>About product</source>
        <translation>Tietoja laitteesta</translation>
    </message>
    <message id="device-he-licences">
        <source>Legal</source>
        <translation>Lisenssit</translation>
    </message>
    <message id="device-he-printing">
        <source>Printing</source>
        <translation>Tulostus</translation>
    </message>
    <message id="device-he-printers">
        <source>Printers</source>
        <translation>Tulostimet</translation>
    </message>
    <message id="device-he-print_jobs">
        <source>Print jobs</source>
        <translation>Tulostustyöt</translation>
    </message>
    <message id="device-he-free_space">
        <source>Free space</source>
        <translation>Vapauta tilaa</translation>
    </message>
    <message id="device-he-format_card">
        <source>Format card</source>
        <translation>Alusta muistikortti</translation>
    </message>
    <message id="device-he-check_updates">
        <source>Check updates</source>
        <translation>Tarkista päivitykset</translation>
    </message>
</context>
</TS>
