#include "accountelements.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

AccountFolderElement::AccountFolderElement(Module &module, Kind kind)
    // Never editable: users and groups are created with the system's own tools.
    : ContainerElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("accountFolder");
    // The group is inherited by the children; the tool filters the element tree by it.
    _groupElementType = module.id();
    // A fixed node: the container places it by depth and parent id, found by its id.
    _title = _id = kind == Users ? QStringLiteral("Users") : QStringLiteral("Groups");
    _expectedDepth = 1;
    _requireLoad = true;
    // A plain element has no record; the element owns and deletes the one it is given.
    setElementData(new ElementData);
    elementData()->insert(QStringLiteral("kind"), kind);
}

AccountFolderElement::Kind AccountFolderElement::kind() const
{
    return static_cast<Kind>(elementData()->value(QStringLiteral("kind")).toInt());
}

QString AccountFolderElement::caption() const
{
    return kind() == Users ? tr("User accounts, including those of directory services")
                           : tr("Groups, including those of directory services");
}

QVariant AccountFolderElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(kind() == Users ? QStringLiteral("system-users")
                                                : QStringLiteral("folder"));
    return ContainerElement::data(column, role);
}

AccountElement::AccountElement(Module &module, const ElementData &record)
    // Only root may change accounts; everyone may read them.
    : LoginElement(module, &Module::isAdministrator)
{
    _elementType = QStringLiteral("account");
    // After the type: the id of a run-time element is made from its type and title.
    setTitle(record.value(QStringLiteral("user")).toString());
    // Accounts have no children to read; without this every row would show an expander.
    _requireLoad = false;
    *elementData() = record;
}

OperationType AccountElement::availableOperations() const
{
    return isEditable() ? LoginElement::availableOperations() | UpdateOperation
                        : LoginElement::availableOperations();
}

void AccountElement::performOperation(OperationType operation, ElementData *data, int alternative)
{
    // An element does no work itself: what it offers goes to its module.
    if (operation == UpdateOperation && isEditable())
        module().performOperation(this, operation, data, alternative);
    else
        LoginElement::performOperation(operation, data, alternative);
}

QString AccountElement::caption() const
{
    const ElementData *record = elementData();
    return tr("%1: uid %2, home %3, shell %4")
        .arg(title(), record->value(QStringLiteral("uid")).toString(),
             record->value(QStringLiteral("home")).toString(),
             record->value(QStringLiteral("shell")).toString());
}

QVariant AccountElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole) {
        // People and services look different at a glance.
        static const QIcon person = QIcon::fromTheme(QStringLiteral("avatar-default"));
        static const QIcon system = QIcon::fromTheme(QStringLiteral("emblem-system"));
        return elementData()->value(QStringLiteral("isLogin")).toBool() ? person : system;
    }
    return LoginElement::data(column, role);
}

GroupElement::GroupElement(Module &module, const ElementData &record)
    : Element(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("group");
    setTitle(record.value(QStringLiteral("name")).toString());
    setElementData(new ElementData(record));
}

QString GroupElement::caption() const
{
    const QStringList members = elementData()->value(QStringLiteral("members")).toStringList();
    return tr("%1: gid %2, members: %3")
        .arg(title(), elementData()->value(QStringLiteral("gid")).toString(),
             members.isEmpty() ? tr("none") : members.join(QStringLiteral(", ")));
}

QVariant GroupElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole) {
        static const QIcon group = QIcon::fromTheme(QStringLiteral("system-users"));
        return group;
    }
    return Element::data(column, role);
}
