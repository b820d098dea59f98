// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/elementwidget.h"

class TreeNode;

/**
 * Base of the forms that show, edit and create one element.
 *
 * The form reports its state with contentChanged(): 0 unchanged, 2 changed but not valid,
 * 3 changed and valid. A form in CreateRole starts changed and not valid.
 */
class OVTCOMMON_EXPORT ViewEditElementWidget : public ElementWidget
{
    Q_OBJECT

public:
    ViewEditElementWidget(Module &module, bool (*isEditable)(const Module &),
                          QWidget *parent = nullptr);
    ~ViewEditElementWidget() override;

    /** If changed or in CreateRole: clears the changed state and emits contentChanged(0). */
    void setUnchanged();
    bool isChanged() const;
    /**
     * Activates another element from inside the form, asking first when edits are not saved.
     * An element with display variants first receives ChangeDisplayOperation with a new
     * ChangeDisplayElementData(0) that the receiver owns from then on (a module that makes
     * a task of it hands it to the task, which deletes it).
     */
    void setTreeNodeCurrent(TreeNode *node);
    /** Tells the user that the element cannot be activated. */
    void noSetTreeNodeCurrent();
    /** Hook before a create task runs; does nothing here. */
    void beforeCreation();
    /** Hook to link elements outside the form; does nothing here. */
    void linkExternalElements();

public Q_SLOTS:
    /** CreateOperation only. */
    OperationType availableOperations() const override;
    /** CreateOperation goes to the module with this form as context and exportElementData(). */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    /** Rebinds and resets the form; nothing happens for the current element and role. */
    void setElement(Element *element, ElementWidgetRole role) override;
    /** In ViewEditRole, asks the element to read its properties when it offers that. */
    void read() override;

    /*
     * The slots below come in the order of their virtual-table slots, which plug-ins are built
     * against. afterSuccessfulUpdate() and isContentValid() each hold two slots that share one
     * implementation; two functions of one name and signature cannot both be declared, so the
     * second of each pair differs from the first only in the constness of this. Override the
     * first of each pair (the non-const afterSuccessfulUpdate(), the const isContentValid()):
     * the second one forwards to it, so either call reaches the override.
     */

    /** Called after a successful update or create task; does nothing here. */
    virtual void afterSuccessfulUpdate();
    /** A new record describing the form's content (caller owns it); null here. */
    virtual ElementData *exportElementData() const;
    /** Unblocks the form; marks it unchanged when @p element is still the one shown. */
    virtual void afterSuccessfulRead(Element *element, ElementData *data);
    /** Imported data counts as an unsaved edit. */
    virtual void afterSuccessfulImport(ElementData *data);
    /** The second slot of the pair: forwards to the non-const afterSuccessfulUpdate(). */
    virtual void afterSuccessfulUpdate() const;
    /** Creates (without element) or updates (with element) from the form's content. */
    virtual void applyContentChanges();
    /** Whether the form's content may be applied; true here. */
    virtual bool isContentValid() const;
    /** Clears the changed state and blocks editing until data arrives. */
    virtual void reset();
    /** The second slot of the pair: forwards to isContentValid() const. */
    virtual bool isContentValid();
    /** Disables or enables the form; a non-editable module keeps it disabled in ViewEditRole. */
    virtual void blockEditWidget(bool block);

    /** Called by the form's editors: marks the form changed and reports validity. */
    void changeContent();

Q_SIGNALS:
    void contentChanged(int state);

protected:
    bool _changed;
    bool _editBlocked;
};
