#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Gives every tracked file a licence header, REUSE-style, so `reuse lint` passes:
#   scripts/reuse-headers.sh [--dry-run]
# Files that can hold a comment get one in their own syntax (after a "#!" line or an XML
# declaration); files that cannot (JSON, images, translation catalogues that lupdate rewrites,
# Debian packaging files) are covered by .reuse/dep5, which this script writes; a file of a
# kind it does not know gets a "<file>.license" sidecar. Files that
# already carry an identifier are left alone, so a second run changes nothing.
# OVT_COPYRIGHT overrides the copyright holder line.
set -euo pipefail
cd "$(dirname "$0")/.."
dry_run=false
[ "${1:-}" = --dry-run ] && dry_run=true

# Assembled, so that this script's own text carries no tag for the linter to misread.
tag=SPDX
copyright="${tag}-FileCopyrightText: ${OVT_COPYRIGHT:-2026 The ovt-common developers}"
library="${tag}-License-Identifier: LGPL-2.1-or-later"
trivial="${tag}-License-Identifier: CC0-1.0"

# Files without room for a comment: .reuse/dep5 speaks for them.
uncommentable() {
    case $1 in
    *.json | *.png | *.jpg | *.svgz | *.ts | *.qm | debian/* | fuzz/corpus/* | .reuse/* | LICENSES/*) return 0 ;;
    esac
    return 1
}

write_dep5() {
    local content
    content=$(cat <<DEP5
Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: ovt-common

Files: *.json *.png *.jpg *.svgz *.ts *.qm debian/* fuzz/corpus/*
Copyright: ${copyright#*: }
License: ${library#*: }
DEP5
)
    if [ "$(cat .reuse/dep5 2>/dev/null)" != "$content" ]; then
        echo ".reuse/dep5"
        $dry_run || { mkdir -p .reuse && printf '%s\n' "$content" > .reuse/dep5; }
    fi
}

# Prints the comment style of a file: "hash", "slash", "xml" or "" (unknown).
style_of() {
    local file=$1
    case $file in
    *.cpp | *.h | *.hpp | *.c | *.qml | *.js) echo slash ;;
    *.sh | *.cmake | *.in | *.txt | *.supp | *.yml | *.yaml | *.toml | *.py | *.pl) echo hash ;;
    .gitignore | */.gitignore | .clang-format | */.clang-format | Doxyfile* | */Doxyfile*) echo hash ;;
    *.md | *.ui | *.qrc | *.svg | *.xml | *.html | *.xsl | *.xslt) echo xml ;;
    *)
        if head -c 2 "$file" | grep -q '^#!'; then echo hash; else echo ""; fi
        ;;
    esac
}

# Files whose content is trivial configuration fall under CC0.
licence_of() {
    case $1 in
    .gitignore | */.gitignore | .clang-format | */.clang-format) echo "$trivial" ;;
    *) echo "$library" ;;
    esac
}

has_header() {
    head -n 20 "$1" | grep -q "${tag}-License-Identifier:" || [ -e "$1.license" ]
}

add_header() {
    local file=$1 style=$2 licence=$3 block first tmp
    case $style in
    slash) block="// $copyright"$'\n'"// $licence" ;;
    hash) block="# $copyright"$'\n'"# $licence" ;;
    xml) block="<!--"$'\n'"$copyright"$'\n'"$licence"$'\n'"-->" ;;
    esac
    first=$(head -n 1 "$file")
    tmp=$(mktemp "$file.XXXXXX")
    # A "#!" line, an XML declaration and a DOCTYPE must stay first.
    if [[ $first == '#!'* || $first == '<?xml'* || $first == '<!DOCTYPE'* ]]; then
        { printf '%s\n' "$first" "$block"; tail -n +2 "$file"; } > "$tmp"
    else
        { printf '%s\n\n' "$block"; cat "$file"; } > "$tmp"
    fi
    chmod --reference="$file" "$tmp"
    mv "$tmp" "$file"
}

write_dep5
while IFS= read -r -d '' file; do
    [ -f "$file" ] && [ ! -L "$file" ] || continue
    uncommentable "$file" && continue
    [[ $file == *.license ]] && continue
    has_header "$file" && continue
    echo "$file"
    $dry_run && continue
    style=$(style_of "$file")
    licence=$(licence_of "$file")
    if [ -z "$style" ]; then
        # No comment syntax known: a sidecar file carries the header.
        printf '%s\n%s\n' "$copyright" "$licence" > "$file.license"
    else
        add_header "$file" "$style" "$licence"
    fi
done < <(git ls-files -z -co --exclude-standard)
