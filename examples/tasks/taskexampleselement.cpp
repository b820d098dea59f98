// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "taskexampleselement.h"

#include "plugin/module.h"

#include <QIcon>

TaskExamplesElement::TaskExamplesElement(Module &module)
    : Element(module, &Module::defaultTrue)
{
    _elementType = QStringLiteral("taskExamples");
    _groupElementType = module.id();
    _title = _id = QStringLiteral("Examples");
    _expectedDepth = 1;
}

QString TaskExamplesElement::caption() const
{
    return tr("Start example tasks and watch them in the task observer");
}

QVariant TaskExamplesElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("system-run"));
    return Element::data(column, role);
}
