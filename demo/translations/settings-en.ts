<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The libvelkasettings authors -->
<!-- SPDX-License-Identifier: LGPL-2.1-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="settings-he-settings">
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message id="settings-he-connectivity">
        <source>Connectivity</source>
        <translation>Connectivity</translation>
    </message>
    <message id="settings-he-look">
        <source>Look and feel</source>
        <translation>Display and sound</translation>
    </message>
    <message id="settings-he-people">
        <source>People and apps</source>
        <translation>Accounts and apps</translation>
    </message>
    <message id="settings-he-security">
        <source>Security</source>
        <translation>Security and privacy</translation>
    </message>
    <message id="settings-he-device">
        <source>Device</source>
        <translation>Device</translation>
    </message>
    <message numerus="yes" id="settings-la-entries">
        <source>%n entries</source>
        <translation>
            <numerusform>%n entry</numerusform>
            <numerusform>%n entries</numerusform>
        </translation>
    </message>
    <message id="settings-bt-details">
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message id="settings-la-no_entries">
        <source>No entries</source>
        <translation>There are no settings here</translation>
    </message>
    <message id="settings-la-short_title">
        <source>Short title</source>
        <translation>Short title</translation>
    </message>
    <message id="settings-la-type">
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message id="settings-la-location">
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message id="settings-la-order">
        <source>Order</source>
        <translation>Order</translation>
    </message>
    <message id="settings-la-file">
        <source>File</source>
        <translation>File</translation>
    </message>
    <message id="settings-la-path">
        <source>Path</source>
        <translation>Path</translation>
    </message>
    <message id="settings-la-title_id">
        <source>Translation ID</source>
        <translation>Title ID</translation>
    </message>
    <message id="settings-la-short_title_id">
        <source>Short translation ID</source>
        <translation>Short title ID</translation>
    </message>
    <message id="settings-la-plain_title">
        <source>Plain title</source>
        <translation>Plain title</translation>
    </message>
    <message id="settings-la-icon">
        <source>Icon</source>
        <translation>Icon</translation>
    </message>
    <message id="settings-la-control_icon">
        <source>Control icon</source>
        <translation>Control icon</translation>
    </message>
    <message id="settings-la-favorite">
        <source>Favorite</source>
        <translation>Favourite</translation>
    </message>
    <message id="settings-la-source">
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message id="settings-la-target">
        <source>Target</source>
        <translation>Target</translation>
    </message>
    <message id="settings-la-service">
        <source>D-Bus service</source>
        <translation>D-Bus service</translation>
    </message>
    <message id="settings-la-interface">
        <source>D-Bus interface</source>
        <translation>D-Bus interface</translation>
    </message>
    <message id="settings-la-object">
        <source>D-Bus object</source>
        <translation>D-Bus object</translation>
    </message>
    <message id="settings-la-method">
        <source>D-Bus method</source>
        <translation>D-Bus method</translation>
    </message>
    <message id="settings-la-arguments">
        <source>Arguments</source>
        <translation>Arguments</translation>
    </message>
    <message id="settings-la-package">
        <source>Package</source>
        <translation>Package</translation>
    </message>
    <message id="settings-la-yes">
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message id="settings-la-no">
        <source>No</source>
        <translation>No</translation>
    </message>
    <message id="settings-he-registration">
        <source>Registration</source>
        <translation>Registration</translation>
    </message>
    <message id="settings-he-parameters">
        <source>Params</source>
        <translation>Parameters</translation>
    </message>
    <message id="settings-bt-mask">
        <source>Mask</source>
        <translation>Hide this entry</translation>
    </message>
    <message id="settings-bt-unmask">
        <source>Unmask</source>
        <translation>Show</translation>
    </message>
    <message id="settings-bt-hide">
        <source>Mask file</source>
        <translation>Hide</translation>
    </message>
    <message id="settings-he-files">
        <source>Registration files</source>
        <translation>Registration files</translation>
    </message>
    <message id="settings-la-files_help">
        <source>Install, remove or mask files</source>
        <translation>Add, remove or hide what packages register; the window follows.</translation>
    </message>
    <message id="settings-he-masked_paths">
        <source>Masked paths</source>
        <translation>Hidden paths</translation>
    </message>
    <message id="settings-la-nothing_masked">
        <source>Nothing is masked</source>
        <translation>Nothing is hidden</translation>
    </message>
    <message id="settings-la-not_installed">
        <source>Not installed</source>
        <translation>Not installed</translation>
    </message>
    <message id="settings-la-loading">
        <source>Waiting for scan</source>
        <translation>Loading…</translation>
    </message>
    <message id="settings-la-all_masked">
        <source>All masked</source>
        <translation>All hidden</translation>
    </message>
    <message id="settings-la-requires_group">
        <source>Hidden: not in group %1</source>
        <translation>Only for the group %1</translation>
    </message>
    <message id="settings-la-disabled_for_group">
        <source>Hidden: in group %1</source>
        <translation>Not for the group %1</translation>
    </message>
    <message id="settings-he-favorites">
        <source>Favorites</source>
        <translation>Favourites</translation>
    </message>
    <message id="settings-he-favorite_tiles">
        <source>Grid</source>
        <translation>Shortcuts</translation>
    </message>
    <message id="settings-he-favorite_rows">
        <source>List</source>
        <translation>Values</translation>
    </message>
    <message id="settings-he-favorite_actions">
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message id="settings-la-favorites_default">
        <source>Default selection</source>
        <translation>Default selection</translation>
    </message>
    <message id="settings-la-favorites_modified">
        <source>Changed by user</source>
        <translation>Changed by you</translation>
    </message>
    <message id="settings-la-favorites_help">
        <source>Drag, or Ctrl and arrow keys</source>
        <translation>Drag favourites to their places, or move them with Ctrl and the arrow keys.</translation>
    </message>
    <message id="settings-la-no_favorites">
        <source>No favorites</source>
        <translation>Nothing here yet. “Add” shows what you can choose.</translation>
    </message>
    <message id="settings-bt-edit">
        <source>Edit</source>
        <translation>Edit</translation>
    </message>
    <message id="settings-bt-add">
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message id="settings-bt-remove">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="settings-he-choose_favorites">
        <source>Choose favorites</source>
        <translation>Choose favourites</translation>
    </message>
    <message id="settings-bt-simple_tiles">
        <source>Simple grid</source>
        <translation>Simple</translation>
    </message>
    <message id="settings-bt-pages">
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message id="settings-la-nothing_to_choose">
        <source>No potential favorites</source>
        <translation>No installed setting is of this kind.</translation>
    </message>
    <message id="settings-la-action_done">
        <source>Done: %1</source>
        <translation>Done: %1</translation>
    </message>
    <message id="settings-la-action_failed">
        <source>Failed: %1</source>
        <translation>This has failed: %1</translation>
    </message>
    <message id="settings-la-action_unanswered">
        <source>No answer: %1</source>
        <translation>No answer yet: %1</translation>
    </message>
    <message id="settings-la-simple_grid">
        <source>Simple grid</source>
        <translation>Simple tile</translation>
    </message>
    <message id="settings-bt-allowed_apps">
        <source>Allow list</source>
        <translation>Allowed</translation>
    </message>
    <message id="settings-bt-autostarted_apps">
        <source>Autostart</source>
        <translation>Autostart</translation>
    </message>
    <message id="settings-la-allowed_only">
        <source>Allow list enabled</source>
        <translation>Only allowed apps can be opened</translation>
    </message>
    <message id="settings-la-autostarted_only">
        <source>Autostart mode enabled</source>
        <translation>Only these apps start by themselves</translation>
    </message>
    <message id="settings-la-selected_apps">
        <source>%1 of %2</source>
        <translation>%1 of %2 apps</translation>
    </message>
    <message id="settings-bt-select_all">
        <source>Select all</source>
        <translation>Select all</translation>
    </message>
    <message id="settings-bt-clear">
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message id="settings-bt-policy_rules">
        <source>Policy rules</source>
        <translation>Company rules</translation>
    </message>
    <message id="settings-bt-selected_only">
        <source>Selected only</source>
        <translation>Selected only</translation>
    </message>
    <message id="settings-la-always_allowed">
        <source>Always allowed</source>
        <translation>Always allowed</translation>
    </message>
    <message id="settings-bt-notify">
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message id="settings-la-no_apps">
        <source>No applications</source>
        <translation>No apps</translation>
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
        <translation>File ID</translation>
    </message>
    <message id="settings-la-icon_mode">
        <source>Icon mode</source>
        <translation>Icon mode</translation>
    </message>
    <message id="settings-la-sandboxed">
        <source>Sandboxed</source>
        <translation>Sandboxed</translation>
    </message>
    <message id="settings-la-valid">
        <source>Valid</source>
        <translation>Valid file</translation>
    </message>
    <message id="settings-la-section">
        <source>Section</source>
        <translation>Settings</translation>
    </message>
    <message id="settings-he-services">
        <source>Services</source>
        <translation>Platform services</translation>
    </message>
    <message id="settings-la-services_help">
        <source>Give the services faults</source>
        <translation>See what happens when a service answers badly.</translation>
    </message>
    <message id="settings-la-sandboxing">
        <source>Sandboxing</source>
        <translation>Sandboxing</translation>
    </message>
    <message id="settings-la-autostart">
        <source>Autostart</source>
        <translation>Autostart</translation>
    </message>
    <message id="settings-la-notifications">
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message id="settings-bt-fault_none">
        <source>No fault</source>
        <translation>Works</translation>
    </message>
    <message id="settings-bt-fault_slow">
        <source>Slow</source>
        <translation>Answers late</translation>
    </message>
    <message id="settings-bt-fault_fail">
        <source>Fail</source>
        <translation>Fails</translation>
    </message>
    <message id="settings-bt-fault_nonsense">
        <source>Nonsense</source>
        <translation>Answers nonsense</translation>
    </message>
    <message id="settings-bt-search">
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message id="settings-la-nothing_found">
        <source>Nothing found</source>
        <translation>Nothing found</translation>
    </message>
    <message id="settings-bt-run">
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message id="settings-la-page_errors">
        <source>Page with errors: %1</source>
        <translation>This page cannot be shown: %1</translation>
    </message>
    <message id="settings-la-service_silent">
        <source>Silent: %1 %2</source>
        <translation>%1: no answer. %2</translation>
    </message>
    <message id="settings-la-service_failing">
        <source>Failing: %1 %2</source>
        <translation>%1: an error. %2</translation>
    </message>
    <message id="settings-la-service_absent">
        <source>Absent: %1 %2</source>
        <translation>%1: not installed. %2</translation>
    </message>
</context>
</TS>
