#pragma once

#include <QMainWindow>

class QTreeView;
class ElementContainer;
class GroupInvisibleElementSortFilterProxyModel;
class PluginContainer;

/**
 * The demo tool's window: the module tree of all loaded plug-ins on the left, the elements
 * of the chosen module on the right. Choosing no module shows every module's elements.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    /** Unloads the plug-ins while the window and its views can still follow the reset. */
    ~MainWindow() override;

    /** Loads (or reloads) the plug-ins found under @p directory. */
    void loadPlugins(const QString &directory);

private:
    void pluginsReset();
    void moduleChosen();
    void expandFixedElements();

    PluginContainer *_plugins; // child
    ElementContainer *_elements; // child
    GroupInvisibleElementSortFilterProxyModel *_elementProxy; // child
    QTreeView *_moduleView;
    QTreeView *_elementView;
};
