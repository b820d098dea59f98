// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

/**
 * An invisible modal dialog: while open it blocks input to the application's other windows
 * without showing anything. The task observer opens it for the first second of a batch.
 */
class OVTCOMMON_EXPORT BlockDialog : public QDialog
{
    Q_OBJECT

public:
    explicit BlockDialog(QWidget *parent);
    ~BlockDialog() override;
};
