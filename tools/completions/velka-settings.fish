# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Completion of velka-settings for fish.

# Prints the paths of the tree that the command line selects.
function __velka_settings_paths
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    set -l root
    if set -l position (contains --index -- --root $words)
        set root --root $words[(math $position + 1)]
    end
    velka-settings tree --format paths $root 2>/dev/null
end

function __velka_settings_uses
    __fish_seen_subcommand_from $argv
end

complete --command velka-settings --no-files
complete --command velka-settings --short-option h --long-option help --description 'Print a short help'
complete --command velka-settings --long-option version --description 'Print the version'

set --local commands check tree show why find diff open preview translate install schema
set --local descriptions 'Report mistakes in registration files' 'Print the tree of entries' \
    'Print all properties of an entry' 'Explain why an entry is in the tree, or why it is not' \
    'Search the entries for words' \
    'Print what an update of a directory changes' 'Show an entry in the Settings application' \
    'Show files in a Settings window' 'Make and update translations of registration files' \
    'Give registration files names by their content' \
    'Print the schema of registration files'
for i in (seq (count $commands))
    complete --command velka-settings --condition "not __velka_settings_uses $commands" \
        --arguments $commands[$i] --description $descriptions[$i]
end

set --local reading '__velka_settings_uses tree show why find'
complete --command velka-settings --condition $reading --long-option root --require-parameter --force-files
complete --command velka-settings --condition '__velka_settings_uses tree show why find diff preview' --long-option locale \
    --exclusive --arguments "(locale -a | string replace --regex '[.@].*' '')"
complete --command velka-settings --condition '__velka_settings_uses tree show why find diff' --long-option uid --exclusive
complete --command velka-settings --condition '__velka_settings_uses tree show why find diff' --long-option masked \
    --exclusive --arguments '(__velka_settings_paths)'
complete --command velka-settings --condition '__velka_settings_uses open' --long-option service --exclusive
complete --command velka-settings --condition '__velka_settings_uses open show why' --arguments '(__velka_settings_paths)'

complete --command velka-settings --condition '__velka_settings_uses check preview diff tree translate install' --force-files
complete --command velka-settings --condition '__velka_settings_uses check' --long-option explain --exclusive \
    --arguments "(velka-settings check --list-tags | string replace --regex ' .*' '')"
complete --command velka-settings --condition '__velka_settings_uses check' --long-option list-tags
complete --command velka-settings --condition '__velka_settings_uses check tree show why find diff preview' --long-option translations \
    --require-parameter --force-files
complete --command velka-settings --condition '__velka_settings_uses check find' --long-option strict
complete --command velka-settings --condition '__velka_settings_uses check' --long-option with \
    --require-parameter --force-files --arguments SYSTEM
complete --command velka-settings --condition '__velka_settings_uses check' --long-option override --exclusive
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option mask --exclusive \
    --arguments '(__velka_settings_paths)'
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option group --exclusive \
    --arguments '(__fish_complete_groups)'
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option page --exclusive \
    --arguments '(__velka_settings_paths)'
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option phone
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option wide
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option screenshot \
    --require-parameter --force-files
complete --command velka-settings --condition '__velka_settings_uses preview' --long-option smoke-test

complete --command velka-settings --condition '__velka_settings_uses translate' \
    --arguments 'extract update check pseudo'
complete --command velka-settings --condition '__velka_settings_uses translate' --short-option o --long-option output \
    --require-parameter --force-files
complete --command velka-settings --condition '__velka_settings_uses translate' --long-option mirrored
complete --command velka-settings --condition '__velka_settings_uses install' --long-option into --require-parameter \
    --force-files
complete --command velka-settings --condition '__velka_settings_uses install' --long-option list
complete --command velka-settings --condition '__velka_settings_uses check preview schema' --long-option vocabulary \
    --require-parameter --force-files
complete --command velka-settings --condition '__velka_settings_uses check preview' \
    --long-option no-system-vocabulary

complete --command velka-settings --condition '__velka_settings_uses check' --long-option format --exclusive \
    --arguments 'text json sarif junit'
complete --command velka-settings --condition '__velka_settings_uses tree' --long-option format --exclusive \
    --arguments 'text json paths'
complete --command velka-settings --condition '__velka_settings_uses show why find' --long-option format --exclusive \
    --arguments 'text json'
complete --command velka-settings --condition '__velka_settings_uses diff' --long-option format --exclusive \
    --arguments 'text markdown json'
