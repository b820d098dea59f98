#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs the Debian packages that building, testing and running ovt-common need,
# and only those that are missing. Works as root (CI) and as a user with sudo.
set -euo pipefail

packages=(
    cmake ninja-build g++ pkg-config
    qtbase5-dev qttools5-dev qttools5-dev-tools libqt5xmlpatterns5-dev libqt5svg5-dev
    adwaita-icon-theme qttranslations5-l10n
    debhelper dpkg-dev doxygen reuse
    postgresql
    util-linux
)
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
    sudo=()
elif command -v sudo >/dev/null; then
    sudo=(sudo)
else
    echo "install-deps: missing packages (${missing[*]}) and neither root nor sudo to install them" >&2
    exit 1
fi
echo "install-deps: installing ${missing[*]}"
"${sudo[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
