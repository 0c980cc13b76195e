# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Functions and lists of packages that the scripts share. It is sourced.

project=$(dirname "$(dirname "$(realpath "${BASH_SOURCE[0]}")")")

# The Debian packages that the build and the demo need.
packages=(
    # compiler and build
    cmake g++ lld ninja-build pkg-config
    # the library and the platform's stand-ins
    qtbase5-dev qtdeclarative5-dev qtdeclarative5-dev-tools libdbus-1-dev libdconf-dev libicu-dev
    # the sandbox
    bubblewrap dbus-daemon dconf-cli dconf-service
    # the demo
    qttools5-dev qttools5-dev-tools libqt5svg5 qml-module-org-kde-kirigami2 qml-module-qtquick2
    qml-module-qtquick-controls2 qml-module-qtquick-layouts qml-module-qtquick-templates2 qml-module-qtquick-window2
    qml-module-qtgraphicaleffects breeze-icon-theme fonts-noto-core qtwayland5
    # benchmarks
    libbenchmark-dev valgrind
    # the man pages
    scdoc
)
# More packages for the tests and scripts/lint.
test_packages=(dpkg-dev python3 python3-dbusmock qml-module-qttest strace clang-format clang-tidy clazy git reuse
    zsh fish)
# More packages for scripts/benchmark.
benchmark_packages=(python3 python3-matplotlib)
# More packages for scripts/search-quality.
search_quality_packages=(icu-devtools python3)
# More packages for scripts/package.
package_packages=(debhelper git lintian mmdebstrap rpm rpmlint uidmap)
# More packages for the build with sanitizers: scripts/test --sanitize and scripts/fuzz.
sanitizer_packages=(clang libclang-rt-14-dev llvm)
# More packages for scripts/compare-abi.
abi_packages=(abigail-tools binutils git)

# Lets git work in the clone even if it belongs to another user. The user already trusts it by running its scripts.
trust_clone() {
    export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0=$project
}

# Installs missing packages, as root or through sudo. If that is not possible, prints the command to run.
install_packages() {
    local missing=() package
    for package in "${packages[@]}"; do
        if ! dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed; then
            missing+=("$package")
        fi
    done
    if [[ ${#missing[@]} -eq 0 ]]; then
        return
    fi
    local install=(apt-get install --yes --no-install-recommends "${missing[@]}") sudo=()
    if [[ $(id -u) -ne 0 ]]; then
        if ! sudo --non-interactive true 2>/dev/null; then
            echo "Please install the missing packages, then start again:" >&2
            echo "  sudo apt-get update && sudo ${install[*]}" >&2
            exit 1
        fi
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}"
}
