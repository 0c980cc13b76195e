# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# shellcheck shell=bash disable=SC2034,SC2154
# Functions of the tests that install the sample package while a program watches. It is sourced. $work is a directory
# of the test, with a file "log".

# What the watcher prints
start=('[]')
first_version=("${start[@]}" '[Garden, Watering]')
second_version=("${first_version[@]}" '[Garden, Lawn, Watering]')
removed=("${second_version[@]}" '[]')

fail() {
    echo "failed: $*" >&2
    cat "$work/log" >&2
    exit 1
}

# build_watcher FILE
build_watcher() {
    local flags
    read -ra flags < <(pkg-config --cflags --libs velkasettings)
    # shellcheck disable=SC2086
    "${CXX:-c++}" -std=c++17 -fPIC ${CXXFLAGS:-} "$here/watcher.cpp" -o "$1" "${flags[@]}"
}

start_watcher() {
    "$work/watcher" >"$work/log" 2>"$work/errors" &
    watcher_process=$!
    trap stop_watcher EXIT
    expect_updates "${start[@]}"
}

stop_watcher() {
    trap - EXIT
    kill "$watcher_process"
    wait "$watcher_process" || true
}

# expect_updates LINE...  Waits until the watcher has printed as many lines as expected, which must be these.
expect_updates() {
    local expected
    expected=$(printf '%s\n' "$@")
    for ((tries = 0; tries < 300; ++tries)); do
        if [[ $(wc -l <"$work/log") -ge $# ]]; then
            break
        fi
        sleep 0.1
    done
    [[ $(<"$work/log") == "$expected" ]] || fail "the watcher does not see: $expected"
}

# expect_names COUNT  Fails unless as many registration files are installed, with hashes in their names.
expect_names() {
    local names
    mapfile -t names < <(find /usr/share/velka-settings/entries -type f -printf '%f\n')
    [[ ${#names[@]} -eq $1 ]] || fail "installed: ${names[*]}"
    for name in "${names[@]}"; do
        [[ $name =~ ^garden-[0-9a-f]{6}\.json$ ]] || fail "installed: $name"
    done
}

# add_entry DIRECTORY  Makes the next version of the sample in a directory: with one more entry.
add_entry() {
    sed -i 's|^    "entries": \[|&{"path": "garden/lawn", "title": "Lawn", "type": "page"},|' "$1/entries/garden.json"
}
