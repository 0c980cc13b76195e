<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="applications-he-applications">
        <source>Applications</source>
        <translation>Alle Apps</translation>
    </message>
    <message id="applications-la-applications_short">
        <source>Allow list, autostart, notifications</source>
        <translation>Erlaubnis, Start, Mitteilungen</translation>
    </message>
    <message id="applications-he-camera">
        <source>Camera settings</source>
        <translation>Kameraeinstellungen</translation>
    </message>
    <message id="applications-la-camera_short">
        <source>Resolution, location</source>
        <translation>Auflösung und Standort</translation>
    </message>
    <message id="applications-he-resolution">
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message id="applications-he-picture_location">
        <source>Save location</source>
        <translation>Standort in Bildern speichern</translation>
    </message>
    <message id="applications-he-maps">
        <source>Map settings</source>
        <translation>Karteneinstellungen</translation>
    </message>
    <message id="applications-la-maps_short">
        <source>Offline maps, units, tolls</source>
        <translation>Offline-Karten, Einheiten und Maut</translation>
    </message>
    <message id="applications-he-offline_maps">
        <source>Offline maps</source>
        <translation>Offline-Karten</translation>
    </message>
    <message id="applications-he-units">
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message id="applications-he-tolls">
        <source>Avoid tolls</source>
        <translation>Mautstraßen meiden</translation>
    </message>
    <message id="applications-he-recorder">
        <source>Recorder settings</source>
        <translation>Recorder-Einstellungen</translation>
    </message>
    <message id="applications-he-quality">
        <source>Quality</source>
        <translation>Tonqualität</translation>
    </message>
</context>
</TS>
