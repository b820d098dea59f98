#include "treestring.h"

#include <QAbstractItemModel>
#include <QTest>

namespace OvtTest {

TestNode::TestNode(const QString &name, QObject *owner)
    : TestNode(-1, QString(), name, owner)
{ }

TestNode::TestNode(int expectedDepth, const QString &expectedParentId, const QString &name,
                   QObject *owner)
    : TreeNode(expectedDepth, expectedParentId, owner)
    , _texts {name}
{
    setId(name);
    setObjectName(name);
}

void TestNode::setTexts(const QStringList &texts)
{
    _texts = texts;
}

void TestNode::setSpecialFlags(int flags)
{
    _specialFlags = flags;
}

void TestNode::setColumnCount(int columns)
{
    _columnCount = columns;
}

int TestNode::afterLoadCalls() const
{
    return _afterLoadCalls;
}

QStringList &TestNode::afterLoadLog()
{
    static QStringList log;
    return log;
}

void TestNode::afterLoad()
{
    ++_afterLoadCalls;
    afterLoadLog().append(id());
}

int TestNode::treeNodeSpecialFlags() const
{
    return _specialFlags;
}

int TestNode::columnCount() const
{
    return _columnCount;
}

QVariant TestNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < _columnCount)
        return QStringLiteral("column %1").arg(section);
    return QVariant();
}

QVariant TestNode::data(int column, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return column >= 0 && column < _texts.size() ? QVariant(_texts.at(column)) : QVariant();
    return TreeNode::data(column, role);
}

namespace {

class Parser
{
public:
    Parser(const QString &text, QObject *owner)
        : _text(text)
        , _owner(owner)
    { }

    // Reads nodes until the end or a closing bracket, which it leaves for the caller.
    QList<TreeNode *> parseList()
    {
        QList<TreeNode *> nodes;
        for (;;) {
            skipBlanks();
            if (atEnd() || peek() == QLatin1Char(']'))
                return nodes;
            if (peek() == QLatin1Char('[')) {
                // A bracket without a name before it: children of the last node.
                Q_ASSERT_X(!nodes.isEmpty(), "buildNodes", "children without a parent");
                ++_pos;
                nodes.last()->append(parseList());
                expect(QLatin1Char(']'));
                continue;
            }
            nodes.append(parseNode());
        }
    }

private:
    TreeNode *parseNode()
    {
        QString token;
        while (!atEnd() && !peek().isSpace() && peek() != QLatin1Char('[')
               && peek() != QLatin1Char(']'))
            token.append(_text.at(_pos++));
        int flags = 0;
        const int hash = token.indexOf(QLatin1Char('#'));
        if (hash >= 0) {
            flags = token.mid(hash + 1).toInt();
            token.truncate(hash);
        }
        const QStringList texts = token.split(QLatin1Char('|'));
        auto *node = new TestNode(texts.first(), _owner);
        node->setTexts(texts);
        node->setSpecialFlags(flags);
        return node;
    }

    void skipBlanks()
    {
        while (!atEnd() && peek().isSpace())
            ++_pos;
    }
    void expect(QChar c)
    {
        skipBlanks();
        Q_ASSERT_X(!atEnd() && peek() == c, "buildNodes", "unbalanced brackets");
        ++_pos;
    }
    bool atEnd() const { return _pos >= _text.size(); }
    QChar peek() const { return _text.at(_pos); }

    const QString _text;
    QObject *_owner;
    int _pos = 0;
};

} // namespace

QList<TreeNode *> buildNodes(const QString &notation, QObject *owner)
{
    Parser parser(notation, owner);
    return parser.parseList();
}

TestNode *buildTree(const QString &notation, QObject *owner, int columnCount)
{
    QString inner = notation.trimmed();
    if (inner.startsWith(QLatin1Char('[')) && inner.endsWith(QLatin1Char(']')))
        inner = inner.mid(1, inner.size() - 2);
    auto *root = new TestNode(QStringLiteral("root"), owner);
    root->setColumnCount(columnCount);
    root->append(buildNodes(inner, owner));
    return root;
}

QString treeToString(const TreeNode *root)
{
    QStringList parts;
    for (const TreeNode *child : root->childNodes()) {
        const QString name = child->id().isEmpty() ? child->objectName() : child->id();
        parts.append(child->childNodesCount() ? name + treeToString(child) : name);
    }
    return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
}

void columns(std::initializer_list<const char *> names)
{
    for (const char *name : names)
        QTest::addColumn<QString>(name);
}

void row(const char *name, const QString &fields)
{
    QTestData &data = QTest::newRow(name);
    for (const QString &field : fields.split(QLatin1Char(';')))
        data << field.trimmed();
}

QStringList words(const QString &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString indexName(const QModelIndex &index)
{
    if (!index.isValid())
        return QStringLiteral("root");
    const QModelIndex first = index.sibling(index.row(), 0);
    const QVariant display = first.data(Qt::DisplayRole);
    return display.isValid() ? display.toString() : first.data(Qt::UserRole + 2).toString();
}

QString modelToString(const QAbstractItemModel *model, const QModelIndex &parent)
{
    QStringList parts;
    const int rows = model->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QString name = indexName(index);
        parts.append(model->rowCount(index) ? name + modelToString(model, index) : name);
    }
    return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
}

} // namespace OvtTest
