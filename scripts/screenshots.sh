#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Renders the README's screenshots of ovt-demo with every example plug-in loaded into
# docs/screenshots/, offscreen. Builds the tool first (as demo.sh does).
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(scripts/configure.sh -DOVT_BUILD_EXAMPLES=ON)
cmake --build "$build" -j2 --target ovt-demo
export QT_QPA_PLATFORM=offscreen
shots=$PWD/docs/screenshots
demo() { "$build/examples/demo-tool/ovt-demo" "$@"; }
demo --select accounts/Users/account_root --screenshot "$shots/accounts.png"
demo --select services --screenshot "$shots/services.png"
demo --select configEntries/ConfigFile --screenshot "$shots/configentries.png"
demo --select postgresql/PostgreSQL --screenshot "$shots/postgresql.png"
demo --select security/SecurityOptions --screenshot "$shots/security.png"
demo --select tasks/Examples --screenshot "$shots/tasks.png"
# The failing dummy task takes 5 s: wait for it, so the observer shows its outcome.
demo --select tasks/Examples --press "Run a dummy task that fails" --quit-after 7000 \
    --screenshot "$shots/task-observer.png"
demo --select tasks/Examples --press "Print preview" --screenshot "$shots/print-preview.png"
