// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtTest 1.2
import com.velka.settings 1.0

TestCase {
    id: test

    name: "SettingsModel"
    when: windowShown

    ListView {
        id: page

        width: 100
        height: 1000
        model: SettingsModel {
            path: ["page"]
            depth: 2
        }
        section.property: "category"
        delegate: Text {
            objectName: object.name
            text: object.title + " " + depth
            width: 100
            height: 10
        }
    }

    SignalSpy {
        id: counts

        target: page.model
        signalName: "countChanged"
    }

    function cleanup() {
        world.removeEntries("one.json");
        world.removeEntries("two.json");
        tryCompare(page, "count", 0, 10000);
    }

    function test_1_pageFollowsFiles() {
        compare(page.count, 0);
        compare(page.model.objectAt(0), null);
        counts.clear();
        world.writeEntries("one.json", JSON.stringify({
            entries: [
                { path: "page/sound", title: "Sound", order: 2 },
                { path: "page/sound/volume", title: "Volume", order: 2 },
                { path: "page/sound/silent", title: "Silent", order: 1 },
                { path: "page/display/brightness", title: "Brightness" }
            ]
        }));
        tryCompare(page, "count", 3, 10000);
        compare(counts.count, 1);
        compare(texts(), ["Silent 2", "Volume 2", "Brightness 2"]);

        world.writeEntries("two.json", JSON.stringify({ entries: [{ path: "page/display", order: 1, title: "Display" }] }));
        tryVerify(() => page.itemAtIndex(0) !== null && page.itemAtIndex(0).text === "Brightness 2", 10000);
        compare(texts(), ["Brightness 2", "Silent 2", "Volume 2"]);
        compare(page.currentSection, "Display");
    }

    function test_2_nodes() {
        world.writeEntries("one.json", JSON.stringify({
            entries: [{ path: "page/sound/volume", title: "Volume", icon: "audio", order: 7, params: { list: [1, "x"] } }]
        }));
        tryCompare(page, "count", 1, 10000);
        const node = page.model.objectAt(0);
        compare(node.name, "volume");
        compare(node.type, "section");
        compare(node.title, "Volume");
        compare(node.shortTitle, "");
        compare(node.icon, "audio");
        compare(node.controlIcon, "");
        compare(node.location(), ["page", "sound", "volume"]);
        compare(node.location(page.model.objectForPath("sound")), ["volume"]);
        compare(node.data().params.list, [1, "x"]);
        compare(node.data().from_file, "one.json");
        compare(page.model.objectForPath("sound").count(), 1);
        compare(page.model.objectForPath("sound").count(-1), 1);
        compare(page.model.objectForPath("sound/none"), null);
    }

    function texts() {
        const shown = [];
        for (let row = 0; row < page.count; ++row) {
            shown.push(page.itemAtIndex(row).text);
        }
        return shown;
    }
}
