#include "tour/Guide.h"
#include "tour/Roads.h"

#include <QListWidget>
#include <QPushButton>

#include <initializer_list>

namespace tour {

namespace {

void enter(Guide& guide, std::initializer_list<const char*> typed) {
    for (const char* text : typed) {
        guide.type(QString::fromUtf8(text));
        guide.key(Qt::Key_Return);
    }
}

void turnTabs(Guide& guide, int tabs) {
    for (int i = 0; i < tabs; ++i)
        guide.key(Qt::Key_PageDown, Qt::ControlModifier);
}

/// To the button by keys, from a field.
void pressByKeys(Guide& guide, const QString& button) {
    guide.key(Qt::Key_PageDown);
    for (int i = 0; i < 12 && guide.inFront().focusWidget()->objectName() != button; ++i)
        guide.key(Qt::Key_Tab, Qt::ShiftModifier);
    if (guide.inFront().focusWidget()->objectName() != button)
        giveUp(QStringLiteral("Cannot reach by keys: ") + button);
    guide.key(Qt::Key_Return);
}

void typeNewClient(Guide& guide) {
    guide.picture(QStringLiteral("novy-klient"));
    enter(guide, {"jana", "kováčiková", "Nitra", "8055120007"});
    enter(guide, {"", "", "4711", "25", "01"});
    guide.key(Qt::Key_F4);
    guide.picture(QStringLiteral("novy-klient-ciselnik"));
    guide.key(Qt::Key_Escape);
    enter(guide, {"SK", "sk", "sk", "dlhá 1", "Nitra", "94901", "", "", "1.9.99", "3", "5"});
    guide.picture(QStringLiteral("novy-klient-vyplneny"));
    pressByKeys(guide, QStringLiteral("cmdZaklUd"));
    guide.picture(QStringLiteral("novy-klient-zapisany"));
    turnTabs(guide, 1);
    enter(guide, {"anna kováčiková", "1955"});
    guide.picture(QStringLiteral("novy-klient-rodicia"));
    pressByKeys(guide, QStringLiteral("CmdZap"));
}

void lookAtClient(Guide& guide) {
    guide.picture(QStringLiteral("klient-zakladne-udaje"));
    guide.key(Qt::Key_Return);
    guide.key(Qt::Key_Return);
    guide.key(Qt::Key_F4);
    guide.type(QStringLiteral("Br"));
    guide.picture(QStringLiteral("klient-obce"));
    guide.key(Qt::Key_Escape);
    turnTabs(guide, 1);
    guide.picture(QStringLiteral("klient-rodicia"));
    turnTabs(guide, 2);
    guide.picture(QStringLiteral("klient-dieta-v-rannom-veku"));
    guide.key(Qt::Key_Escape);
}

} // namespace

void walkClientCard(Guide& guide) {
    guide.click(QStringLiteral("Picture1"));
    guide.inModalWindow([&guide](QWidget&) { typeNewClient(guide); });
    guide.click(QStringLiteral("CmdNovy"));
    guide.inModalWindow([&guide](QWidget&) { lookAtClient(guide); });
    guide.click(QStringLiteral("cmdOprava"));
}

} // namespace tour
