#pragma once

// A module as a plug-in writes one: users in a container, their forms and lists. Operations are
// answered at once, the way the module's tasks would answer them after their run, and logged
// as "<title or widget>:<operation in hex>".

#include "element/containerelement.h"
#include "element/elementdata.h"
#include "element/ordinaryelement.h"
#include "element/supplementelement.h"
#include "plugin/module.h"
#include "widgets/supplementelementselementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace WidgetFixture {

// Kinds of users: title in columns 0 and 1, the shell in column 2.
template<typename Kind> class Item : public Kind
{
public:
    Item(Module &module, const char *type, const QString &title, const QString &shell = {},
         OperationType extra = NoOperation)
        : Kind(module, &Module::defaultTrue)
        , _extra(extra)
    {
        this->_elementType = QLatin1String(type);
        this->setTitle(title);
        this->_elementData = new ElementData;
        this->_elementData->insert(QStringLiteral("shell"), shell);
    }
    QString caption() const override { return QStringLiteral("User ") + this->_title; }
    int columnCount() const override { return 3; }
    QVariant headerData(int section, Qt::Orientation, int role) const override
    {
        const char *names[] = {"Login", "Name", "Shell"};
        return role == Qt::DisplayRole && section < 3 ? QLatin1String(names[section]) : QVariant();
    }
    QVariant data(int column, int role) const override
    {
        if (role == Qt::DisplayRole && column > 0)
            return column == 1 ? this->_title : this->_elementData->value("shell");
        return Kind::data(column, role);
    }
    OperationType availableOperations() const override
    {
        return Kind::availableOperations() | _extra;
    }
    void performOperation(OperationType type, ElementData *data, int alternative) override
    {
        if (type & _extra)
            return this->module().performOperation(this, type, data, alternative);
        Kind::performOperation(type, data, alternative);
    }
    QStringList displayChildrenVariants() const override
    {
        return _extra & (ChangeDisplayOperation | LoginOperation2) ? QStringList {"list", "icons"}
                                                                   : QStringList();
    }

private:
    const OperationType _extra;
};
using Users = Item<ContainerElement>;
using User = Item<OrdinaryElement>;
using Mailbox = Item<SupplementElement>;

// The user form: the shell in a line edit, applied with a button.
class UserForm : public ViewEditElementWidget
{
public:
    explicit UserForm(Module &module, const char *type = "user", int priority = 500,
                      const char *beside = "Undefined")
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QLatin1String(type);
        _priority = priority;
        _supplementElementWidgetType = QLatin1String(beside);
        auto *layout = new QGridLayout(this);
        layout->addWidget(shell = new QLineEdit(this), 0, 0);
        layout->addWidget(apply = new QPushButton(QStringLiteral("Apply"), this), 0, 1);
        connect(shell, &QLineEdit::textEdited, this, &ViewEditElementWidget::changeContent);
        connect(apply, &QPushButton::clicked, this, &ViewEditElementWidget::applyContentChanges);
    }
    ElementData *exportElementData() const override
    {
        auto *data = new ElementData;
        data->insert(QStringLiteral("shell"), shell->text());
        return data;
    }
    void reset() override
    {
        shell->clear();
        ViewEditElementWidget::reset();
    }
    void afterSuccessfulRead(Element *element, ElementData *data) override
    {
        shell->setText(data->value(QStringLiteral("shell")).toString());
        ViewEditElementWidget::afterSuccessfulRead(element, data);
    }
    QLineEdit *shell;
    QPushButton *apply;
};

class UsersModule : public Module
{
public:
    UsersModule()
        : Module(QStringLiteral("users"), nullptr, false)
    {
        insertElementWidget(
            new ElementsElementWidget(QStringLiteral("users"), *this, &Module::defaultTrue));
        insertElementWidget(new UserForm(*this, "user", 500, "groups"));
        insertElementWidget(new UserForm(*this, "mailbox", 100));
        insertElementWidget(new SupplementElementsElementWidget(
            QStringLiteral("groups"), QStringLiteral("Groups"), *this, &Module::defaultTrue));
        users = new Users(*this, "users", QStringLiteral("Users"));
    }
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int) override
    {
        if (type == InsertedOperation || type == RemovedOperation)
            return; // tree notifications, not the user's
        Element *element = context->elementContext();
        log << QStringLiteral("%1:%2")
                   .arg(element ? element->title() : QStringLiteral("widget"))
                   .arg(quint64(type), 0, 16);
        auto *form = static_cast<UserForm *>(
            elementWidget(element ? element->elementType() : QStringLiteral("user")));
        if (type == ReadContentOperation) {
            for (const char *name :
                 {"alice:/bin/bash", "bob:/usr/sbin/nologin", "a.b:/bin/sh", "axb:/bin/dash"}) {
                const QStringList parts = QString::fromLatin1(name).split(':');
                element->append(new User(*this, "user", parts[0], parts[1]));
            }
        } else if (type == ReadOperation) {
            form->afterSuccessfulRead(element, element->elementData());
        } else if (type == UpdateOperation) {
            element->elementData()->insert(QStringLiteral("shell"), data->value("shell"));
            element->emitNodeDataChanged();
            form->setUnchanged();
        } else if (type == CreateOperation) {
            users->append(new User(*this, "user", data->value("shell").toString(), "/bin/sh"));
            form->setUnchanged();
        }
        delete data; // owned here, as a task owns the record it is given
    }
    Users *users;
    QStringList log;
};

// Answers the next message box with @p button and keeps its text.
inline void answerNextBox(QMessageBox::StandardButton button, QString *text)
{
    QTimer::singleShot(0, [=] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return answerNextBox(button, text);
        *text = box->text();
        box->button(button)->click();
    });
}

} // namespace WidgetFixture
