<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="settings-he-settings">
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="settings-he-connectivity">
        <source>Connectivity</source>
        <translation>Verbindungen</translation>
    </message>
    <message id="settings-he-look">
        <source>Look and feel</source>
        <translation>Anzeige und Ton</translation>
    </message>
    <message id="settings-he-people">
        <source>People and apps</source>
        <translation>Konten und Apps</translation>
    </message>
    <message id="settings-he-security">
        <source>Security</source>
        <translation>Sicherheit und Datenschutz</translation>
    </message>
    <message id="settings-he-device">
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message numerus="yes" id="settings-la-entries">
        <source>%n entries</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message id="settings-bt-details">
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message id="settings-la-no_entries">
        <source>No entries</source>
        <translation>Hier gibt es keine Einstellungen</translation>
    </message>
    <message id="settings-la-short_title">
        <source>Short title</source>
        <translation>Kurztitel</translation>
    </message>
    <message id="settings-la-type">
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message id="settings-la-location">
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message id="settings-la-order">
        <source>Order</source>
        <translation>Reihenfolge</translation>
    </message>
    <message id="settings-la-file">
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message id="settings-la-path">
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message id="settings-la-title_id">
        <source>Translation ID</source>
        <translation>Titel-ID</translation>
    </message>
    <message id="settings-la-short_title_id">
        <source>Short translation ID</source>
        <translation>Kurztitel-ID</translation>
    </message>
    <message id="settings-la-plain_title">
        <source>Plain title</source>
        <translation>Titel ohne ID</translation>
    </message>
    <message id="settings-la-icon">
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message id="settings-la-control_icon">
        <source>Control icon</source>
        <translation>Bediensymbol</translation>
    </message>
    <message id="settings-la-favorite">
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message id="settings-la-source">
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message id="settings-la-target">
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message id="settings-la-service">
        <source>D-Bus service</source>
        <translation>D-Bus-Dienst</translation>
    </message>
    <message id="settings-la-interface">
        <source>D-Bus interface</source>
        <translation>D-Bus-Schnittstelle</translation>
    </message>
    <message id="settings-la-object">
        <source>D-Bus object</source>
        <translation>D-Bus-Objekt</translation>
    </message>
    <message id="settings-la-method">
        <source>D-Bus method</source>
        <translation>D-Bus-Methode</translation>
    </message>
    <message id="settings-la-arguments">
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message id="settings-la-package">
        <source>Package</source>
        <translation>Paket</translation>
    </message>
    <message id="settings-la-yes">
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message id="settings-la-no">
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message id="settings-he-registration">
        <source>Registration</source>
        <translation>Registrierung</translation>
    </message>
    <message id="settings-he-parameters">
        <source>Params</source>
        <translation>Parameter</translation>
    </message>
    <message id="settings-bt-mask">
        <source>Mask</source>
        <translation>Eintrag ausblenden</translation>
    </message>
    <message id="settings-bt-unmask">
        <source>Unmask</source>
        <translation>Einblenden</translation>
    </message>
    <message id="settings-bt-hide">
        <source>Mask file</source>
        <translation>Ausblenden</translation>
    </message>
    <message id="settings-he-files">
        <source>Registration files</source>
        <translation>Registrierungsdateien</translation>
    </message>
    <message id="settings-la-files_help">
        <source>Install, remove or mask files</source>
        <translation>Einträge von Paketen hinzufügen, entfernen oder ausblenden; das Fenster folgt.</translation>
    </message>
    <message id="settings-he-masked_paths">
        <source>Masked paths</source>
        <translation>Ausgeblendete Pfade</translation>
    </message>
    <message id="settings-la-nothing_masked">
        <source>Nothing is masked</source>
        <translation>Nichts ist ausgeblendet</translation>
    </message>
    <message id="settings-la-not_installed">
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message id="settings-la-loading">
        <source>Waiting for scan</source>
        <translation>Wird geladen …</translation>
    </message>
    <message id="settings-la-all_masked">
        <source>All masked</source>
        <translation>Alles ausgeblendet</translation>
    </message>
    <message id="settings-la-requires_group">
        <source>Hidden: not in group %1</source>
        <translation>Nur für die Gruppe %1</translation>
    </message>
    <message id="settings-la-disabled_for_group">
        <source>Hidden: in group %1</source>
        <translation>Nicht für die Gruppe %1</translation>
    </message>
    <message id="settings-he-favorites">
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message id="settings-he-favorite_tiles">
        <source>Grid</source>
        <translation>Schnellzugriff</translation>
    </message>
    <message id="settings-he-favorite_rows">
        <source>List</source>
        <translation>Werte</translation>
    </message>
    <message id="settings-he-favorite_actions">
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message id="settings-la-favorites_default">
        <source>Default selection</source>
        <translation>Standardauswahl</translation>
    </message>
    <message id="settings-la-favorites_modified">
        <source>Changed by user</source>
        <translation>Von dir geändert</translation>
    </message>
    <message id="settings-la-favorites_help">
        <source>Drag, or Ctrl and arrow keys</source>
        <translation>Ziehe Favoriten an ihren Platz, oder bewege sie mit Strg und den Pfeiltasten.</translation>
    </message>
    <message id="settings-la-no_favorites">
        <source>No favorites</source>
        <translation>Noch nichts hier. „Hinzufügen“ zeigt, was zur Auswahl steht.</translation>
    </message>
    <message id="settings-bt-edit">
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message id="settings-bt-add">
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message id="settings-bt-remove">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="settings-he-choose_favorites">
        <source>Choose favorites</source>
        <translation>Favoriten auswählen</translation>
    </message>
    <message id="settings-bt-simple_tiles">
        <source>Simple grid</source>
        <translation>Einfache</translation>
    </message>
    <message id="settings-bt-pages">
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message id="settings-la-nothing_to_choose">
        <source>No potential favorites</source>
        <translation>Keine installierte Einstellung ist von dieser Art.</translation>
    </message>
    <message id="settings-la-action_done">
        <source>Done: %1</source>
        <translation>Erledigt: %1</translation>
    </message>
    <message id="settings-la-action_failed">
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
    <message id="settings-la-action_unanswered">
        <source>No answer: %1</source>
        <translation>Noch keine Antwort: %1</translation>
    </message>
    <message id="settings-la-simple_grid">
        <source>Simple grid</source>
        <translation>Einfache Kachel</translation>
    </message>
    <message id="settings-bt-allowed_apps">
        <source>Allow list</source>
        <translation>Erlaubt</translation>
    </message>
    <message id="settings-bt-autostarted_apps">
        <source>Autostart</source>
        <translation>Autostart</translation>
    </message>
    <message id="settings-la-allowed_only">
        <source>Allow list enabled</source>
        <translation>Nur erlaubte Apps öffnen sich</translation>
    </message>
    <message id="settings-la-autostarted_only">
        <source>Autostart mode enabled</source>
        <translation>Nur diese Apps starten von selbst</translation>
    </message>
    <message id="settings-la-selected_apps">
        <source>%1 of %2</source>
        <translation>%1 von %2 Apps</translation>
    </message>
    <message id="settings-bt-select_all">
        <source>Select all</source>
        <translation>Alle auswählen</translation>
    </message>
    <message id="settings-bt-clear">
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message id="settings-bt-policy_rules">
        <source>Policy rules</source>
        <translation>Firmenregeln</translation>
    </message>
    <message id="settings-bt-selected_only">
        <source>Selected only</source>
        <translation>Nur ausgewählte</translation>
    </message>
    <message id="settings-la-always_allowed">
        <source>Always allowed</source>
        <translation>Immer erlaubt</translation>
    </message>
    <message id="settings-bt-notify">
        <source>Notifications</source>
        <translation>Mitteilungen</translation>
    </message>
    <message id="settings-la-no_apps">
        <source>No applications</source>
        <translation>Keine Apps</translation>
    </message>
    <message id="settings-he-application">
        <source>Application</source>
        <translation>App</translation>
    </message>
    <message id="settings-la-name">
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message id="settings-la-file_id">
        <source>File ID</source>
        <translation>Datei-ID</translation>
    </message>
    <message id="settings-la-icon_mode">
        <source>Icon mode</source>
        <translation>Symbolmodus</translation>
    </message>
    <message id="settings-la-sandboxed">
        <source>Sandboxed</source>
        <translation>Abgeschirmt</translation>
    </message>
    <message id="settings-la-valid">
        <source>Valid</source>
        <translation>Gültig</translation>
    </message>
    <message id="settings-la-section">
        <source>Section</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="settings-he-services">
        <source>Services</source>
        <translation>Plattformdienste</translation>
    </message>
    <message id="settings-la-services_help">
        <source>Give the services faults</source>
        <translation>Zeigt, was geschieht, wenn ein Dienst schlecht antwortet.</translation>
    </message>
    <message id="settings-la-sandboxing">
        <source>Sandboxing</source>
        <translation>Abschirmung</translation>
    </message>
    <message id="settings-la-autostart">
        <source>Autostart</source>
        <translation>Autostart</translation>
    </message>
    <message id="settings-la-notifications">
        <source>Notifications</source>
        <translation>Mitteilungen</translation>
    </message>
    <message id="settings-bt-fault_none">
        <source>No fault</source>
        <translation>Funktioniert</translation>
    </message>
    <message id="settings-bt-fault_slow">
        <source>Slow</source>
        <translation>Antwortet spät</translation>
    </message>
    <message id="settings-bt-fault_fail">
        <source>Fail</source>
        <translation>Scheitert</translation>
    </message>
    <message id="settings-bt-fault_nonsense">
        <source>Nonsense</source>
        <translation>Antwortet Unsinn</translation>
    </message>
    <message id="settings-bt-search">
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message id="settings-la-nothing_found">
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message id="settings-bt-run">
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message id="settings-la-page_errors">
        <source>Page with errors: %1</source>
        <translation>Diese Seite kann nicht angezeigt werden: %1</translation>
    </message>
    <message id="settings-la-service_silent">
        <source>Silent: %1 %2</source>
        <translation>%1: keine Antwort. %2</translation>
    </message>
    <message id="settings-la-service_failing">
        <source>Failing: %1 %2</source>
        <translation>%1: ein Fehler. %2</translation>
    </message>
    <message id="settings-la-service_absent">
        <source>Absent: %1 %2</source>
        <translation>%1: nicht installiert. %2</translation>
    </message>
</context>
</TS>
