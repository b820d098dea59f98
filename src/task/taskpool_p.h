// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// Private to the task subsystem; never installed.

class AbstractTask;

namespace TaskPool {

/**
 * The task whose completion this thread handed over last (AbstractTask::run() posted it, or
 * deleted it with no observer left). A worker clears it before each run(), so that after a
 * run() that throws it knows whether the task is still its own.
 */
const AbstractTask *&lastHandedOver();

} // namespace TaskPool
