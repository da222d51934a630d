#include "forms/SlovakTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>

#include <array>
#include <cstring>

namespace forms {

namespace {

struct Caption {
    const char* source;
    const char16_t* slovak;
};

// The desktop themes of Qt differ in where they put the ampersand, so sources are told without it.
// "Áno" has it on a letter that every keyboard has.
constexpr auto captions = std::to_array<Caption>({
    {"OK", u"&OK"},
    {"Save", u"&Uložiť"},
    {"Save All", u"Uložiť &všetko"},
    {"Open", u"&Otvoriť"},
    {"Yes", u"Án&o"},
    {"Yes to All", u"Áno &všetkým"},
    {"No", u"&Nie"},
    {"No to All", u"Ni&e všetkým"},
    {"Abort", u"&Prerušiť"},
    {"Retry", u"&Opakovať"},
    {"Ignore", u"&Ignorovať"},
    {"Close", u"&Zavrieť"},
    {"Cancel", u"&Zrušiť"},
    {"Discard", u"Zaho&diť"},
    {"Close without Saving", u"Zavrieť &bez uloženia"},
    {"Help", u"Po&mocník"},
    {"Apply", u"Po&užiť"},
    {"Reset", u"Obno&viť"},
    {"Restore Defaults", u"Obnoviť &predvolené"},
});

bool isThemeContext(const char* context) {
    return std::strcmp(context, "QPlatformTheme") == 0 || std::strcmp(context, "QGnomeTheme") == 0;
}

} // namespace

QString SlovakTexts::translate(const char* context, const char* sourceText, const char*,
                               int) const {
    if (context == nullptr || sourceText == nullptr || !isThemeContext(context))
        return {};
    const QString plain = QString::fromLatin1(sourceText).remove(u'&');
    for (const Caption& caption : captions) {
        if (plain == QLatin1String(caption.source))
            return QString::fromUtf16(caption.slovak);
    }
    return {};
}

bool installSlovakTexts(QCoreApplication& application) {
    const QLocale slovak(QLocale::Slovak, QLocale::Slovakia);
    QLocale::setDefault(slovak);
    auto* catalogue = new QTranslator(&application);
    const bool found = catalogue->load(slovak, QStringLiteral("qtbase"), QStringLiteral("_"),
                                       QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QCoreApplication::installTranslator(catalogue);
    QCoreApplication::installTranslator(new SlovakTexts(&application));
    return found;
}

} // namespace forms
