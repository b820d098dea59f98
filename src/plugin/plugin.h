// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class Plugin;
class TreeNode;

/** The interface identifier of plug-ins, for qobject_cast and as the metadata "IID". */
#define OVT_PLUGIN_IID "zan-admin-ovt/0.0"

// Declared before the class so that the class itself answers to the identifier: every
// subclass then casts by it, whether or not it repeats Q_INTERFACES(Plugin).
Q_DECLARE_INTERFACE(Plugin, OVT_PLUGIN_IID)

/**
 * What a plug-in library exports as its root component: a name, a description and the
 * modules it offers.
 *
 * A plug-in fills _modules in its constructor and gives the modules a QObject parent of its
 * choice (usually itself); the modules are destroyed with the plug-in instance when the
 * library is unloaded. Its class declares Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "...").
 */
class OVTCOMMON_EXPORT Plugin : public QObject
{
    Q_OBJECT
    Q_INTERFACES(Plugin)

public:
    explicit Plugin(QObject *parent = nullptr);
    ~Plugin() override;

    /** False when the plug-in found at start that it cannot work; true here. */
    virtual bool isValid() const;
    /** The distribution packages whose absence makes the plug-in invalid; none here. */
    virtual QStringList requiredPackageNames() const;

    /** The classes of operations that the plug-in's modules offer; 0 here. */
    quint64 availableOperationsClass() const;
    QString name() const;
    QString description() const;
    QList<TreeNode *> &modules();

protected:
    quint64 _availableOperationsClass;
    QString _name;
    QString _description;
    QList<TreeNode *> _modules; // not owned: the plug-in's QObject business
};
