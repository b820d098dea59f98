// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/vieweditelementwidget.h"

class QLabel;
class QVBoxLayout;

/**
 * Shows the switches of the security monitor tool in two groups, console and system, or a
 * message saying why there are none. The switches are read when the form is first shown and
 * again by its Reload button.
 */
class SecurityOptionsWidget : public ViewEditElementWidget
{
    Q_OBJECT

public:
    /** The tool's fixed path. */
    static const char *const toolPath;

    explicit SecurityOptionsWidget(Module &module, QWidget *parent = nullptr);

    /** The message shown instead of switches; empty while switches are shown. */
    QString message() const;

    void read() override;

private:
    QLabel *_message;
    QWidget *_switches = nullptr; // the current groups, replaced by every read
    QVBoxLayout *_layout;
};
