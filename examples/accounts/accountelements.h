#pragma once

#include "element/containerelement.h"
#include "element/loginelement.h"

/**
 * "Users" or "Groups": a fixed top-level folder whose children are read lazily, the first time
 * the user opens it (ContainerElement asks its module for ReadContentOperation).
 */
class AccountFolderElement : public ContainerElement
{
    Q_OBJECT

public:
    enum Kind { Users, Groups };

    AccountFolderElement(Module &module, Kind kind);

    /** Kept in the record (key "kind"): element classes carry their state there. */
    Kind kind() const;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};

/**
 * One user account. Its record holds "user" and "isLogin" (true when the shell is one of
 * /etc/shells), as every LoginElement's does, plus "uid", "gid", "gecos", "home" and "shell".
 * Besides the operations of every login it offers Update while the module is editable.
 */
class AccountElement : public LoginElement
{
    Q_OBJECT

public:
    AccountElement(Module &module, const ElementData &record);

    OperationType availableOperations() const override;
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};

/** One group: "name", "gid" and "members" (a string list) in its record. Read only. */
class GroupElement : public Element
{
    Q_OBJECT

public:
    GroupElement(Module &module, const ElementData &record);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
