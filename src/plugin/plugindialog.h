// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

class PluginContainer;

namespace Ui {
class PluginDialog;
}

/**
 * Shows which plug-in files were found, which work and why the others do not, the module
 * tree as the container built it, and lets the user pick another plug-in directory, which
 * reloads everything. Its geometry is kept under "pluginDialog/pluginDialogGeometry".
 */
class OVTCOMMON_EXPORT PluginDialog : public QDialog
{
    Q_OBJECT

public:
    /** @p pluginContainer is not owned and must outlive the dialog. */
    PluginDialog(PluginContainer *pluginContainer, QWidget *parent = nullptr);
    /** Saves the geometry. */
    ~PluginDialog() override;

    void loadSettings();
    void saveSettings() const;

public Q_SLOTS:
    /** Asks for a directory and reloads from it; the current directory does not reload. */
    void changePath();

protected:
    /** Refreshes the path field. */
    void showEvent(QShowEvent *event) override;

private:
    void showPath();

    Ui::PluginDialog *_ui;
    PluginContainer *_pluginContainer; // not owned
};
