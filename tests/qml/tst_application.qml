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

    SignalSpy {
        id: addresses

        signalName: "openRequested"
    }

    function manyRows() {
        const rows = [{ path: "system_settings/many", title: "Many", order: 3 }];
        for (let i = 10; i < 70; ++i) {
            rows.push({ path: "system_settings/many/row" + i, type: "bool", title: "Row " + i, order: i });
        }
        return JSON.stringify({ entries: rows });
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
        world.writeEntries("many.json", manyRows());
        installFan();
    }

    function cleanupTestCase() {
        world.removeEntries("many.json");
        world.removeEntries("clock.json");
        world.removeEntries("fan.json");
    }

    function init() {
        tryCompare(tree, "count", 3, 10000);
        app = Qt.createQmlObject(world.application(), test, "Settings.qml");
        addresses.target = Array.from(app.contentData).find(object => object.service === "org.example.Settings");
        tryVerify(() => app.active && addresses.target.owned);
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

    function isInView(row) {
        const top = row.mapToItem(app.contentItem, 0, 0).y;
        return top >= 0 && top + row.height <= app.contentItem.height;
    }

    /// Opens an address as another program does, and waits until the application has received it.
    function openAddress(path) {
        addresses.clear();
        verify(world.open("org.example.Settings", path));
        tryCompare(addresses, "count", 1, 10000);
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
        openAddress(data.path);
        expectShown(data.text);
        tryVerify(() => isHighlighted("Seconds") === (data.tag === "row"));
    }

    function test_addressScrollsToItsRow_data() {
        return [{ tag: "first" }, { tag: "other", page: "system_settings/many" }];
    }

    function test_addressScrollsToItsRow(data) {
        if (data.page) {
            openAddress(data.page);
            expectShown("Row 10");
        }
        for (const row of ["65", "10", "40"]) {
            openAddress("system_settings/many/row" + row);
            tryVerify(() => isHighlighted("Row " + row) && isInView(shown("Row " + row)), 10000, row);
        }
    }

    function test_unknownAddressIsIgnored() {
        world.expectWarning("SettingsNavigation");
        openAddress("system_settings/none/at/all");
        verify(shown("Fan"));
    }

    function test_buttonsHaveNames() {
        compare(shown("‹").Accessible.name, "Back");
        compare(shown("☆").Accessible.name, "Star");
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
