// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QMessageBox>

class TypicalMessage;
class QCheckBox;

/**
 * A message box for a registered typical message: it carries the check box "Don't show this
 * error again" bound to the message's skip flag, in both directions. The static functions
 * mirror QMessageBox's and return at once, without showing anything, when the user chose to
 * skip the message: the standard-button overloads then return the default button
 * (QMessageBox::NoButton when there is none), the button-number overloads the button marked
 * QMessageBox::Default (else 0) and the button-text overloads -1.
 *
 * An unknown key shows no check box and is never skipped; an empty key is logged as the
 * critical message "TypicalMessageBox: keyId cannot be empty!".
 */
class OVTCOMMON_EXPORT TypicalMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    explicit TypicalMessageBox(const QString &keyId, QWidget *parent = nullptr);
    TypicalMessageBox(const QString &keyId, Icon icon, const QString &title, const QString &text,
                      StandardButtons buttons = NoButton, QWidget *parent = nullptr,
                      Qt::WindowFlags flags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    /** @p button0 to @p button2 are standard buttons, optionally OR-ed with Default or Escape. */
    TypicalMessageBox(const QString &keyId, const QString &title, const QString &text, Icon icon,
                      int button0, int button1, int button2, QWidget *parent = nullptr,
                      Qt::WindowFlags flags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);

    QString keyId() const;
    /** Whether a registered message was found for the key. */
    bool isTypicalMessageValid() const;
    /** The state of the check box; false without one. */
    bool isSkip() const;
    void setSkip(bool skip);
    /** The registered message's skip flag; false for an unknown key. */
    static bool isSkip(const QString &keyId);

    static StandardButton information(const QString &keyId, QWidget *parent, const QString &title,
                                      const QString &text, StandardButtons buttons = Ok,
                                      StandardButton defaultButton = NoButton);
    static int information(const QString &keyId, QWidget *parent, const QString &title,
                           const QString &text, int button0, int button1 = 0, int button2 = 0);
    static int information(const QString &keyId, QWidget *parent, const QString &title,
                           const QString &text, const QString &button0Text,
                           const QString &button1Text = QString(),
                           const QString &button2Text = QString(), int defaultButtonNumber = 0,
                           int escapeButtonNumber = -1, const QString &detailedText = QString());

    static StandardButton question(const QString &keyId, QWidget *parent, const QString &title,
                                   const QString &text,
                                   StandardButtons buttons = StandardButtons(Yes | No),
                                   StandardButton defaultButton = NoButton);
    static int question(const QString &keyId, QWidget *parent, const QString &title,
                        const QString &text, int button0, int button1 = 0, int button2 = 0);
    static int question(const QString &keyId, QWidget *parent, const QString &title,
                        const QString &text, const QString &button0Text,
                        const QString &button1Text = QString(),
                        const QString &button2Text = QString(), int defaultButtonNumber = 0,
                        int escapeButtonNumber = -1, const QString &detailedText = QString());

    static StandardButton warning(const QString &keyId, QWidget *parent, const QString &title,
                                  const QString &text, StandardButtons buttons = Ok,
                                  StandardButton defaultButton = NoButton);
    static int warning(const QString &keyId, QWidget *parent, const QString &title,
                       const QString &text, int button0, int button1 = 0, int button2 = 0);
    static int warning(const QString &keyId, QWidget *parent, const QString &title,
                       const QString &text, const QString &button0Text,
                       const QString &button1Text = QString(),
                       const QString &button2Text = QString(), int defaultButtonNumber = 0,
                       int escapeButtonNumber = -1, const QString &detailedText = QString());

    static StandardButton critical(const QString &keyId, QWidget *parent, const QString &title,
                                   const QString &text, StandardButtons buttons = Ok,
                                   StandardButton defaultButton = NoButton);
    static int critical(const QString &keyId, QWidget *parent, const QString &title,
                        const QString &text, int button0, int button1 = 0, int button2 = 0);
    static int critical(const QString &keyId, QWidget *parent, const QString &title,
                        const QString &text, const QString &button0Text,
                        const QString &button1Text = QString(),
                        const QString &button2Text = QString(), int defaultButtonNumber = 0,
                        int escapeButtonNumber = -1, const QString &detailedText = QString());

public Q_SLOTS:
    void onTypicalMessageDestroyed();
    void onTypicalMessageRemoved(TypicalMessage *message);
    void onSkipStateChanged(TypicalMessage *message, bool skip);
    void onCheckStateChanged(int state);

private:
    void setUp(const QString &keyId);
    void addLegacyButtons(int button0, int button1, int button2);

    QString _keyId;
    TypicalMessage *_message; // owned by the registry; null once it is gone
};
