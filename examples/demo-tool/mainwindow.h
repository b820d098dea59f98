// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QMainWindow>
#include <QStringList>

class QTreeView;
class Element;
class ElementContainer;
class ElementWidgetContainer2;
class GroupInvisibleElementSortFilterProxyModel;
class ModuleTitleProxyModel;
class PluginContainer;

/**
 * The demo tool's window: the module tree of all loaded plug-ins on the left; on the right the
 * elements of the chosen module and, under them, the widgets of the current element. Choosing
 * no module shows every module's elements.
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
    /**
     * Chooses the module @p path starts with and then, level by level, the elements whose ids
     * follow, opening each on the way. Lazily read levels are waited for, a few seconds at most.
     * Then presses the button of the shown panel whose text starts with @p button, if any.
     */
    void select(const QStringList &path, const QString &button = QString());
    /** The window with the dialogs open over it, as one picture. */
    QImage render();

private:
    void pluginsReset();
    void moduleChosen();
    void elementChosen();
    void expandFixedElements();
    void selectStep(const QStringList &path, const QString &button, int attempts);

    PluginContainer *_plugins; // child
    ElementContainer *_elements; // child
    ModuleTitleProxyModel *_moduleProxy; // child
    GroupInvisibleElementSortFilterProxyModel *_elementProxy; // child
    QTreeView *_moduleView;
    QTreeView *_elementView;
    ElementWidgetContainer2 *_widgets;
};
