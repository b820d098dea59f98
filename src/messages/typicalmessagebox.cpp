// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "typicalmessagebox.h"

#include "messages/typicalmessage.h"
#include "messages/typicalmessages.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>

namespace {

using StandardButton = QMessageBox::StandardButton;

StandardButton showStandard(const QString &keyId, QMessageBox::Icon icon, QWidget *parent,
                            const QString &title, const QString &text,
                            QMessageBox::StandardButtons buttons, StandardButton defaultButton)
{
    if (TypicalMessageBox::isSkip(keyId))
        return defaultButton;
    TypicalMessageBox box(keyId, icon, title, text, buttons, parent);
    box.setDefaultButton(defaultButton);
    return StandardButton(box.exec());
}

int showNumbered(const QString &keyId, QMessageBox::Icon icon, QWidget *parent,
                 const QString &title, const QString &text, int button0, int button1, int button2)
{
    if (TypicalMessageBox::isSkip(keyId)) {
        for (int button : {button0, button1, button2})
            if (button & QMessageBox::Default)
                return button & QMessageBox::ButtonMask;
        return 0;
    }
    TypicalMessageBox box(keyId, title, text, icon, button0, button1, button2, parent);
    return box.exec();
}

QString standardOkText()
{
    // The platform's own wording of the OK button, as every standard button shows it.
    QDialogButtonBox buttons(QDialogButtonBox::Ok);
    return buttons.button(QDialogButtonBox::Ok)->text();
}

int showWithTexts(const QString &keyId, QMessageBox::Icon icon, QWidget *parent,
                  const QString &title, const QString &text, const QStringList &buttonTexts,
                  int defaultButtonNumber, int escapeButtonNumber, const QString &detailedText)
{
    if (TypicalMessageBox::isSkip(keyId))
        return -1;
    TypicalMessageBox box(keyId, icon, title, text, QMessageBox::NoButton, parent,
                          Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    QList<QAbstractButton *> buttons;
    for (int i = 0; i < buttonTexts.size(); ++i) {
        if (i > 0 && buttonTexts.at(i).isEmpty())
            continue;
        const QString label = buttonTexts.at(i).isEmpty() ? standardOkText() : buttonTexts.at(i);
        buttons << box.addButton(label, QMessageBox::AcceptRole);
    }
    if (defaultButtonNumber >= 0 && defaultButtonNumber <= 2
        && defaultButtonNumber < buttons.size())
        box.setDefaultButton(qobject_cast<QPushButton *>(buttons.at(defaultButtonNumber)));
    if (escapeButtonNumber >= 0 && escapeButtonNumber <= 2 && escapeButtonNumber < buttons.size())
        box.setEscapeButton(buttons.at(escapeButtonNumber));
    if (!detailedText.isEmpty())
        box.setDetailedText(detailedText);
    box.exec();
    return buttons.indexOf(box.clickedButton());
}

} // namespace

TypicalMessageBox::TypicalMessageBox(const QString &keyId, QWidget *parent)
    : QMessageBox(parent)
    , _message(nullptr)
{
    setUp(keyId);
}

TypicalMessageBox::TypicalMessageBox(const QString &keyId, Icon icon, const QString &title,
                                     const QString &text, StandardButtons buttons, QWidget *parent,
                                     Qt::WindowFlags flags)
    : QMessageBox(icon, title, text, buttons, parent, flags)
    , _message(nullptr)
{
    setUp(keyId);
}

TypicalMessageBox::TypicalMessageBox(const QString &keyId, const QString &title,
                                     const QString &text, Icon icon, int button0, int button1,
                                     int button2, QWidget *parent, Qt::WindowFlags flags)
    : QMessageBox(icon, title, text, NoButton, parent, flags)
    , _message(nullptr)
{
    addLegacyButtons(button0, button1, button2);
    setUp(keyId);
}

void TypicalMessageBox::addLegacyButtons(int button0, int button1, int button2)
{
    for (int button : {button0, button1, button2}) {
        const auto standard = StandardButton(button & ButtonMask);
        if (standard == NoButton)
            continue;
        QPushButton *added = addButton(standard);
        if (button & Default)
            setDefaultButton(added);
        if (button & Escape)
            setEscapeButton(added);
    }
}

void TypicalMessageBox::setUp(const QString &keyId)
{
    _keyId = keyId;
    TypicalMessages *registry = TypicalMessages::instance();
    connect(registry, &QObject::destroyed, this, &TypicalMessageBox::onTypicalMessageDestroyed);
    connect(registry, &TypicalMessages::skipStateChanged, this,
            &TypicalMessageBox::onSkipStateChanged);
    if (keyId.isEmpty()) {
        qCritical("%s: keyId cannot be empty!", metaObject()->className());
        return;
    }
    _message = registry->findByKeyId(keyId);
    if (!_message)
        return;
    connect(registry, &TypicalMessages::removed, this, &TypicalMessageBox::onTypicalMessageRemoved);
    auto *checkBox = new QCheckBox(tr("Don't show this error again"), this);
    checkBox->setObjectName(QStringLiteral("skipCheckBox"));
    checkBox->setAccessibleName(checkBox->text());
    setCheckBox(checkBox);
    checkBox->setChecked(_message->isSkip());
    connect(checkBox, &QCheckBox::stateChanged, this, &TypicalMessageBox::onCheckStateChanged);
}

QString TypicalMessageBox::keyId() const
{
    return _keyId;
}

bool TypicalMessageBox::isTypicalMessageValid() const
{
    return _message;
}

bool TypicalMessageBox::isSkip() const
{
    return checkBox() && checkBox()->isChecked();
}

void TypicalMessageBox::setSkip(bool skip)
{
    if (checkBox())
        checkBox()->setChecked(skip);
}

bool TypicalMessageBox::isSkip(const QString &keyId)
{
    const TypicalMessage *message = TypicalMessages::instance()->findByKeyId(keyId);
    return message && message->isSkip();
}

void TypicalMessageBox::onTypicalMessageDestroyed()
{
    _message = nullptr;
}

void TypicalMessageBox::onTypicalMessageRemoved(TypicalMessage *message)
{
    if (message == _message)
        _message = nullptr;
}

void TypicalMessageBox::onSkipStateChanged(TypicalMessage *message, bool skip)
{
    if (message == _message && checkBox())
        checkBox()->setChecked(skip);
}

void TypicalMessageBox::onCheckStateChanged(int state)
{
    if (!_message)
        return;
    if (state == Qt::Unchecked)
        _message->setSkip(false);
    else if (state == Qt::Checked)
        _message->setSkip(true);
}

#define OVT_TYPICAL_STATICS(name, icon)                                                            \
    QMessageBox::StandardButton TypicalMessageBox::name(                                           \
        const QString &keyId, QWidget *parent, const QString &title, const QString &text,          \
        StandardButtons buttons, StandardButton defaultButton)                                     \
    {                                                                                              \
        return showStandard(keyId, icon, parent, title, text, buttons, defaultButton);             \
    }                                                                                              \
    int TypicalMessageBox::name(const QString &keyId, QWidget *parent, const QString &title,       \
                                const QString &text, int button0, int button1, int button2)        \
    {                                                                                              \
        return showNumbered(keyId, icon, parent, title, text, button0, button1, button2);          \
    }                                                                                              \
    int TypicalMessageBox::name(                                                                   \
        const QString &keyId, QWidget *parent, const QString &title, const QString &text,          \
        const QString &button0Text, const QString &button1Text, const QString &button2Text,        \
        int defaultButtonNumber, int escapeButtonNumber, const QString &detailedText)              \
    {                                                                                              \
        return showWithTexts(keyId, icon, parent, title, text,                                     \
                             {button0Text, button1Text, button2Text}, defaultButtonNumber,         \
                             escapeButtonNumber, detailedText);                                    \
    }

OVT_TYPICAL_STATICS(information, Information)
OVT_TYPICAL_STATICS(question, Question)
OVT_TYPICAL_STATICS(warning, Warning)
OVT_TYPICAL_STATICS(critical, Critical)
