#include "accountelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

AccountElement::AccountElement(Module &module, const QString &user, uint uid, const QString &home,
                               const QString &shell, bool isLogin)
    : LoginElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("account");
    // After the type: the id of a run-time element is made from its type and title.
    setTitle(user);
    ElementData *record = elementData();
    record->insert(QStringLiteral("user"), user);
    record->insert(QStringLiteral("isLogin"), isLogin);
    record->insert(QStringLiteral("uid"), uid);
    record->insert(QStringLiteral("home"), home);
    record->insert(QStringLiteral("shell"), shell);
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
