// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import QtQuick 2.15
import QtTest 1.2
import com.velka.settings 1.0

TestCase {
    id: test

    // Each test has its own keys.
    property int number: 0
    readonly property string listKey: "/test" + number + "/favorites"
    readonly property string flagKey: "/test" + number + "/modified"

    name: "FavoritesModel"
    when: windowShown

    Component {
        id: page

        ListView {
            property alias favorites: favorites

            width: 100
            height: 1000
            model: FavoritesModel {
                id: favorites

                filter: ["grid_favorites", "action"]
            }
            delegate: Text {
                text: object.title + (favorite ? " *" : "")
                width: 100
                height: 10
            }
        }
    }

    SignalSpy {
        id: spy
    }

    function initTestCase() {
        declareEntries(["one", "two", "three"]);
        const view = createTemporaryObject(page, test);
        view.favorites.showPotential = true;
        tryVerify(() => view.favorites.indexOf("favorites/act") >= 0, 10000);
    }

    function init() {
        ++number;
    }

    function cleanupTestCase() {
        world.removeEntries("favorites1.json");
        world.removeEntries("favorites2.json");
    }

    function test_defaults() {
        const view = createPage({ key: undefined, userModifiedKey: undefined });
        compare(view.favorites.key, "/apps/velka-settings/favorites");
        compare(view.favorites.userModifiedKey, "");
        compare(view.favorites.userModified, false);
        compare(view.favorites.path, []);
        compare(view.favorites.showPotential, false);
        compare(view.count, 0);
    }

    function test_listsWhatIsStored() {
        store(["favorites/two", "favorites/nowhere", "favorites/number", "favorites/one"]);
        const view = createPage();
        compare(texts(view), ["Two *", "One *"]);
        compare(view.favorites.count, 2);
        compare(view.favorites.indexOf("favorites/one"), 1);
        compare(view.favorites.indexOf("favorites/number"), -1);
        verify(view.favorites.isFavorite("favorites/number"));
        verify(!view.favorites.isFavorite("favorites/three"));
        compare(view.favorites.get(0).title, "Two");
        compare(view.favorites.get(2), {});
    }

    function test_edits() {
        const view = createPage();
        watch(view.favorites, "countChanged");
        view.favorites.addFavorite("favorites/one");
        view.favorites.addFavorite("favorites/two");
        view.favorites.addFavorite("favorites/three");
        tryVerify(() => shows(view, ["One *", "Two *", "Three *"]));
        compare(spy.count, 3);
        tryVerify(() => isStored(["favorites/one", "favorites/two", "favorites/three"]));

        view.favorites.move(0, 2);
        tryVerify(() => shows(view, ["Two *", "Three *", "One *"]));
        compare(view.favorites.indexOf("favorites/one"), 2);
        tryVerify(() => isStored(["favorites/two", "favorites/three", "favorites/one"]));

        view.favorites.removeFavorite("favorites/three");
        tryVerify(() => shows(view, ["Two *", "One *"]));
        compare(spy.count, 4);
        tryVerify(() => isStored(["favorites/two", "favorites/one"]));
    }

    function test_listOfTheSystemIsShownInItsOrder() {
        store(["favorites/one", "favorites/two"]);
        const view = createPage();
        watch(view.favorites, "modelReset");
        store(["favorites/three", "favorites/two", "favorites/one"]);
        tryVerify(() => shows(view, ["Three *", "Two *", "One *"]));
        compare(spy.count, 1);
    }

    function test_listOfTheUserKeepsItsOrder() {
        const view = createPage();
        view.favorites.addFavorite("favorites/one");
        view.favorites.addFavorite("favorites/two");
        tryVerify(() => isStored(["favorites/one", "favorites/two"]));
        watch(view.favorites, "modelReset");
        store(["favorites/three", "favorites/two", "favorites/one"]);
        tryVerify(() => shows(view, ["One *", "Two *", "Three *"]));
        compare(spy.count, 0);
    }

    function test_userModified() {
        const view = createPage();
        verify(!view.favorites.userModified);
        watch(view.favorites, "userModifiedChanged");
        view.favorites.addFavorite("favorites/one");
        tryCompare(spy, "count", 1);
        verify(view.favorites.userModified);
        tryVerify(() => world.dconf(["read", flagKey]) === "true");
        world.dconf(["reset", flagKey]);
        tryCompare(spy, "count", 2);
        verify(!view.favorites.userModified);
        view.favorites.userModifiedKey = "";
        view.favorites.addFavorite("favorites/two");
        tryVerify(() => isStored(["favorites/one", "favorites/two"]));
        compare(world.dconf(["read", flagKey]), "");
    }

    function test_picker() {
        const list = createPage();
        const picker = createPage({ path: ["favorites"], showPotential: true });
        compare(texts(picker), ["One", "Two", "Three", "Act"]);
        picker.favorites.addFavorite("favorites/two");
        tryVerify(() => shows(picker, ["One", "Two *", "Three", "Act"]));
        tryVerify(() => shows(list, ["Two *"]));
        picker.favorites.addFavorite("favorites/one");
        picker.favorites.removeFavorite("favorites/two");
        tryVerify(() => shows(picker, ["One *", "Two", "Three", "Act"]));
        tryVerify(() => shows(list, ["One *"]));
        picker.favorites.showPotential = false;
        compare(picker.count, 0); // there is no "favorites" below "favorites"
    }

    function test_filter() {
        store(["favorites/number", "favorites/one", "favorites/act"]);
        const view = createPage();
        tryVerify(() => shows(view, ["One *", "Act *"]));
        watch(view.favorites, "filterChanged");
        view.favorites.filter = ["list_favorites"];
        tryVerify(() => shows(view, ["Number *"]));
        compare(spy.count, 1);
        ignoreWarning('Unknown favorites filter type: "big_favorites"');
        view.favorites.filter = ["action", "big_favorites"];
        compare(view.favorites.filter, ["list_favorites"]);
        compare(spy.count, 1);
        view.favorites.filter = [];
        tryCompare(view, "count", 0);
    }

    function test_unknownPath() {
        const view = createPage({ showPotential: true });
        ignoreWarning('FavoritesModel: path not found ("favorites", "nowhere")');
        view.favorites.path = ["favorites", "nowhere"];
        tryCompare(view, "count", 0);
    }

    function test_actions() {
        store(["favorites/one", "favorites/act"]);
        const view = createPage();
        const call = row => view.favorites.data(view.favorites.index(row, 0), 259);
        compare(call(0), "");
        compare(call(1), "com.example.act /act com.example.act act");
        world.expectInfo("tst_favoritesmodel\\.qml:\\d+.*: QML FavoritesModel: item at index 0 is not an action$");
        view.favorites.triggerAction(0);
        world.expectInfo("tst_favoritesmodel\\.qml:\\d+.*: QML FavoritesModel: invalid index 2$");
        view.favorites.triggerAction(2);
    }

    function test_rowsFollowTheTree() {
        store(["favorites/late", "favorites/one"]);
        const view = createPage();
        compare(texts(view), ["One *"]);
        world.writeEntries("favorites2.json", JSON.stringify({
            entries: [{ path: "favorites/late", title: "Late", type: "page" }]
        }));
        tryVerify(() => shows(view, ["Late *", "One *"]), 10000);
        world.removeEntries("favorites2.json");
        tryVerify(() => shows(view, ["One *"]), 10000);
        verify(view.favorites.isFavorite("favorites/late"));
    }

    function declareEntries(names) {
        const entries = names.map((name, index) => {
            return { path: "favorites/" + name, title: name[0].toUpperCase() + name.slice(1), type: "page", order: index };
        });
        entries.push({ path: "favorites/number", title: "Number", type: "integer" });
        entries.push({
            path: "favorites/act",
            title: "Act",
            type: "action",
            params: {
                "remote-service": "com.example.act",
                "remote-path": "/act",
                "remote-interface": "com.example.act",
                "remote-method": "act"
            }
        });
        world.writeEntries("favorites1.json", JSON.stringify({ entries: entries }));
    }

    function createPage(properties) {
        const view = createTemporaryObject(page, test);
        const values = Object.assign({ key: listKey, userModifiedKey: flagKey }, properties);
        for (const name in values) {
            if (values[name] !== undefined) {
                view.favorites[name] = values[name];
            }
        }
        view.forceLayout();
        return view;
    }

    function watch(model, signalName) {
        spy.target = model;
        spy.signalName = signalName;
        spy.clear();
    }

    // As another program does
    function store(paths) {
        world.dconf(["write", listKey, asText(paths)]);
    }

    function isStored(paths) {
        return world.dconf(["read", listKey]) === asText(paths);
    }

    function asText(paths) {
        return "[" + paths.map(path => "'" + path + "'").join(", ") + "]";
    }

    function shows(view, expected) {
        view.forceLayout();
        return JSON.stringify(texts(view)) === JSON.stringify(expected);
    }

    function texts(view) {
        const shown = [];
        for (let row = 0; row < view.count; ++row) {
            const item = view.itemAtIndex(row);
            shown.push(item && item.text);
        }
        return shown;
    }
}
