<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="settings-he-settings">
        <source>Settings</source>
        <translation>Asetukset</translation>
    </message>
    <message id="settings-he-connectivity">
        <source>Connectivity</source>
        <translation>Yhteydet</translation>
    </message>
    <message id="settings-he-look">
        <source>Look and feel</source>
        <translation>Näyttö ja äänet</translation>
    </message>
    <message id="settings-he-people">
        <source>People and apps</source>
        <translation>Tilit ja sovellukset</translation>
    </message>
    <message id="settings-he-security">
        <source>Security</source>
        <translation>Tietoturva ja yksityisyys</translation>
    </message>
    <message id="settings-he-device">
        <source>Device</source>
        <translation>Laite</translation>
    </message>
    <message numerus="yes" id="settings-la-entries">
        <source>%n entries</source>
        <translation>
            <numerusform>%n asetus</numerusform>
            <numerusform>%n asetusta</numerusform>
        </translation>
    </message>
    <message id="settings-bt-details">
        <source>Details</source>
        <translation>Tiedot</translation>
    </message>
    <message id="settings-la-no_entries">
        <source>No entries</source>
        <translation>Täällä ei ole asetuksia</translation>
    </message>
    <message id="settings-la-short_title">
        <source>Short title</source>
        <translation>Lyhyt otsikko</translation>
    </message>
    <message id="settings-la-type">
        <source>Type</source>
        <translation>Tyyppi</translation>
    </message>
    <message id="settings-la-location">
        <source>Location</source>
        <translation>Sijainti</translation>
    </message>
    <message id="settings-la-order">
        <source>Order</source>
        <translation>Järjestys</translation>
    </message>
    <message id="settings-la-file">
        <source>File</source>
        <translation>Tiedosto</translation>
    </message>
    <message id="settings-la-path">
        <source>Path</source>
        <translation>Polku</translation>
    </message>
    <message id="settings-la-title_id">
        <source>Translation ID</source>
        <translation>Otsikon tunniste</translation>
    </message>
    <message id="settings-la-short_title_id">
        <source>Short translation ID</source>
        <translation>Lyhyen otsikon tunniste</translation>
    </message>
    <message id="settings-la-plain_title">
        <source>Plain title</source>
        <translation>Otsikko sellaisenaan</translation>
    </message>
    <message id="settings-la-icon">
        <source>Icon</source>
        <translation>Kuvake</translation>
    </message>
    <message id="settings-la-control_icon">
        <source>Control icon</source>
        <translation>Ohjaimen kuvake</translation>
    </message>
    <message id="settings-la-favorite">
        <source>Favorite</source>
        <translation>Suosikki</translation>
    </message>
    <message id="settings-la-source">
        <source>Source</source>
        <translation>Lähde</translation>
    </message>
    <message id="settings-la-target">
        <source>Target</source>
        <translation>Kohde</translation>
    </message>
    <message id="settings-la-service">
        <source>D-Bus service</source>
        <translation>D-Bus-palvelu</translation>
    </message>
    <message id="settings-la-interface">
        <source>D-Bus interface</source>
        <translation>D-Bus-rajapinta</translation>
    </message>
    <message id="settings-la-object">
        <source>D-Bus object</source>
        <translation>D-Bus-olio</translation>
    </message>
    <message id="settings-la-method">
        <source>D-Bus method</source>
        <translation>D-Bus-metodi</translation>
    </message>
    <message id="settings-la-arguments">
        <source>Arguments</source>
        <translation>Argumentit</translation>
    </message>
    <message id="settings-la-package">
        <source>Package</source>
        <translation>Paketti</translation>
    </message>
    <message id="settings-la-yes">
        <source>Yes</source>
        <translation>Kyllä</translation>
    </message>
    <message id="settings-la-no">
        <source>No</source>
        <translation>Ei</translation>
    </message>
    <message id="settings-he-registration">
        <source>Registration</source>
        <translation>Rekisteröinti</translation>
    </message>
    <message id="settings-he-parameters">
        <source>Params</source>
        <translation>Parametrit</translation>
    </message>
    <message id="settings-bt-mask">
        <source>Mask</source>
        <translation>Piilota asetus</translation>
    </message>
    <message id="settings-bt-unmask">
        <source>Unmask</source>
        <translation>Näytä</translation>
    </message>
    <message id="settings-bt-hide">
        <source>Mask file</source>
        <translation>Piilota</translation>
    </message>
    <message id="settings-he-files">
        <source>Registration files</source>
        <translation>Rekisteröintitiedostot</translation>
    </message>
    <message id="settings-la-files_help">
        <source>Install, remove or mask files</source>
        <translation>Lisää, poista tai piilota pakettien rekisteröimiä asetuksia. Ikkuna seuraa mukana.</translation>
    </message>
    <message id="settings-he-masked_paths">
        <source>Masked paths</source>
        <translation>Piilotetut polut</translation>
    </message>
    <message id="settings-la-nothing_masked">
        <source>Nothing is masked</source>
        <translation>Mitään ei ole piilotettu</translation>
    </message>
    <message id="settings-la-not_installed">
        <source>Not installed</source>
        <translation>Ei asennettu</translation>
    </message>
    <message id="settings-la-loading">
        <source>Waiting for scan</source>
        <translation>Ladataan…</translation>
    </message>
    <message id="settings-la-all_masked">
        <source>All masked</source>
        <translation>Kaikki piilotettu</translation>
    </message>
    <message id="settings-la-requires_group">
        <source>Hidden: not in group %1</source>
        <translation>Vain ryhmälle %1</translation>
    </message>
    <message id="settings-la-disabled_for_group">
        <source>Hidden: in group %1</source>
        <translation>Ei ryhmälle %1</translation>
    </message>
    <message id="settings-he-favorites">
        <source>Favorites</source>
        <translation>Suosikit</translation>
    </message>
    <message id="settings-he-favorite_tiles">
        <source>Grid</source>
        <translation>Pikavalinnat</translation>
    </message>
    <message id="settings-he-favorite_rows">
        <source>List</source>
        <translation>Arvot</translation>
    </message>
    <message id="settings-he-favorite_actions">
        <source>Actions</source>
        <translation>Toiminnot</translation>
    </message>
    <message id="settings-la-favorites_default">
        <source>Default selection</source>
        <translation>Oletusvalinta</translation>
    </message>
    <message id="settings-la-favorites_modified">
        <source>Changed by user</source>
        <translation>Muokkaamasi valinta</translation>
    </message>
    <message id="settings-la-favorites_help">
        <source>Drag, or Ctrl and arrow keys</source>
        <translation>Vedä suosikit paikoilleen tai siirrä niitä Ctrl- ja nuolinäppäimillä.</translation>
    </message>
    <message id="settings-la-no_favorites">
        <source>No favorites</source>
        <translation>Täällä ei ole vielä mitään. Valitse suosikkeja painamalla ”Lisää”.</translation>
    </message>
    <message id="settings-bt-edit">
        <source>Edit</source>
        <translation>Muokkaa</translation>
    </message>
    <message id="settings-bt-add">
        <source>Add</source>
        <translation>Lisää</translation>
    </message>
    <message id="settings-bt-remove">
        <source>Remove</source>
        <translation>Poista</translation>
    </message>
    <message id="settings-he-choose_favorites">
        <source>Choose favorites</source>
        <translation>Valitse suosikit</translation>
    </message>
    <message id="settings-bt-simple_tiles">
        <source>Simple grid</source>
        <translation>Yksinkertaiset</translation>
    </message>
    <message id="settings-bt-pages">
        <source>Pages</source>
        <translation>Sivut</translation>
    </message>
    <message id="settings-la-nothing_to_choose">
        <source>No potential favorites</source>
        <translation>Mikään asennettu asetus ei ole tätä lajia.</translation>
    </message>
    <message id="settings-la-action_done">
        <source>Done: %1</source>
        <translation>Valmis: %1</translation>
    </message>
    <message id="settings-la-action_failed">
        <source>Failed: %1</source>
        <translation>Epäonnistui: %1</translation>
    </message>
    <message id="settings-la-action_unanswered">
        <source>No answer: %1</source>
        <translation>Ei vielä vastausta: %1</translation>
    </message>
    <message id="settings-la-simple_grid">
        <source>Simple grid</source>
        <translation>Yksinkertainen ruutu</translation>
    </message>
    <message id="settings-bt-allowed_apps">
        <source>Allow list</source>
        <translation>Sallitut</translation>
    </message>
    <message id="settings-bt-autostarted_apps">
        <source>Autostart</source>
        <translation>Käynnistyvät</translation>
    </message>
    <message id="settings-la-allowed_only">
        <source>Allow list enabled</source>
        <translation>Vain sallitut sovellukset avautuvat</translation>
    </message>
    <message id="settings-la-autostarted_only">
        <source>Autostart mode enabled</source>
        <translation>Vain nämä sovellukset käynnistyvät itse</translation>
    </message>
    <message id="settings-la-selected_apps">
        <source>%1 of %2</source>
        <translation>%1/%2 sovellusta</translation>
    </message>
    <message id="settings-bt-select_all">
        <source>Select all</source>
        <translation>Valitse kaikki</translation>
    </message>
    <message id="settings-bt-clear">
        <source>Clear</source>
        <translation>Tyhjennä</translation>
    </message>
    <message id="settings-bt-policy_rules">
        <source>Policy rules</source>
        <translation>Yrityksen säännöt</translation>
    </message>
    <message id="settings-bt-selected_only">
        <source>Selected only</source>
        <translation>Vain valitut</translation>
    </message>
    <message id="settings-la-always_allowed">
        <source>Always allowed</source>
        <translation>Aina sallittu</translation>
    </message>
    <message id="settings-bt-notify">
        <source>Notifications</source>
        <translation>Ilmoitukset</translation>
    </message>
    <message id="settings-la-no_apps">
        <source>No applications</source>
        <translation>Ei sovelluksia</translation>
    </message>
    <message id="settings-he-application">
        <source>Application</source>
        <translation>Sovellus</translation>
    </message>
    <message id="settings-la-name">
        <source>Name</source>
        <translation>Nimi</translation>
    </message>
    <message id="settings-la-file_id">
        <source>File ID</source>
        <translation>Tiedostotunniste</translation>
    </message>
    <message id="settings-la-icon_mode">
        <source>Icon mode</source>
        <translation>Kuvaketila</translation>
    </message>
    <message id="settings-la-sandboxed">
        <source>Sandboxed</source>
        <translation>Eristetty</translation>
    </message>
    <message id="settings-la-valid">
        <source>Valid</source>
        <translation>Kelvollinen</translation>
    </message>
    <message id="settings-la-section">
        <source>Section</source>
        <translation>Asetukset</translation>
    </message>
    <message id="settings-he-services">
        <source>Services</source>
        <translation>Alustan palvelut</translation>
    </message>
    <message id="settings-la-services_help">
        <source>Give the services faults</source>
        <translation>Katso, mitä tapahtuu, kun palvelu vastaa huonosti.</translation>
    </message>
    <message id="settings-la-sandboxing">
        <source>Sandboxing</source>
        <translation>Eristys</translation>
    </message>
    <message id="settings-la-autostart">
        <source>Autostart</source>
        <translation>Käynnistys</translation>
    </message>
    <message id="settings-la-notifications">
        <source>Notifications</source>
        <translation>Ilmoitukset</translation>
    </message>
    <message id="settings-bt-fault_none">
        <source>No fault</source>
        <translation>Toimii</translation>
    </message>
    <message id="settings-bt-fault_slow">
        <source>Slow</source>
        <translation>Vastaa myöhään</translation>
    </message>
    <message id="settings-bt-fault_fail">
        <source>Fail</source>
        <translation>Epäonnistuu</translation>
    </message>
    <message id="settings-bt-fault_nonsense">
        <source>Nonsense</source>
        <translation>Vastaa mitä sattuu</translation>
    </message>
    <message id="settings-bt-search">
        <source>Search</source>
        <translation>Haku</translation>
    </message>
    <message id="settings-la-nothing_found">
        <source>Nothing found</source>
        <translation>Ei löytynyt mitään</translation>
    </message>
    <message id="settings-bt-run">
        <source>Run</source>
        <translation>Suorita</translation>
    </message>
    <message id="settings-la-page_errors">
        <source>Page with errors: %1</source>
        <translation>Sivua ei voi näyttää: %1</translation>
    </message>
    <message id="settings-la-service_silent">
        <source>Silent: %1 %2</source>
        <translation>%1: ei vastausta. %2</translation>
    </message>
    <message id="settings-la-service_failing">
        <source>Failing: %1 %2</source>
        <translation>%1: virhe. %2</translation>
    </message>
    <message id="settings-la-service_absent">
        <source>Absent: %1 %2</source>
        <translation>%1: ei asennettu. %2</translation>
    </message>
</context>
</TS>
