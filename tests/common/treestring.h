#pragma once

#include "treenode/treenode.h"

#include <QModelIndex>
#include <QStringList>

#include <initializer_list>

class QAbstractItemModel;

namespace OvtTest {

/**
 * The node that trees written as strings are made of.
 *
 * Its id is its name, and column c of the display and tool-tip roles shows the c-th of its
 * texts (the name first). Roles 258 and 259 are answered as by every node. A node used as a
 * root also decides the column count of a model over the tree.
 */
class TestNode : public TreeNode
{
    Q_OBJECT

public:
    /** A node of expected depth -1, so nodes loaded below it by loadTreeFromList() use 0. */
    explicit TestNode(const QString &name, QObject *owner = nullptr);
    /** A node for loadTreeFromList(): its place is given, its id is @p name. */
    TestNode(int expectedDepth, const QString &expectedParentId, const QString &name,
             QObject *owner = nullptr);

    void setTexts(const QStringList &texts);
    void setSpecialFlags(int flags);
    void setColumnCount(int columns);
    /** Number of afterLoad() calls received, and their order across all test nodes. */
    int afterLoadCalls() const;
    static QStringList &afterLoadLog();

    void afterLoad() override;
    int treeNodeSpecialFlags() const override;
    int columnCount() const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(int column, int role) const override;

private:
    QStringList _texts;
    int _specialFlags = 0;
    int _columnCount = 1;
    int _afterLoadCalls = 0;
};

/**
 * Builds the nodes written in @p notation, owned (as QObject children) by @p owner, and
 * returns the top-level ones, not attached to anything.
 *
 * Notation: a list of nodes separated by blanks; a node's children follow it in brackets:
 * "a[a1 a2] b". A name may carry column texts after '|' ("a|x|y": columns 0, 1 and 2) and
 * special flags after '#' ("a#3"). Deleting the owner deletes every node safely, in any
 * order, because a node takes itself out of its tree when destroyed.
 */
QList<TreeNode *> buildNodes(const QString &notation, QObject *owner);

/**
 * A new root for the tree "[...]" (outer brackets optional), owned by @p owner, with
 * @p columnCount columns; its id is "root".
 */
TestNode *buildTree(const QString &notation, QObject *owner, int columnCount = 1);

/** The tree below @p root in the notation above, names only: "[a[a1 a2] b]". */
QString treeToString(const TreeNode *root);

/**
 * The rows of @p model below @p parent in the notation above, read through index() and
 * data() in column 0: the display text of each row, or its id (role 258) when the display
 * role is not answered.
 */
QString modelToString(const QAbstractItemModel *model, const QModelIndex &parent = QModelIndex());

/** Declares test-table columns that all hold strings. */
void columns(std::initializer_list<const char *> names);
/** Adds a table row whose string fields are separated by ';' (blanks around them trimmed). */
void row(const char *name, const QString &fields);
/** The blank-separated words of @p text. */
QStringList words(const QString &text);

/** How a row appears in the notation: "root" for the invalid index. */
QString indexName(const QModelIndex &index);

} // namespace OvtTest
