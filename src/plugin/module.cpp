// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "module.h"

#include "element/containerelement.h"
#include "element/contextoperation.h"
#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/micdetect.h"
#include "widgets/listelementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QPointer>
#include <QSet>
#include <QSettings>
#include <QVector>

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace {

const QString nameKey = QStringLiteral("name");
const QString paranoidKey = QStringLiteral("paranoid");
const QString descriptionKey = QStringLiteral("description");

// The key joins the group text and the data key without a separator; stored preferences of
// installed tools are only found under exactly this form.
QString settingsKey(const QString &moduleId, const QString &dataKey)
{
    return QStringLiteral("module/%1").arg(moduleId) + dataKey;
}

bool isTrueBool(const QVariant &value)
{
    return value.isValid() && value.userType() == QMetaType::Bool && value.toBool();
}

} // namespace

Module::Module(const QString &name, QObject *parent, bool paranoid)
    : TreeNode(parent)
    , _moduleData(new ElementData)
{
    _id = name;
    _moduleData->insert(nameKey, name);
    _moduleData->insert(paranoidKey, paranoid);
    // Still being built: this is the module's own loadSettings, not a subclass's.
    Module::loadSettings();
}

Module::~Module()
{
    Module::saveSettings();
    delete _moduleData;
    _moduleData = nullptr;
    // Children go while the object is still a Module, so that elements leaving their trees
    // can still tell it.
    // Guarded: a child's destructor may delete a sibling that the copy still lists.
    QList<QPointer<QObject>> children;
    for (QObject *child : this->children())
        children.append(child);
    for (const QPointer<QObject> &child : qAsConst(children))
        delete child.data();
    _elementNodes.clear();
    // Taken out first, so that the widgets' destroyed() finds nothing left to forget.
    const QMap<QString, ElementWidget *> widgets = std::exchange(_elementWidgets, {});
    qDeleteAll(widgets);
    _elementActions.clear();
}

QVariant Module::data(int column, int role) const
{
    if (!_moduleData)
        return QVariant();
    switch (column) {
    case 0:
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return _id;
        break;
    case 1:
        if (role == Qt::ToolTipRole)
            return tr("Force reread mode");
        if (role == Qt::CheckStateRole && _moduleData->contains(paranoidKey))
            return QVariant(_moduleData->value(paranoidKey).toBool());
        break;
    case 2:
        if ((role == Qt::DisplayRole || role == Qt::ToolTipRole)
            && _moduleData->contains(descriptionKey))
            return _moduleData->value(descriptionKey);
        break;
    default:
        break;
    }
    return QVariant();
}

bool Module::setData(int column, const QVariant &value, int role)
{
    if (column != 1 || role != Qt::CheckStateRole || !_moduleData
        || !_moduleData->contains(paranoidKey))
        return false;
    const bool paranoid = value.toInt() == Qt::Checked;
    if (_moduleData->value(paranoidKey).toBool() == paranoid)
        return false;
    _moduleData->insert(paranoidKey, paranoid);
    return true;
}

Qt::ItemFlags Module::flags(int column) const
{
    Qt::ItemFlags result = TreeNode::flags(column);
    if (column == 1 && _moduleData && _moduleData->contains(paranoidKey))
        result |= Qt::ItemIsUserCheckable;
    return result;
}

bool Module::canFetchMore() const
{
    return false;
}

void Module::fetchMore() { }

void Module::performOperation(ContextOperation *operation, OperationType type, ElementData *data,
                              int flags)
{
    // A copy: a sub-module may change the tree while it handles the operation.
    const QList<TreeNode *> children = _childNodes;
    for (TreeNode *child : children) {
        if (auto *module = qobject_cast<Module *>(child))
            module->performOperation(operation, type, data, flags);
    }
}

void Module::loadSettings()
{
    if (!_moduleData || !_moduleData->contains(paranoidKey))
        return;
    QSettings settings;
    const QVariant stored
        = settings.value(settingsKey(_id, paranoidKey), _moduleData->value(paranoidKey));
    _moduleData->insert(paranoidKey, stored.toBool());
}

void Module::saveSettings() const
{
    if (!_moduleData || !_moduleData->contains(paranoidKey))
        return;
    QSettings settings;
    settings.setValue(settingsKey(_id, paranoidKey), _moduleData->value(paranoidKey).toBool());
}

ElementData *Module::moduleData() const
{
    return _moduleData;
}

QList<TreeNode *> &Module::elementNodes()
{
    return _elementNodes;
}

ElementWidget *Module::elementWidget(const QString &elementType) const
{
    return _elementWidgets.value(elementType, nullptr);
}

QList<QAction *> Module::elementActions(const QString &elementType) const
{
    return _elementActions.value(elementType);
}

QVariant Module::getData(const QString &key) const
{
    if (!_moduleData)
        return QVariant();
    return _moduleData->value(key);
}

QVariant Module::getDataHierarchy(const QString &key) const
{
    for (const TreeNode *node = this; node; node = node->parentNode()) {
        auto *module = qobject_cast<const Module *>(node);
        if (!module)
            break;
        if (module->_moduleData && module->_moduleData->contains(key))
            return module->_moduleData->value(key);
    }
    return QVariant();
}

Element *Module::element(const QString &id) const
{
    for (TreeNode *node : _elementNodes) {
        if (node && node->id() == id)
            return qobject_cast<Element *>(node);
    }
    return nullptr;
}

void Module::insertElementWidget(ElementWidget *widget)
{
    if (!widget)
        return;
    const QString type = widget->elementType();
    if (type == ContextOperation::undefinedElementType || _elementWidgets.contains(type))
        return;
    _elementWidgets.insert(type, widget);
    // A view may take the widget into its own hierarchy and delete it first (a tool's main
    // window going before its plug-ins); the module must then forget it, not delete it again.
    connect(widget, &QObject::destroyed, this, [this, type](QObject *object) {
        if (_elementWidgets.value(type) == object)
            _elementWidgets.remove(type);
    });
}

void Module::connectElementWidgets()
{
    for (ElementWidget *widget : qAsConst(_elementWidgets)) {
        if (auto *viewEdit = qobject_cast<ViewEditElementWidget *>(widget))
            connect(viewEdit, &ViewEditElementWidget::contentChanged, this,
                    &Module::contentElementWidgetChanged, Qt::UniqueConnection);
        if (auto *list = qobject_cast<ListElementWidget *>(widget))
            connect(list, &QWidget::customContextMenuRequested, this,
                    &Module::customContextMenuRequested, Qt::UniqueConnection);
    }
}

void Module::resetConteinerElement()
{
    // Emptying one container frees what it held, and the list may hold some of that too (a
    // container inside another): walk a guarded copy and let the list forget what was freed.
    QVector<QPair<TreeNode *, QPointer<TreeNode>>> guarded;
    guarded.reserve(_elementNodes.size());
    for (TreeNode *node : qAsConst(_elementNodes))
        guarded.append(qMakePair(node, QPointer<TreeNode>(node)));
    for (const auto &entry : qAsConst(guarded)) {
        auto *container = qobject_cast<ContainerElement *>(entry.second.data());
        if (!container)
            continue;
        container->clearDelete();
        container->resetRequireLoad();
    }
    QSet<const TreeNode *> freed;
    for (const auto &entry : qAsConst(guarded)) {
        if (entry.first && !entry.second)
            freed.insert(entry.first);
    }
    if (!freed.isEmpty())
        _elementNodes.erase(
            std::remove_if(_elementNodes.begin(), _elementNodes.end(),
                           [&freed](TreeNode *node) { return freed.contains(node); }),
            _elementNodes.end());
}

bool Module::defaultTrue(const Module &)
{
    return true;
}

bool Module::defaultFalse(const Module &)
{
    return false;
}

bool Module::isAdministrator(const Module &)
{
    return geteuid() == 0 && MICDetect::isCurrentProcessHasMaxMIC();
}

bool Module::isAdministratorHierarchy(const Module &module)
{
    return isTrueBool(module.getDataHierarchy(QStringLiteral("administrator")));
}

bool Module::isMacAdministratorHierarchy(const Module &module)
{
    return isTrueBool(module.getDataHierarchy(QStringLiteral("macAdministrator")));
}
