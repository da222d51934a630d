#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QListWidget>
#include <QPushButton>

namespace tour {

namespace {

void turnTabs(Guide& guide, int tabs) {
    for (int i = 0; i < tabs; ++i)
        guide.key(Qt::Key_PageDown, Qt::ControlModifier);
}

void fillBasicData(Guide& guide) {
    guide.picture(QStringLiteral("novy-klient"));
    guide.enter({"jana", "kováčiková"});
    guide.type(QStringLiteral("Lúčk"));
    guide.picture(QStringLiteral("novy-klient-obec"));
    guide.key(Qt::Key_A, Qt::ControlModifier);
    guide.enter({"Nitra", "1855120003"});
    guide.enter({"", "", "4711", "25", "01"});
    guide.key(Qt::Key_F4);
    guide.picture(QStringLiteral("novy-klient-ciselnik"));
    guide.key(Qt::Key_Escape);
    guide.enter({"SK", "sk", "sk", "dlhá 1", "Nitra", "94901", "", "", "1.9.26", "3"});
    guide.key(Qt::Key_Tab);
    guide.key(Qt::Key_F4);
    guide.picture(QStringLiteral("novy-klient-postihnutia"));
    guide.key(Qt::Key_Escape);
    guide.picture(QStringLiteral("novy-klient-vyplneny"));
    guide.press(QStringLiteral("cmdZaklUd"));
    guide.picture(QStringLiteral("novy-klient-zapisany"));
}

void addCareRecord(Guide& guide) {
    turnTabs(guide, 11);
    guide.picture(QStringLiteral("starostlivost"));
    guide.press(QStringLiteral("cmdZscNovy"));
    guide.type(QStringLiteral("Nácvik čítania s porozumením, práca s obrázkami."));
    guide.goTo(QStringLiteral("textZsc(0)"));
    guide.enter({"15.9.26", "08", "09", "NOVÁKOEV00"});
    guide.picture(QStringLiteral("starostlivost-novy-zaznam"));
    guide.press(QStringLiteral("cmdZscZap"));
    guide.picture(QStringLiteral("starostlivost-zapisana"));
}

void printTab(Guide& guide, const char16_t* report) {
    const QString name = QString::fromUtf16(report);
    lookAtPrint(guide, name, [&guide] { guide.click(QStringLiteral("cmdTlac")); });
}

void lookAtBasicData(Guide& guide) {
    guide.picture(QStringLiteral("klient-zakladne-udaje"));
    guide.key(Qt::Key_Return);
    guide.key(Qt::Key_Return);
    guide.key(Qt::Key_F4);
    guide.type(QStringLiteral("Br"));
    guide.picture(QStringLiteral("klient-obce"));
    guide.key(Qt::Key_Escape);
    printTab(guide, u"rptZakUdaj");
    turnTabs(guide, 1);
    guide.picture(QStringLiteral("klient-rodicia"));
    printTab(guide, u"rptRodicia");
}

/// From the tab of the parents through all that follow.
void lookAtRecords(Guide& guide) {
    struct Tab {
        int turns;
        const char16_t* name;
        const char16_t* edit;
        const char16_t* report;
    };
    for (const Tab& tab :
         {Tab{1, u"surodenci", u"cmdSurOpr", u"rptSurodenci"}, Tab{3, u"zhrnutie", u"", u"rptDemo"},
          Tab{4, u"zariadenia", u"cmdZarOpr", u"rptUdajVV"},
          Tab{1, u"vysetrenia", u"cmdPzaOpr", u"rptVysetrenie"},
          Tab{1, u"starostlivost", u"cmdZscOpr", u"rptZaz_spc"},
          Tab{1, u"zmeny", u"cmdZazOpr", u"rptZaz_zmeny"},
          Tab{1, u"navstevy", u"cmdNavOpr", u"rptNavstevy"}}) {
        turnTabs(guide, tab.turns);
        const QString name = QStringLiteral("klient-") + QString::fromUtf16(tab.name);
        guide.picture(name);
        printTab(guide, tab.report);
        if (*tab.edit == u'\0')
            continue;
        guide.press(QString::fromUtf16(tab.edit));
        guide.picture(name + QStringLiteral("-oprava"));
        guide.key(Qt::Key_Escape);
    }
    lookAtPrint(guide, QStringLiteral("cela-karta"),
                [&guide] { guide.click(QStringLiteral("cmdTlacKartu")); });
}

void fillEmployee(Guide& guide) {
    guide.picture(QStringLiteral("novy-zamestnanec"));
    guide.enter({"eva", "nováková"});
    guide.key(Qt::Key_F4);
    guide.picture(QStringLiteral("novy-zamestnanec-zaradenie"));
    guide.enter({"Psy"});
    // Internal, a woman, qualified.
    for (const auto choice : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Space}) {
        guide.key(choice);
        guide.key(Qt::Key_Return);
    }
    guide.picture(QStringLiteral("novy-zamestnanec-vyplneny"));
    guide.press(QStringLiteral("cmdZap"));
}

/// Gives up what was typed, and has it back.
void takeBackStorno(Guide& guide) {
    guide.inModalWindow([&guide](QWidget&) {
        guide.goTo(QStringLiteral("textKrz(12)"));
        guide.type(QStringLiteral("Krátka 7"));
        guide.key(Qt::Key_Escape);
    });
    guide.click(QStringLiteral("cmdOprava"));
    guide.inModalWindow([&guide](QWidget&) {
        guide.picture(QStringLiteral("klient-rozpisane-slova"));
        guide.key(Qt::Key_L, Qt::AltModifier);
        guide.picture(QStringLiteral("klient-vratene-slova"));
        guide.key(Qt::Key_Escape);
    });
    guide.click(QStringLiteral("cmdOprava"));
}

} // namespace

void walkNewEmployee(Guide& guide) {
    guide.click(QStringLiteral("Picture2"));
    guide.inModalWindow([&guide](QWidget&) { fillEmployee(guide); });
    guide.click(QStringLiteral("CmdNovy"));
    guide.picture(QStringLiteral("prvy-zamestnanec"));
}

void walkNewClient(Guide& guide) {
    guide.click(QStringLiteral("Picture1"));
    guide.picture(QStringLiteral("ziadni-klienti"));
    guide.inModalWindow([&guide](QWidget&) {
        fillBasicData(guide);
        addCareRecord(guide);
        guide.press(QStringLiteral("CmdZap"));
    });
    guide.click(QStringLiteral("CmdNovy"));
    guide.picture(QStringLiteral("prvy-klient"));
}

void walkClientCard(Guide& guide) {
    guide.click(QStringLiteral("Picture1"));
    guide.inModalWindow([&guide](QWidget&) {
        // A client with records of every kind.
        guide.enter({"Beran"});
    });
    guide.click(QStringLiteral("cmdHladaj"));
    guide.inModalWindow([&guide](QWidget&) {
        lookAtBasicData(guide);
        lookAtRecords(guide);
        guide.key(Qt::Key_Escape);
    });
    guide.click(QStringLiteral("cmdOprava"));
    takeBackStorno(guide);
}

} // namespace tour
