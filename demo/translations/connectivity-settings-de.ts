<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="connectivity-he-flight_mode">
        <source>Flight mode</source>
        <translation>Flugmodus</translation>
    </message>
    <message id="connectivity-la-flight_mode_short">
        <source>Turns all radios off</source>
        <translation>Schaltet alle Funkmodule aus</translation>
    </message>
    <message id="connectivity-he-wlan">
        <source>WLAN</source>
        <translation>WLAN</translation>
    </message>
    <message id="connectivity-he-saved_networks">
        <source>Saved networks</source>
        <translation>Gespeicherte Netzwerke</translation>
    </message>
    <message id="connectivity-he-add_network">
        <source>Add network</source>
        <translation>Netzwerk hinzufügen</translation>
    </message>
    <message id="connectivity-he-certificates">
        <source>Certificates</source>
        <translation>Zertifikate</translation>
    </message>
    <message id="connectivity-he-bluetooth">
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message id="connectivity-he-paired_devices">
        <source>Paired devices</source>
        <translation>Gekoppelte Geräte</translation>
    </message>
    <message id="connectivity-he-bluetooth_visibility">
        <source>Visibility</source>
        <translation>Für andere Geräte sichtbar</translation>
    </message>
    <message id="connectivity-he-mobile_network">
        <source>Mobile network</source>
        <translation>Mobilfunknetz</translation>
    </message>
    <message id="connectivity-he-sim_cards">
        <source>SIM cards</source>
        <translation>SIM-Karten</translation>
    </message>
    <message id="connectivity-he-data_counter">
        <source>Data counter</source>
        <translation>Datenverbrauch</translation>
    </message>
    <message id="connectivity-he-access_points">
        <source>Data access points</source>
        <translation>Zugangspunkte</translation>
    </message>
    <message id="connectivity-he-hotspot">
        <source>Internet sharing</source>
        <translation>Internetfreigabe</translation>
    </message>
    <message id="connectivity-he-usb_tethering">
        <source>USB tethering</source>
        <translation>USB-Freigabe</translation>
    </message>
    <message id="connectivity-he-vpn">
        <source>VPN</source>
        <translation>VPN</translation>
    </message>
    <message id="connectivity-he-add_vpn">
        <source>Add VPN</source>
        <translation>Verbindung hinzufügen</translation>
    </message>
</context>
</TS>
