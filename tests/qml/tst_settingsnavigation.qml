// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtTest 1.2
import com.velka.settings 1.0
import com.velka.settings.toolkit 1.0

Item {
    id: window

    readonly property string aboutPage: Qt.resolvedUrl("pages/AboutPage.qml").toString().replace("file://", "")

    width: 100
    height: 200

    SettingsNavigation {
        id: navigation

        root: "nav"
    }

    SettingsEntry {
        id: current

        path: navigation.current
    }

    // A list for a section, a page for a page
    ListView {
        id: list

        anchors.fill: parent
        visible: current.type !== "page"
        model: StableListModel {
            sourceModel: SettingsModel {
                path: navigation.current.split("/")
                depth: 1
            }
        }
        delegate: Text {
            readonly property string path: object ? object.location().join("/") : ""

            width: 100
            height: 20
            text: object ? object.title : ""

            MouseArea {
                anchors.fill: parent
                onClicked: navigation.open(parent.path)
            }
        }
    }
    EntryPage {
        id: page

        anchors.fill: parent
        path: current.type === "page" ? navigation.current : ""
    }

    TestCase {
        name: "SettingsNavigation"
        when: windowShown

        SignalSpy {
            id: closed

            target: navigation
            signalName: "closed"
        }

        function initTestCase() {
            world.writeEntries("nav.json", JSON.stringify({ entries: [
                { path: "nav/sound", title: "Sound" },
                { path: "nav/sound/volume", type: "integer", title: "Volume" },
                { path: "nav/about", type: "page", title: "About", params: { source: window.aboutPage } }
            ] }));
            tryCompare(list, "count", 2, 10000);
        }

        function cleanup() {
            verify(navigation.open("nav"));
            closed.clear();
        }

        function test_clickOpensThePage() {
            waitForRendering(list);
            mouseClick(list, 10, 10);
            tryCompare(page, "status", EntryPage.Ready);
            compare(navigation.paths, ["nav", "nav/about"]);
            compare(page.item.title, "About");
            compare(page.item.width, 100);
            verify(!list.visible);
            verify(navigation.back());
            compare(page.status, EntryPage.Null);
            verify(list.visible);
        }

        function test_addressOfAControlShowsItsRow() {
            verify(navigation.open("nav/sound/volume"));
            compare(navigation.row, "nav/sound/volume");
            compare(current.breadcrumb.map(step => step.title), ["!!nav", "Sound"]);
            tryCompare(list, "count", 1);
            tryVerify(() => list.itemAtIndex(0) && list.itemAtIndex(0).path === navigation.row);
            verify(navigation.back());
        }

        // The last one by its name
        function test_pageOfARemovedEntryIsClosed() {
            verify(navigation.open("nav/about"));
            tryCompare(page, "status", EntryPage.Ready);
            world.removeEntries("nav.json");
            tryCompare(navigation, "current", "nav", 10000);
            compare(closed.count, 1);
            compare(closed.signalArguments[0][0], "nav/about");
            compare(page.item, null);
        }
    }
}
