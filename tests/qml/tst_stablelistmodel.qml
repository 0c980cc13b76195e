// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtTest 1.2
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

TestCase {
    id: test

    property var completed: []

    name: "StableListModel"
    when: windowShown
    width: 100
    height: 200

    ListView {
        id: page

        anchors.fill: parent
        focus: true
        model: StableListModel {
            sourceModel: SettingsModel {
                path: ["list"]
                depth: 1
            }
        }
        delegate: Text {
            text: object ? object.title : ""
            width: 100
            height: 10
            Component.onCompleted: test.completed.push(object.title)
        }
    }

    SignalSpy {
        id: resets

        target: page.model
        signalName: "modelReset"
    }

    function declared(first, last) {
        const entries = [];
        for (let i = first; i <= last; ++i) {
            entries.push({ path: "list/e" + i, title: "e" + i, order: 10 + i });
        }
        return JSON.stringify({ entries: entries });
    }

    function cleanup() {
        for (const file of ["most.json", "one.json", "rest.json", "above.json"]) {
            world.removeEntries(file);
        }
        tryCompare(page, "count", 0, 10000);
    }

    function test_rowsThatStayKeepTheirPlace() {
        world.writeEntries("most.json", declared(0, 50));
        world.writeEntries("one.json", declared(51, 51));
        world.writeEntries("rest.json", declared(52, 99));
        tryCompare(page, "count", 100, 10000);
        page.currentIndex = 40;
        page.positionViewAtIndex(40, ListView.Center);
        page.forceActiveFocus();
        page.currentItem.forceActiveFocus();
        const item = page.currentItem;
        const place = item.y - page.contentY;
        compare(item.text, "e40");
        verify(item.activeFocus);
        const before = completed.length;
        const shown = completed.slice();
        resets.clear();

        world.removeEntries("one.json");
        world.writeEntries("above.json", JSON.stringify({
            entries: [{ path: "list/above", title: "Above", order: 1 }]
        }));
        tryVerify(() => page.model.data(page.model.index(0, 0), Qt.UserRole + 1).title === "Above", 10000);
        waitForRendering(page);
        compare(page.count, 100);
        compare(resets.count, 0);
        compare(page.currentIndex, 41);
        compare(page.currentItem, item);
        compare(item.text, "e40");
        verify(item.activeFocus);
        compare(item.y - page.contentY, place);
        // The rows that came into view are the only new ones.
        compare(completed.slice(before).filter(title => shown.includes(title)), []);
    }
}
