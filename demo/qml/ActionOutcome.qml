// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import org.kde.kirigami 2.19 as Kirigami
import com.velka.settings.toolkit 1.0

/// Runs the action of an entry, and shows its outcome.
PlainMessage {
    id: message

    property alias entry: action.entry
    readonly property string outcome: ["idle", "running", "succeeded", "failed"][action.state]

    function run() {
        action.run()
    }

    objectName: "outcome"
    type: {
        switch (action.state) {
        case EntryAction.Succeeded:
            return Kirigami.MessageType.Positive
        case EntryAction.Failed:
            return Kirigami.MessageType.Error
        }
        return Kirigami.MessageType.Information
    }
    showCloseButton: true

    readonly property EntryAction action: EntryAction {
        id: action
        onStateChanged: message.visible = state !== EntryAction.Idle // also after the user has closed the message
    }
    readonly property var texts: [
        "",
        qsTrId("settings-la-action_unanswered"),
        qsTrId("settings-la-action_done"),
        qsTrId("settings-la-action_failed")
    ]
    readonly property string error: action.errorString ? " (" + action.errorString + ")" : ""

    plainText: texts[action.state].replace("%1", () => entry.title) + error
}
