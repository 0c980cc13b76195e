<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="applications-he-applications">
        <source>Applications</source>
        <translation>Kaikki sovellukset</translation>
    </message>
    <message id="applications-la-applications_short">
        <source>Allow list, autostart, notifications</source>
        <translation>Salliminen, käynnistys, ilmoitukset</translation>
    </message>
    <message id="applications-he-camera">
        <source>Camera settings</source>
        <translation>Kameran asetukset</translation>
    </message>
    <message id="applications-la-camera_short">
        <source>Resolution, location</source>
        <translation>Tarkkuus ja sijainti</translation>
    </message>
    <message id="applications-he-resolution">
        <source>Resolution</source>
        <translation>Tarkkuus</translation>
    </message>
    <message id="applications-he-picture_location">
        <source>Save location</source>
        <translation>Tallenna sijainti kuviin</translation>
    </message>
    <message id="applications-he-maps">
        <source>Map settings</source>
        <translation>Karttojen asetukset</translation>
    </message>
    <message id="applications-la-maps_short">
        <source>Offline maps, units, tolls</source>
        <translation>Ladatut kartat, yksiköt ja tietullit</translation>
    </message>
    <message id="applications-he-offline_maps">
        <source>Offline maps</source>
        <translation>Ladatut kartat</translation>
    </message>
    <message id="applications-he-units">
        <source>Units</source>
        <translation>Yksiköt</translation>
    </message>
    <message id="applications-he-tolls">
        <source>Avoid tolls</source>
        <translation>Vältä tietulleja</translation>
    </message>
    <message id="applications-he-recorder">
        <source>Recorder settings</source>
        <translation>Sanelimen asetukset</translation>
    </message>
    <message id="applications-he-quality">
        <source>Quality</source>
        <translation>Äänenlaatu</translation>
    </message>
</context>
</TS>
