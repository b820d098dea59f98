// A tool-sized program built against an installed ovt-common: both include styles work.
#include <ovt-common/treenode/confroottreenode.h>
#include <treenode/conftreenode.h>
#include <treenode/treenodemodel.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    ConfRootTreeNode root;
    root.loadTreeFromList({new ConfTreeNode(QStringLiteral("port"), QStringLiteral("5432")),
                           new ConfTreeNode(QStringLiteral("host"), QStringLiteral("localhost"))});
    TreeNodeModel model(&root);
    const QString first = model.index(0, 0).data().toString();
    std::printf("rows=%d first=%s\n", model.rowCount(), qPrintable(first));
    return model.rowCount() == 2 && first == QLatin1String("host") ? 0 : 1;
}
