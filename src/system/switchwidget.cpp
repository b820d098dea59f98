// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/switchwidget.h"

#include "ui_switchwidget.h"

namespace {

int layoutSpacing(const QLayout *layout)
{
    // A style may leave the spacing undefined (-1); it must not shrink the widget.
    return qMax(0, layout->spacing());
}

} // namespace

SwitchWidget::SwitchWidget(const QString &id, const QString &name, const QString &longName,
                           const QString &tooltip, const QString &script, QWidget *parent)
    : QWidget(parent)
    , _id(id)
    , _name(name)
    , _longName(longName)
    , _tooltip(tooltip)
    , _script(script)
    , _ui(new Ui::SwitchWidget)
{
    _ui->setupUi(this);
    connect(_ui->controlChB, &QCheckBox::clicked, this, &SwitchWidget::checkBoxClicked);
    connect(_ui->extraPb, &QPushButton::clicked, this, &SwitchWidget::extraButtonClicked);

    _ui->controlChB->setText(longName);
    _ui->controlChB->setToolTip(tooltip);
    _ui->extraPb->hide();

    QString buttonText;
    if (id == QLatin1String("1"))
        buttonText = tr("Open orvel-console group management");
    else if (id == QLatin1String("10"))
        buttonText = tr("Edit firewall rules");
    else if (id == QLatin1String("12"))
        buttonText = tr("Configure shutdown lock");
    if (!buttonText.isEmpty()) {
        setMinimumHeight(minimumHeight() + _ui->extraPb->minimumHeight()
                         + layoutSpacing(_ui->verticalLayout));
        _ui->extraPb->show();
        _ui->extraPb->setText(buttonText);
    }
    _ui->extraLbl->hide();
}

SwitchWidget::~SwitchWidget()
{
    delete _ui;
}

void SwitchWidget::setChecked(bool b)
{
    _initialChecked = b;
    _ui->controlChB->setChecked(b);
}

void SwitchWidget::setCheckedForced(bool b)
{
    if (b != _initialChecked)
        emit needApply(true);
    _ui->controlChB->setChecked(b);
}

bool SwitchWidget::isChecked() const
{
    return _ui->controlChB->isChecked();
}

void SwitchWidget::reset()
{
    _initialChecked = false;
    _ui->controlChB->blockSignals(true);
    _ui->controlChB->setChecked(false);
    _ui->controlChB->blockSignals(false);
}

void SwitchWidget::blockControlSignals(bool block) const
{
    _ui->controlChB->blockSignals(block);
}

void SwitchWidget::setControlEnabled(bool enabled) const
{
    if (_gray)
        return;
    _ui->controlChB->setEnabled(enabled);
    _ui->extraPb->setEnabled(enabled);
}

void SwitchWidget::setGrayState(bool g)
{
    _gray = g;
    if (g)
        _ui->controlChB->setEnabled(false);
}

void SwitchWidget::setRebootCase(bool enable, bool disable)
{
    _enableNeedReboot = enable;
    _disableNeedReboot = disable;
}

bool SwitchWidget::needReboot() const
{
    const bool checked = isChecked();
    if (checked == _initialChecked)
        return false;
    return checked ? _enableNeedReboot : _disableNeedReboot;
}

void SwitchWidget::setExtraText(const QString &t)
{
    if (t.isEmpty())
        return;
    _extraText = t;
    _ui->extraLbl->setText(t);
    _ui->extraLbl->show();
    setMinimumHeight(minimumHeight() + _ui->extraLbl->height()
                     + layoutSpacing(_ui->verticalLayout));
}

void SwitchWidget::setSlaveId(const QString &slaveId)
{
    _slaveId = slaveId;
}

QString SwitchWidget::getSlaveId() const
{
    return _slaveId;
}

bool SwitchWidget::haveSlave() const
{
    return !_slaveId.isEmpty();
}

void SwitchWidget::setGroup(SwitchGroup group)
{
    _group = group;
}

SwitchGroup SwitchWidget::getGroup() const
{
    return _group;
}

QString SwitchWidget::getId() const
{
    return _id;
}

QString SwitchWidget::getScript() const
{
    return _script;
}

void SwitchWidget::checkBoxClicked(bool checked)
{
    // The slave is asked for first, so that the owner's apply state already includes it.
    if (!_slaveId.isEmpty() && checked)
        emit forceCheckSlave(true);
    emit needApply(checked != _initialChecked);
}
