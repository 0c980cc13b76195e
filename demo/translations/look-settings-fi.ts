<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="look-he-display">
        <source>Display</source>
        <translation>Näyttö</translation>
    </message>
    <message id="look-he-brightness">
        <source>Brightness</source>
        <translation>Kirkkaus</translation>
    </message>
    <message id="look-he-text_size">
        <source>Text size</source>
        <translation>Tekstin koko</translation>
    </message>
    <message id="look-he-display_sleep">
        <source>Sleep timeout</source>
        <translation>Näyttö sammuu</translation>
    </message>
    <message id="look-he-orientation">
        <source>Orientation</source>
        <translation>Käännä laitteen mukana</translation>
    </message>
    <message id="look-he-wallpaper">
        <source>Wallpaper</source>
        <translation>Taustakuva</translation>
    </message>
    <message id="look-he-home_screen">
        <source>Home screen</source>
        <translation>Aloitusnäyttö</translation>
    </message>
    <message id="look-he-lock_screen">
        <source>Lock screen</source>
        <translation>Lukitusnäyttö</translation>
    </message>
    <message id="look-he-sounds">
        <source>Sounds and feedback</source>
        <translation>Äänet ja värinä</translation>
    </message>
    <message id="look-la-sounds_short">
        <source>Sounds</source>
        <translation>Äänet</translation>
    </message>
    <message id="look-he-volume">
        <source>Volume</source>
        <translation>Äänenvoimakkuus</translation>
    </message>
    <message id="look-he-ringtone">
        <source>Ringtone</source>
        <translation>Soittoääni</translation>
    </message>
    <message id="look-he-vibration">
        <source>Vibra</source>
        <translation>Värinä kosketettaessa</translation>
    </message>
    <message id="look-he-do_not_disturb">
        <source>Do not disturb</source>
        <translation>Älä häiritse</translation>
    </message>
</context>
</TS>
