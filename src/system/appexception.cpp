// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/appexception.h"

AppException::AppException(const QString &text)
    : _text(text)
    , _localText(text.toLocal8Bit())
{ }

AppException::~AppException() = default;

const QString &AppException::getText() const
{
    return _text;
}

const char *AppException::what() const noexcept
{
    return _localText.constData();
}
