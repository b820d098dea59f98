#include "usersfolderelement.h"

#include "plugin/module.h"

#include <QIcon>

UsersFolderElement::UsersFolderElement(Module &module)
    // Never editable: the demo only reads, so the container offers no Create.
    : ContainerElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("usersFolder");
    // The group is inherited by the accounts; the tool filters the element tree by it.
    _groupElementType = QStringLiteral("users");
    // A fixed node: the container places it by depth and parent id, found by its id.
    _title = _id = QStringLiteral("Users");
    _expectedDepth = 1;
}

QString UsersFolderElement::caption() const
{
    return tr("Local user accounts (/etc/passwd)");
}

QVariant UsersFolderElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("system-users"));
    return ContainerElement::data(column, role);
}
