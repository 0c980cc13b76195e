<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="look-he-display">
        <source>Display</source>
        <translation>Display</translation>
    </message>
    <message id="look-he-brightness">
        <source>Brightness</source>
        <translation>Brightness</translation>
    </message>
    <message id="look-he-text_size">
        <source>Text size</source>
        <translation>Text size</translation>
    </message>
    <message id="look-he-display_sleep">
        <source>Sleep timeout</source>
        <translation>Screen turns off after</translation>
    </message>
    <message id="look-he-orientation">
        <source>Orientation</source>
        <translation>Rotate with the device</translation>
    </message>
    <message id="look-he-wallpaper">
        <source>Wallpaper</source>
        <translation>Wallpaper</translation>
    </message>
    <message id="look-he-home_screen">
        <source>Home screen</source>
        <translation>Home screen</translation>
    </message>
    <message id="look-he-lock_screen">
        <source>Lock screen</source>
        <translation>Lock screen</translation>
    </message>
    <message id="look-he-sounds">
        <source>Sounds and feedback</source>
        <translation>Sounds and vibration</translation>
    </message>
    <message id="look-la-sounds_short">
        <source>Sounds</source>
        <translation>Sounds</translation>
    </message>
    <message id="look-he-volume">
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message id="look-he-ringtone">
        <source>Ringtone</source>
        <translation>Ringtone</translation>
    </message>
    <message id="look-he-vibration">
        <source>Vibra</source>
        <translation>Vibrate on touch</translation>
    </message>
    <message id="look-he-do_not_disturb">
        <source>Do not disturb</source>
        <translation>Do not disturb</translation>
    </message>
</context>
</TS>
