// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * A system service. Its record is a ServiceLightElementData, and its icon follows it: a start
 * icon while the service runs, a stop icon while it does not, and the empty default icon until
 * the state has been read (empty state text).
 *
 * It offers no operations of its own; the plug-in's service class decides which it offers and
 * where they go.
 */
class OVTCOMMON_EXPORT ServiceElement : public Element
{
    Q_OBJECT

public:
    ServiceElement(Module &module, bool (*isEditable)(const Module &));

    QVariant data(int column, int role) const override;

    /** The theme icon "media-playback-start", made once. */
    static QIcon startIcon();
    /** The theme icon "media-playback-stop", made once. */
    static QIcon stopIcon();
};
