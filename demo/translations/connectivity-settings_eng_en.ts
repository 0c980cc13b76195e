<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="connectivity-he-flight_mode">
        <source>Flight mode</source>
        <translation>Flight mode</translation>
    </message>
    <message id="connectivity-la-flight_mode_short">
        <source>Turns all radios off</source>
        <translation>Turns all radios off</translation>
    </message>
    <message id="connectivity-he-wlan">
        <source>WLAN</source>
        <translation>WLAN</translation>
    </message>
    <message id="connectivity-he-saved_networks">
        <source>Saved networks</source>
        <translation>Saved networks</translation>
    </message>
    <message id="connectivity-he-add_network">
        <source>Add network</source>
        <translation>Add network</translation>
    </message>
    <message id="connectivity-he-certificates">
        <source>Certificates</source>
        <translation>Certificates</translation>
    </message>
    <message id="connectivity-he-bluetooth">
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message id="connectivity-he-paired_devices">
        <source>Paired devices</source>
        <translation>Paired devices</translation>
    </message>
    <message id="connectivity-he-bluetooth_visibility">
        <source>Visibility</source>
        <translation>Visibility</translation>
    </message>
    <message id="connectivity-he-mobile_network">
        <source>Mobile network</source>
        <translation>Mobile network</translation>
    </message>
    <message id="connectivity-he-sim_cards">
        <source>SIM cards</source>
        <translation>SIM cards</translation>
    </message>
    <message id="connectivity-he-data_counter">
        <source>Data counter</source>
        <translation>Data counter</translation>
    </message>
    <message id="connectivity-he-access_points">
        <source>Data access points</source>
        <translation>Data access points</translation>
    </message>
    <message id="connectivity-he-hotspot">
        <source>Internet sharing</source>
        <translation>Internet sharing</translation>
    </message>
    <message id="connectivity-he-usb_tethering">
        <source>USB tethering</source>
        <translation>USB tethering</translation>
    </message>
    <message id="connectivity-he-vpn">
        <source>VPN</source>
        <translation>VPN</translation>
    </message>
    <message id="connectivity-he-add_vpn">
        <source>Add VPN</source>
        <translation>Add VPN</translation>
    </message>
</context>
</TS>
