#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace {

// Installs the library's catalogue for the system locale as soon as the
// application object exists, so every library text shown later is translated.
void installLibraryTranslator()
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QLocale::system(), QStringLiteral("libovt-common"), QStringLiteral("_"),
                         QStringLiteral(OVT_TRANSLATIONS_DIR)))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installLibraryTranslator)
