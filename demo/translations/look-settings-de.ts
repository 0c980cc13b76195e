<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="look-he-display">
        <source>Display</source>
        <translation>Bildschirm</translation>
    </message>
    <message id="look-he-brightness">
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message id="look-he-text_size">
        <source>Text size</source>
        <translation>Textgröße</translation>
    </message>
    <message id="look-he-display_sleep">
        <source>Sleep timeout</source>
        <translation>Bildschirm aus nach</translation>
    </message>
    <message id="look-he-orientation">
        <source>Orientation</source>
        <translation>Mit dem Gerät drehen</translation>
    </message>
    <message id="look-he-wallpaper">
        <source>Wallpaper</source>
        <translation>Hintergrundbild</translation>
    </message>
    <message id="look-he-home_screen">
        <source>Home screen</source>
        <translation>Startbildschirm</translation>
    </message>
    <message id="look-he-lock_screen">
        <source>Lock screen</source>
        <translation>Sperrbildschirm</translation>
    </message>
    <message id="look-he-sounds">
        <source>Sounds and feedback</source>
        <translation>Töne und Vibration</translation>
    </message>
    <message id="look-la-sounds_short">
        <source>Sounds</source>
        <translation>Töne</translation>
    </message>
    <message id="look-he-volume">
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message id="look-he-ringtone">
        <source>Ringtone</source>
        <translation>Klingelton</translation>
    </message>
    <message id="look-he-vibration">
        <source>Vibra</source>
        <translation>Bei Berührung vibrieren</translation>
    </message>
    <message id="look-he-do_not_disturb">
        <source>Do not disturb</source>
        <translation>Nicht stören</translation>
    </message>
</context>
</TS>
