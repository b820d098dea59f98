#pragma once

#include "element/loginelement.h"

/**
 * One account of /etc/passwd. Its record holds "user" (the login name) and "isLogin" (true
 * when its shell is a login shell of /etc/shells), as every LoginElement's does, plus "uid", "home"
 * and "shell" for the caption.
 */
class AccountElement : public LoginElement
{
    Q_OBJECT

public:
    AccountElement(Module &module, const QString &user, uint uid, const QString &home,
                   const QString &shell, bool isLogin);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
