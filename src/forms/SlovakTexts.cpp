#include "forms/SlovakTexts.h"

#include "forms/SlovakTable.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>

#include <algorithm>
#include <cstring>

namespace forms {

namespace {

/// Those that ask for the captions of standard buttons.
bool isThemeContext(const char* context) {
    return std::strcmp(context, "QPlatformTheme") == 0 || std::strcmp(context, "QGnomeTheme") == 0;
}

/// Sizes of paper are names, but for a few words in them.
QString paperName(QString name) {
    return name.replace(QLatin1String("Envelope"), QStringLiteral("Obálka"))
        .replace(QLatin1String("Double Postcard"), QStringLiteral("Dvojitá pohľadnica"))
        .replace(QLatin1String("Postcard"), QStringLiteral("Pohľadnica"))
        .replace(QLatin1String("Custom"), QStringLiteral("Vlastná"));
}

} // namespace

QString SlovakTexts::translate(const char* context, const char* sourceText, const char*,
                               int) const {
    if (context == nullptr || sourceText == nullptr)
        return {};
    if (std::strcmp(context, "QPageSize") == 0)
        return paperName(QString::fromUtf8(sourceText));
    const QString plain = QString::fromUtf8(sourceText).remove(u'&');
    const auto found = std::ranges::find_if(slovakTable(), [&](const SlovakText& text) {
        return plain == QString::fromUtf8(text.source);
    });
    if (found == slovakTable().end())
        return {};
    QString slovak = QString::fromUtf16(found->slovak);
    return isThemeContext(context) ? slovak : slovak.remove(u'&');
}

bool installSlovakTexts(QCoreApplication& application) {
    const QLocale slovak(QLocale::Slovak, QLocale::Slovakia);
    QLocale::setDefault(slovak);
    // The last one installed is asked first.
    QCoreApplication::installTranslator(new SlovakTexts(&application));
    auto* catalogue = new QTranslator(&application);
    const bool found = catalogue->load(slovak, QStringLiteral("qtbase"), QStringLiteral("_"),
                                       QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QCoreApplication::installTranslator(catalogue);
    return found;
}

} // namespace forms
