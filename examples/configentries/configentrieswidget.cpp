// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "configentrieswidget.h"

#include "configentriestasks.h"
#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "widgets/record.h"
#include "widgets/recordmodel.h"
#include "widgets/recordwidget.h"

#include <QColor>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/** One entry row; _index is its place among the entries read, -1 for a new one. */
class EntryRecord : public Record
{
    Q_DECLARE_TR_FUNCTIONS(EntryRecord)

public:
    EntryRecord(int index = -1, const QString &key = QString(), const QString &value = QString())
        : _index(index)
        , _key(key)
        , _value(value)
    { }
    bool isEmpty() const override { return _key.isEmpty() && _value.isEmpty(); }
    bool isValid() const override
    {
        return ConfigEntriesHandler::isValidKey(_key) && ConfigEntriesHandler::isValidValue(_value);
    }
    bool isEditable(int) const override { return true; }
    QVariant data(int column, int role) const override
    {
        const QString &text = column == 0 ? _key : _value;
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return text;
        if (role == Qt::ToolTipRole && !isValid())
            return tr("A key is a letter or \"_\" followed by letters, digits, \"_\", \".\" or "
                      "\"-\"; a value has no \"#\" and no blanks at its ends.");
        if (role == Qt::ForegroundRole && !isValid())
            return QColor(Qt::red);
        return QVariant();
    }
    bool setData(int column, const QVariant &value) override
    {
        (column == 0 ? _key : _value) = value.toString();
        _changed = true;
        return true;
    }

    int _index;
    QString _key;
    QString _value;
};

int columnCount()
{
    return 2;
}

QVariant headerData(int section)
{
    return section == 0 ? ConfigEntriesWidget::tr("Key") : ConfigEntriesWidget::tr("Value");
}

Record *createRecord()
{
    return new EntryRecord;
}

} // namespace

ConfigEntriesWidget::ConfigEntriesWidget(Module &module, QWidget *parent)
    : ViewEditElementWidget(module, &Module::defaultTrue, parent)
    , _pathLabel(new QLabel(this))
    , _errorLabel(new QLabel(this))
    , _records(new RecordWidget(this))
    , _applyButton(new QPushButton(tr("Apply"), this))
{
    _elementType = QStringLiteral("configFile");
    setWindowTitle(tr("Entries"));
    _pathLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _errorLabel->setWordWrap(true);
    _errorLabel->hide();
    _records->setRecordModel(new RecordModel(&columnCount, &headerData, &createRecord));
    _records->setSettingsKey(QStringLiteral("configEntries/records"));
    _records->setAccessibleName(tr("Configuration entries"));
    _applyButton->setAccessibleName(tr("Apply the changed entries"));
    _applyButton->setEnabled(false);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(_pathLabel);
    layout->addWidget(_errorLabel);
    layout->addWidget(_records);
    layout->addWidget(_applyButton, 0, Qt::AlignRight);
    connect(_records, &RecordWidget::dataChanged, this, &ViewEditElementWidget::changeContent);
    connect(_applyButton, &QPushButton::clicked, this, &ViewEditElementWidget::applyContentChanges);
    connect(this, &ViewEditElementWidget::contentChanged, _applyButton,
            [this](int state) { _applyButton->setEnabled(state == 3); });
}

void ConfigEntriesWidget::showError(const QString &message)
{
    _errorLabel->setText(message);
    _errorLabel->show();
}

void ConfigEntriesWidget::afterSuccessfulUpdate()
{
    // The written file is the new reference: entries moved, so read it again.
    read();
}

ElementData *ConfigEntriesWidget::exportElementData() const
{
    QVector<ConfigEntry> targets(_entries.size()), extra;
    for (const Record *record : _records->recordModel()->getRecordList()) {
        const auto *entry = static_cast<const EntryRecord *>(record);
        if (entry->_index >= 0 && entry->_index < targets.size())
            targets[entry->_index] = {entry->_key, entry->_value};
        else if (!entry->isEmpty())
            extra.append({entry->_key, entry->_value});
    }
    auto *data = new ElementData;
    data->insert(QStringLiteral("entries"), _entries);
    data->insert(QStringLiteral("targets"), WriteEntriesTask::toVariant(targets));
    data->insert(QStringLiteral("extra"), WriteEntriesTask::toVariant(extra));
    return data;
}

void ConfigEntriesWidget::afterSuccessfulRead(Element *element, ElementData *data)
{
    if (element == _element && data) {
        _entries = data->value(QStringLiteral("entries")).toList();
        QList<Record *> records;
        const QVector<ConfigEntry> entries = WriteEntriesTask::fromVariant(_entries);
        for (int i = 0; i < entries.size(); ++i)
            records << new EntryRecord(i, entries.at(i).key, entries.at(i).value);
        _records->recordModel()->setRecordList(records);
        _errorLabel->hide();
    }
    ViewEditElementWidget::afterSuccessfulRead(element, data);
}

bool ConfigEntriesWidget::isContentValid() const
{
    for (const Record *record : _records->recordModel()->getRecordList())
        if (!record->isEmpty() && !record->isValid())
            return false;
    return true;
}

void ConfigEntriesWidget::reset()
{
    ViewEditElementWidget::reset();
    _pathLabel->setText(_element ? _element->caption() : QString());
    _applyButton->setEnabled(false);
}
