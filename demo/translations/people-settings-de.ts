<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="people-he-accounts">
        <source>Accounts</source>
        <translation>Konten</translation>
    </message>
    <message id="people-he-add_account">
        <source>Add account</source>
        <translation>Konto hinzufügen</translation>
    </message>
    <message id="people-he-sync">
        <source>Sync interval</source>
        <translation>Automatisch abgleichen</translation>
    </message>
    <message id="people-he-apps">
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message id="people-he-default_apps">
        <source>Default apps</source>
        <translation>Standard-Apps</translation>
    </message>
    <message id="people-he-notifications">
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message id="people-he-kids_mode">
        <source>Kids mode</source>
        <translation>Kindermodus</translation>
    </message>
    <message id="people-la-kids_mode_short">
        <source>Limits apps and screen time</source>
        <translation>Begrenzt Apps und Bildschirmzeit</translation>
    </message>
    <message id="people-he-screen_time">
        <source>Screen time</source>
        <translation>Bildschirmzeit</translation>
    </message>
    <message id="people-he-allowed_apps">
        <source>Allowed apps</source>
        <translation>Erlaubte Apps</translation>
    </message>
</context>
</TS>
