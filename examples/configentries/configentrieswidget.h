// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/vieweditelementwidget.h"

#include <QStringList>

class QLabel;
class QPushButton;
class RecordWidget;

/**
 * The form of the configuration file: one row per entry in file order, editable in a record
 * table; Apply writes the changes back, keeping every other line of the file as it was.
 */
class ConfigEntriesWidget : public ViewEditElementWidget
{
    Q_OBJECT

public:
    explicit ConfigEntriesWidget(Module &module, QWidget *parent = nullptr);

    /** Tells the user why there are no entries to edit. */
    void showError(const QString &message);
    RecordWidget *recordWidget() const { return _records; }

    void afterSuccessfulUpdate() override;
    ElementData *exportElementData() const override;
    void afterSuccessfulRead(Element *element, ElementData *data) override;
    bool isContentValid() const override;
    void reset() override;

private:
    QLabel *_pathLabel;
    QLabel *_errorLabel;
    RecordWidget *_records;
    QPushButton *_applyButton;
    QVariantList _entries; // as read, to refuse writing over a file changed meanwhile
};
