// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "serviceelement.h"

#include "element/servicelightelementdata.h"
#include "ovticon_p.h"

ServiceElement::ServiceElement(Module &module, bool (*isEditable)(const Module &))
    : Element(module, isEditable)
{
    setElementData(new ServiceLightElementData);
}

QVariant ServiceElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole) {
        // An empty state text means the state was never read: no icon claims anything yet.
        if (auto *service = dynamic_cast<const ServiceLightElementData *>(elementData());
            service && !service->textState().isEmpty())
            return service->state() ? startIcon() : stopIcon();
    }
    return Element::data(column, role);
}

QIcon ServiceElement::startIcon()
{
    static const QIcon icon = Ovt::themeIcon(QStringLiteral("media-playback-start"));
    return icon;
}

QIcon ServiceElement::stopIcon()
{
    static const QIcon icon = Ovt::themeIcon(QStringLiteral("media-playback-stop"));
    return icon;
}
