// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtTest 1.2
import com.velka.settings 1.0

/// Uses the Settings application of README.md with mouse and keyboard.
TestCase {
    id: test

    property var app: null

    name: "Application"
    when: windowShown

    SettingsModel {
        id: tree

        path: ["system_settings"]
        depth: 1
    }

    function initTestCase() {
        world.writePage("/usr/share/example-clock/Alarms.qml", "import QtQuick 2.15\nText { text: 'All alarms' }");
        world.writePage("/usr/share/example-clock/Broken.qml", "import QtQuick 2.15\nItm { }");
        world.writeEntries("clock.json", JSON.stringify({ entries: [
            { path: "system_settings", title: "Settings" },
            { path: "system_settings/clock", title: "<b>Clock</b>", order: 1 },
            { path: "system_settings/clock/alarms", type: "page", title: "Alarms", order: 1,
              params: { source: "/usr/share/example-clock/Alarms.qml" } },
            { path: "system_settings/clock/broken", type: "page", title: "Broken", order: 2,
              params: { source: "/usr/share/example-clock/Broken.qml" } },
            { path: "system_settings/clock/seconds", type: "bool", title: "Seconds", order: 3 }] }));
        installFan();
    }

    function cleanupTestCase() {
        world.removeEntries("clock.json");
        world.removeEntries("fan.json");
    }

    function init() {
        tryCompare(tree, "count", 2, 10000);
        app = Qt.createQmlObject(world.application(), test, "Settings.qml");
        tryVerify(() => app.active);
        tryVerify(() => shown("<b>Clock</b>") !== null);
    }

    function cleanup() {
        app.destroy();
        tryCompare(test, "app", null);
    }

    function installFan() {
        world.writeEntries("fan.json", JSON.stringify({ entries: [
            { path: "system_settings/fan", title: "Fan", order: 2 },
            { path: "system_settings/fan/speed", title: "Speed" }] }));
    }

    /// Returns the visible item with a text, or null.
    function shown(text, item = app.header.parent) {
        if (!item.visible) {
            return null;
        }
        if (item.text === text) {
            return item;
        }
        for (let i = 0; i < item.children.length; ++i) {
            const found = shown(text, item.children[i]);
            if (found) {
                return found;
            }
        }
        return null;
    }

    function isHighlighted(text) {
        const row = shown(text);
        return row !== null && row.highlighted;
    }

    function tap(text) {
        tryVerify(() => shown(text) !== null, 5000, text);
        mouseClick(shown(text));
    }

    function expectShown(text) {
        tryVerify(() => shown(text) !== null, 10000, text);
    }

    function expectHidden(text) {
        tryVerify(() => shown(text) === null, 10000, text);
    }

    function test_opensPagesAndGoesBack() {
        tap("<b>Clock</b>");
        expectShown("Settings › <b>Clock</b>");
        tap("Alarms");
        expectShown("All alarms");
        expectShown("Settings › <b>Clock</b> › Alarms");
        expectHidden("Seconds");
        tap("‹");
        expectShown("Seconds");
        expectHidden("All alarms");
        tap("‹");
        expectShown("Fan");
        verify(!shown("‹").enabled);
    }

    function test_titlesAreNoMarkup() {
        compare(shown("<b>Clock</b>").contentItem.textFormat, Text.PlainText);
        tap("<b>Clock</b>");
        expectShown("Settings › <b>Clock</b>");
        compare(shown("Settings › <b>Clock</b>").textFormat, Text.PlainText);
    }

    function test_rowsFollowTheKeyboard() {
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Space);
        expectShown("Settings › Fan");
    }

    function test_choosesFavorites() {
        tap("<b>Clock</b>");
        tap("☆");
        expectShown("★");
        tryVerify(() => world.dconf(["read", "/apps/velka-settings/favorites"]).includes("'system_settings/clock'"));
        tap("★");
        expectShown("☆");
    }

    function test_otherProgramsOpenAddresses_data() {
        return [
            { tag: "page", path: "system_settings/clock/alarms", text: "All alarms" },
            { tag: "row", path: "system_settings/clock/seconds", text: "Settings › <b>Clock</b>" }
        ];
    }

    function test_otherProgramsOpenAddresses(data) {
        verify(world.open("org.example.Settings", data.path));
        expectShown(data.text);
        tryVerify(() => isHighlighted("Seconds") === (data.tag === "row"));
    }

    function test_rowsAndPagesOfRemovedEntriesDisappear() {
        tap("Fan");
        expectShown("Speed");
        world.removeEntries("fan.json");
        expectShown("<b>Clock</b>");
        expectHidden("Fan");
        installFan();
        expectShown("Fan");
    }

    function test_errorsOfPagesAreShown() {
        world.expectWarning("EntryPage: can't show the page of");
        tap("<b>Clock</b>");
        tap("Broken");
        expectShown("Itm is not a type");
        tap("‹");
        expectShown("Broken");
    }
}
