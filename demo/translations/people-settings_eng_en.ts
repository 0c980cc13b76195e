<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="people-he-accounts">
        <source>Accounts</source>
        <translation>Accounts</translation>
    </message>
    <message id="people-he-add_account">
        <source>Add account</source>
        <translation>Add account</translation>
    </message>
    <message id="people-he-sync">
        <source>Sync interval</source>
        <translation>Sync interval</translation>
    </message>
    <message id="people-he-apps">
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message id="people-he-default_apps">
        <source>Default apps</source>
        <translation>Default apps</translation>
    </message>
    <message id="people-he-notifications">
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message id="people-he-kids_mode">
        <source>Kids mode</source>
        <translation>Kids mode</translation>
    </message>
    <message id="people-la-kids_mode_short">
        <source>Limits apps and screen time</source>
        <translation>Limits apps and screen time</translation>
    </message>
    <message id="people-he-screen_time">
        <source>Screen time</source>
        <translation>Screen time</translation>
    </message>
    <message id="people-he-allowed_apps">
        <source>Allowed apps</source>
        <translation>Allowed apps</translation>
    </message>
</context>
</TS>
