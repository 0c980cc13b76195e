<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="people-he-accounts">
        <source>Accounts</source>
        <translation>Tilit</translation>
    </message>
    <message id="people-he-add_account">
        <source>Add account</source>
        <translation>Lisää tili</translation>
    </message>
    <message id="people-he-sync">
        <source>Sync interval</source>
        <translation>Synkronoi automaattisesti</translation>
    </message>
    <message id="people-he-apps">
        <source>Apps</source>
        <translation>Sovellukset</translation>
    </message>
    <message id="people-he-default_apps">
        <source>Default apps</source>
        <translation>Oletussovellukset</translation>
    </message>
    <message id="people-he-notifications">
        <source>Notifications</source>
        <translation>Ilmoitukset</translation>
    </message>
    <message id="people-he-kids_mode">
        <source>Kids mode</source>
        <translation>Lasten tila</translation>
    </message>
    <message id="people-la-kids_mode_short">
        <source>Limits apps and screen time</source>
        <translation>Rajaa sovelluksia ja ruutuaikaa</translation>
    </message>
    <message id="people-he-screen_time">
        <source>Screen time</source>
        <translation>Ruutuaika</translation>
    </message>
    <message id="people-he-allowed_apps">
        <source>Allowed apps</source>
        <translation>Sallitut sovellukset</translation>
    </message>
</context>
</TS>
