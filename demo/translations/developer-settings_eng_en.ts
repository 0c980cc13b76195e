<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="developer-he-developer">
        <source>Developer</source>
        <translation>Developer</translation>
    </message>
    <message id="developer-he-developer_tools">
        <source>Developer tools</source>
        <translation>Developer tools</translation>
    </message>
    <message id="developer-he-remote_login">
        <source>Remote connection</source>
        <translation>Remote connection</translation>
    </message>
    <message id="developer-he-usb_debugging">
        <source>USB debugging</source>
        <translation>USB debugging</translation>
    </message>
    <message id="developer-he-logs">
        <source>Logs</source>
        <translation>Logs</translation>
    </message>
    <message id="developer-he-factory_tests">
        <source>Factory tests</source>
        <translation>Factory tests</translation>
    </message>
    <message id="developer-he-reset_counters">
        <source>Reset counters</source>
        <translation>Reset counters</translation>
    </message>
    <message id="developer-he-enrolment">
        <source>Enrolment</source>
        <translation>Enrolment</translation>
    </message>
</context>
</TS>
