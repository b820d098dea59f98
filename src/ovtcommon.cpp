// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTranslator>

#ifndef OVT_TRANSLATIONS_DIR
#include <dlfcn.h>
#endif

namespace {

// The directory of the catalogues. Without a compiled-in one it lies at a fixed place relative
// to the library file itself, so an installed tree can move to any prefix.
QString translationsDir()
{
#ifdef OVT_TRANSLATIONS_DIR
    return QStringLiteral(OVT_TRANSLATIONS_DIR);
#else
    Dl_info info;
    if (!dladdr(reinterpret_cast<void *>(&translationsDir), &info) || !info.dli_fname)
        return QString();
    const QDir libraryDir = QFileInfo(QFile::decodeName(info.dli_fname)).absoluteDir();
    return QDir::cleanPath(libraryDir.filePath(QStringLiteral(OVT_TRANSLATIONS_RELATIVE_DIR)));
#endif
}

// Installs the library's catalogue for the system locale as soon as the
// application object exists, so every library text shown later is translated.
void installLibraryTranslator()
{
    const QString dir = translationsDir();
    if (dir.isEmpty())
        return;
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QLocale::system(), QStringLiteral("libovt-common"), QStringLiteral("_"),
                         dir))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installLibraryTranslator)
