// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugindialog.h"

#include "plugin/plugincontainer.h"
#include "plugin/pluginmodel.h"
#include "treenode/treenodemodel.h"
#include "ui_plugindialog.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QSettings>

namespace {

const QString geometryKey = QStringLiteral("pluginDialog/pluginDialogGeometry");

} // namespace

PluginDialog::PluginDialog(PluginContainer *pluginContainer, QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::PluginDialog)
    , _pluginContainer(pluginContainer)
{
    Q_ASSERT(pluginContainer);
    _ui->setupUi(this);
    _ui->_pluginTtreeView->setModel(pluginContainer->pluginModel());
    _ui->_moduleTreeView->setModel(pluginContainer->treeNodeModel());
    _ui->_pluginTtreeView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _ui->_moduleTreeView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(_ui->_changePushButton, &QPushButton::clicked, this, &PluginDialog::changePath);
    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    loadSettings();
}

PluginDialog::~PluginDialog()
{
    saveSettings();
    delete _ui;
}

void PluginDialog::loadSettings()
{
    QSettings settings;
    restoreGeometry(settings.value(geometryKey).toByteArray());
}

void PluginDialog::saveSettings() const
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
}

void PluginDialog::changePath()
{
    const QString path = QFileDialog::getExistingDirectory(
        this, tr("Plugin directory"), _pluginContainer->pluginPath(), QFileDialog::ShowDirsOnly);
    if (path.isEmpty() || path == _pluginContainer->pluginPath())
        return;
    _pluginContainer->loadPlugins(path);
    showPath();
}

void PluginDialog::showEvent(QShowEvent *event)
{
    showPath();
    QDialog::showEvent(event);
}

void PluginDialog::showPath()
{
    _ui->_pathLineEdit->setText(_pluginContainer->pluginPath());
    _ui->_pathLineEdit->setToolTip(_pluginContainer->pluginPath());
}
