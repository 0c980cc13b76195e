<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="applications-he-applications">
        <source>Applications</source>
        <translation>All apps</translation>
    </message>
    <message id="applications-la-applications_short">
        <source>Allow list, autostart, notifications</source>
        <translation>Who may use, start and notify</translation>
    </message>
    <message id="applications-he-camera">
        <source>Camera settings</source>
        <translation>Camera settings</translation>
    </message>
    <message id="applications-la-camera_short">
        <source>Resolution, location</source>
        <translation>Resolution and location</translation>
    </message>
    <message id="applications-he-resolution">
        <source>Resolution</source>
        <translation>Resolution</translation>
    </message>
    <message id="applications-he-picture_location">
        <source>Save location</source>
        <translation>Save the location in pictures</translation>
    </message>
    <message id="applications-he-maps">
        <source>Map settings</source>
        <translation>Map settings</translation>
    </message>
    <message id="applications-la-maps_short">
        <source>Offline maps, units, tolls</source>
        <translation>Offline maps, units and tolls</translation>
    </message>
    <message id="applications-he-offline_maps">
        <source>Offline maps</source>
        <translation>Offline maps</translation>
    </message>
    <message id="applications-he-units">
        <source>Units</source>
        <translation>Units</translation>
    </message>
    <message id="applications-he-tolls">
        <source>Avoid tolls</source>
        <translation>Avoid toll roads</translation>
    </message>
    <message id="applications-he-recorder">
        <source>Recorder settings</source>
        <translation>Recorder settings</translation>
    </message>
    <message id="applications-he-quality">
        <source>Quality</source>
        <translation>Sound quality</translation>
    </message>
</context>
</TS>
