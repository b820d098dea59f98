// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "securitywidget.h"

#include "plugin/module.h"
#include "system/orvelsecuritymonitorhelper.h"
#include "system/switchwidget.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <stdexcept>

const char *const SecurityOptionsWidget::toolPath = "/usr/sbin/orvel-security-monitor";

SecurityOptionsWidget::SecurityOptionsWidget(Module &module, QWidget *parent)
    : ViewEditElementWidget(module, &Module::defaultTrue, parent)
    , _message(new QLabel(this))
    , _layout(new QVBoxLayout(this))
{
    _elementType = QStringLiteral("securityOptions");
    _message->setWordWrap(true);
    _message->setAccessibleName(tr("Security options status"));
    auto *reload = new QPushButton(tr("Reload"), this);
    reload->setAccessibleName(tr("Read the security options again"));
    connect(reload, &QPushButton::clicked, this, &SecurityOptionsWidget::read);
    _layout->addWidget(_message);
    _layout->addWidget(reload, 0, Qt::AlignLeft);
    _layout->addStretch();
}

QString SecurityOptionsWidget::message() const
{
    return _message->isHidden() ? QString() : _message->text();
}

void SecurityOptionsWidget::read()
{
    blockEditWidget(false);
    delete _switches;
    _switches = nullptr;
    _message->show();
    // The helper shows a modal box when its first read fails: it is not touched at all
    // without the tool, which is the ordinary case outside the systems that ship it.
    const QFileInfo tool(QString::fromLatin1(toolPath));
    if (!tool.isFile() || !tool.isExecutable()) {
        _message->setText(tr("The security monitor tool %1 is not installed, so there are no "
                             "security options to show.")
                              .arg(tool.filePath()));
        return;
    }
    QMultiMap<SwitchGroup, SwitchWidget *> switches;
    try {
        switches = QMultiMap<SwitchGroup, SwitchWidget *>(
            OrvelSecurityMonitorHelper::instance().switches());
    } catch (const std::exception &e) {
        _message->setText(
            tr("The security options cannot be read:\n%1").arg(QString::fromUtf8(e.what())));
        return;
    }
    _switches = new QWidget(this);
    auto *groups = new QVBoxLayout(_switches);
    groups->setContentsMargins(0, 0, 0, 0);
    for (SwitchGroup group : {SwitchGroup::Console, SwitchGroup::System}) {
        const QList<SwitchWidget *> widgets = switches.values(group);
        if (widgets.isEmpty())
            continue;
        auto *box = new QGroupBox(group == SwitchGroup::Console ? tr("Console") : tr("System"),
                                  _switches);
        auto *boxLayout = new QVBoxLayout(box);
        for (SwitchWidget *widget : widgets) {
            // Shown, not switched: how the tool changes an option is the tool's own business.
            widget->setControlEnabled(false);
            boxLayout->addWidget(widget);
        }
        groups->addWidget(box);
    }
    _message->setText(switches.isEmpty() ? tr("The security monitor tool reports no options.")
                                         : QString());
    _message->setVisible(switches.isEmpty());
    _layout->insertWidget(1, _switches);
}
