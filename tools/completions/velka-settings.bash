# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Completion of velka-settings for bash.

# Prints the paths of the tree that the command line selects.
_velka_settings_paths() {
    local root=() i
    for ((i = 2; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == --root ]]; then
            root=(--root "${COMP_WORDS[i + 1]}")
        fi
    done
    "${COMP_WORDS[0]}" tree --format paths "${root[@]}" 2>/dev/null
}

# Offers the lines of $1 that begin with the word at the cursor.
_velka_settings_offer() {
    local word=${COMP_WORDS[COMP_CWORD]} line
    word=${word//\\/}
    while IFS= read -r line; do
        if [[ -n $line && $line == "$word"* ]]; then
            COMPREPLY+=("$(printf '%q' "$line")")
        fi
    done <<<"$1"
}

_velka_settings_words() {
    _velka_settings_offer "$(printf '%s\n' "$@")"
}

_velka_settings_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$@" -- "${COMP_WORDS[COMP_CWORD]}")
}

# Offers values of the option $1 of the command $2. Fails when the option has none.
_velka_settings_value() {
    case $1 in
        --root | --translations | --into) _velka_settings_files -d ;;
        --with)
            _velka_settings_files -d
            _velka_settings_words SYSTEM ;;
        --screenshot | --output | -o | --vocabulary) _velka_settings_files -f ;;
        --masked | --mask | --page) _velka_settings_offer "$(_velka_settings_paths)" ;;
        --group) _velka_settings_offer "$(getent group | cut -d: -f1)" ;;
        --locale) _velka_settings_offer "$(locale -a 2>/dev/null | sed 's/[.@].*//' | sort -u)" ;;
        --explain) _velka_settings_offer "$("${COMP_WORDS[0]}" check --list-tags 2>/dev/null | cut -d" " -f1)" ;;
        --uid | --service) ;;
        --override)
            _velka_settings_offer "$("${COMP_WORDS[0]}" check --list-tags 2>/dev/null | sed 's/ .*/=/')" ;;
        --format)
            case $2 in
                check) _velka_settings_words text json sarif junit ;;
                tree) _velka_settings_words text json paths ;;
                diff) _velka_settings_words text markdown json ;;
                *) _velka_settings_words text json ;;
            esac ;;
        *) return 1 ;;
    esac
}

_velka_settings_options() {
    case $1 in
        check) _velka_settings_words --explain --list-tags --strict --override --format --translations --vocabulary --no-system-vocabulary --with --help \
            --version ;;
        tree | show | why)
            _velka_settings_words --root --translations --uid --locale --masked --format --help --version ;;
        find)
            _velka_settings_words --strict --root --translations --uid --locale --masked --format --help --version ;;
        diff) _velka_settings_words --translations --uid --locale --masked --format --help --version ;;
        open) _velka_settings_words --service --help --version ;;
        preview)
            _velka_settings_words --locale --translations --mask --group --phone --wide --page --screenshot \
                --smoke-test --vocabulary --no-system-vocabulary --help --version ;;
        translate) _velka_settings_words --mirrored --output --help --version ;;
        schema) _velka_settings_words --vocabulary --help --version ;;
        install) _velka_settings_words --into --list --help --version ;;
    esac
}

_velka_settings() {
    local command=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _velka_settings_words check tree show why find diff open preview translate install schema --help --version
        return
    fi
    if _velka_settings_value "${COMP_WORDS[COMP_CWORD - 1]}" "$command"; then
        return
    fi
    if [[ ${COMP_WORDS[COMP_CWORD]} == -* ]]; then
        _velka_settings_options "$command"
        return
    fi
    if [[ $command == translate ]] && ((COMP_CWORD == 2)); then
        _velka_settings_words extract update check pseudo
        return
    fi
    case $command in
        open | show | why) _velka_settings_offer "$(_velka_settings_paths)" ;;
        check | diff | install | preview | translate | tree) _velka_settings_files -f ;;
    esac
}

complete -F _velka_settings velka-settings
