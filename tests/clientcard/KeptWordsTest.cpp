// What is typed on the card outlives the program, until it is written or given up.
#include "RecordScreen.h"
#include "words/Book.h"

#include <QFile>
#include <QLabel>
#include <QRegularExpression>

using cardtest::text;

namespace {

class KeptWordsTest : public cardtest::RecordTest {
  protected:
    QString path() { return words::Book::fileOf(reg.folder); }
    /// The words in the file by their fields.
    QStringList kept() {
        QStringList all;
        const words::Book book(reg.folder);
        for (const words::Kept& each : book.all()) {
            for (const forms::Word& word : each.words)
                all << (each.isDropped ? text("-") : QString()) + word.field + u'=' + word.text;
        }
        all.sort();
        return all;
    }
    words::Keeper& keeper() { return *card->findChild<words::Keeper*>(); }
    /// Ends the program without a word when what was typed has been kept once.
    void crash() {
        ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path()); }));
        keeper().keep();
        card.reset();
    }
    QString line() {
        const auto* frame = card->findChild<QFrame*>(text("fraSlova"));
        return frame->isVisible() ? at<QLabel>("lblSlova").text() : QString();
    }
    /// All that can be typed or chosen, of all tabs or by the names of some fields.
    QStringList shown(const QString& pattern = text("..*")) {
        QStringList all;
        for (const auto* each : card->findChildren<forms::EntryField*>())
            all << each->objectName() + u'=' + each->text();
        for (const auto* each : card->findChildren<forms::RichText*>())
            all << each->objectName() + u'=' + each->text();
        for (const auto* each : card->findChildren<QRadioButton*>())
            all << each->objectName() + (each->isChecked() ? u'x' : u'-');
        // Fields without a name show what those beside them mean.
        all = all.filter(QRegularExpression(u'^' + pattern + text("[=x-]")));
        all.sort();
        return all;
    }
    void reopen() {
        open(text("NOVOTNEV00"));
        keeper().setPace(atOnce);
    }
    void typeAndCrash(const char* surname) {
        reopen();
        enterInto(1, surname);
        crash();
    }
    qint64 storedAs(const char* surname) {
        return reg.count(text("select * from k_zaklad where priezv = '%1'").arg(text(surname)));
    }
    static constexpr words::Keeper::Pace atOnce{.pause = {}, .interval = {}};
    const QString found = text("Našli sa rozpísané slová z ");
    const QString givenUp = text("Naposledy zahodené slová z ");
    const QString changed = text("Rozpísané slová z ");
};

} // namespace

TEST_F(KeptWordsTest, EveryFieldOfTheCardComesBackAndIsNotWrittenBefore) {
    reopen();
    enterInto(18, "3");
    int n = 10;
    for (auto* each : card->findChildren<forms::EntryField*>()) {
        if (each->objectName().startsWith(text("textKrz")))
            each->setText(QString::number(n++ % 100).left(each->maxLength()));
    }
    turnTabs(1);
    for (const int option : {1, 3, 6})
        press(at<QRadioButton>(qPrintable(text("optKrz(%1)").arg(option))));
    turnTabs(2);
    for (int tab = 3; tab < 9; ++tab) {
        key(Qt::Key_B, Qt::ControlModifier);
        type("slovo");
        turnTabs(1);
    }
    turnTabs(-9);
    const QStringList typed = shown();
    crash();
    reopen();
    EXPECT_TRUE(line().startsWith(found)) << qPrintable(line());
    takeWordsBack();
    EXPECT_EQ(shown(), typed);
    EXPECT_EQ(stored("priezv") + note(), text("Novotna"));
}

TEST_F(KeptWordsTest, WhatCameBackIsUnsavedUntilItIsSavedAndThenGone) {
    reg.execute({text("update k_memo set poznamky = 'slovo'")});
    reopen();
    enterInto(1, "Nová");
    turnTabs(7);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    for (int crashes = 0; crashes < 2; ++crashes) {
        crash();
        EXPECT_EQ(kept().join(u' '), text("rtbDUK(1)= textKrz(1)=Nová"));
        reopen();
        takeWordsBack();
        turnTabs(7);
    }
    click("CmdZap");
    EXPECT_EQ(storedAs("Nová"), 1);
    EXPECT_EQ(note(), QString());
    card.reset();
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(KeptWordsTest, WhoIgnoresTheLineLosesNeitherOldNorNewWords) {
    typeAndCrash("Stará");
    reopen();
    enterInto(1, "Nová");
    enterInto(12, "dlha");
    card.reset();
    EXPECT_EQ(kept(), QStringList{text("textKrz(1)=Stará")}) << "no pause of typing yet";
    reopen();
    enterInto(1, "Nová");
    takeWordsBack();
    EXPECT_EQ(field(1).text(), text("Nová")) << "what was typed since stays";
    EXPECT_TRUE(line().startsWith(changed)) << qPrintable(line());
    answerWords(Qt::Key_H);
    EXPECT_EQ(line(), QString());
    click("CmdZap");
    EXPECT_EQ(storedAs("Nová"), 1);
    card.reset();
    EXPECT_EQ(kept(), QStringList());
}

TEST_F(KeptWordsTest, StornoAndEscAreTakenBackOnceRightAfter) {
    for (const bool right : {false, true}) {
        reopen();
        enterInto(1, "Nová");
        key(Qt::Key_Escape);
        EXPECT_FALSE(card->isVisible());
        if (!right)
            open();
        reopen();
        EXPECT_EQ(line().startsWith(givenUp), right);
        EXPECT_EQ(kept(), QStringList()) << "once";
    }
    takeWordsBack();
    EXPECT_EQ(field(1).text(), text("Nová"));
}

TEST_F(KeptWordsTest, WordsThatAreStoredAreNotOfferedAndThoseOfAnotherRowOnlyShown) {
    struct Case {
        const char* changes;
        QString offered;
    };
    for (const Case& c : {Case{"priezv = 'Nová'", {}}, Case{"ulica = 'Dlhá 1'", changed},
                          Case{"priezv = 'Iná'", changed}}) {
        typeAndCrash("Nová");
        reg.execute({text("update k_zaklad set ") + text(c.changes)});
        reg.letGo();
        reopen();
        EXPECT_EQ(line().left(c.offered.size()), c.offered) << c.changes;
        EXPECT_EQ(line().isEmpty(), c.offered.isEmpty()) << qPrintable(line());
        if (!c.offered.isEmpty())
            answerWords(Qt::Key_H);
        card.reset();
        EXPECT_EQ(kept(), QStringList());
        reg.execute({text("update k_zaklad set priezv = 'Novotna', ulica = ''")});
    }
}

TEST_F(KeptWordsTest, OfANewClientTheWordsComeBackUnlessHeIsThereByNow) {
    enterClient("Ján", "Malík", "77");
    crash();
    reopen();
    EXPECT_EQ(line(), QString()) << "they are nobody's yet";
    open();
    EXPECT_TRUE(line().startsWith(found)) << qPrintable(line());
    takeWordsBack();
    click("cmdZaklUd");
    EXPECT_EQ(clients("katcis = '77' and meno = 'Ján'"), 1);
    EXPECT_EQ(kept(), QStringList());
    card.reset();
    enterClient("Eva", "Malá", "78");
    crash();
    reg.add(text("k_zaklad"), {{u"idkod", text("MALAEV00")},
                               {u"meno", text("Eva")},
                               {u"priezv", text("Malá")},
                               {u"katcis", text("78")}});
    open();
    EXPECT_EQ(line(), QString());
}

TEST_F(KeptWordsTest, ARecordOfEachKindComesBackIntoItsRow) {
    for (const cardtest::Member& member : cardtest::members) {
        const QString fields =
            text("(%1|%2|textPosS).*").arg(text(member.fields), text(member.opensOn));
        for (const char* opens : {"Novy", "Opr"}) {
            SCOPED_TRACE(text(member.table).toStdString() + opens);
            reg.execute({text("delete from ") + text(member.table)});
            turnTo(member);
            add(member.first);
            keeper().setPace(atOnce);
            press(opens);
            fill(member.second);
            entry(0).setFocus();
            if (member.tab > 9 && member.tab < 13)
                at<forms::RichText>(member.opensOn).editor().insertPlainText(text("slovo"));
            const QStringList typed = shown(fields);
            crash();
            reopen();
            EXPECT_TRUE(line().startsWith(found)) << qPrintable(line());
            takeWordsBack();
            EXPECT_EQ(shown(fields).join(u' '), typed.join(u' '));
            EXPECT_EQ(count(), 1) << "nothing is written by itself";
            press("Sto");
            EXPECT_TRUE(line().startsWith(givenUp)) << qPrintable(line());
            takeWordsBack();
            press("Zap");
            const bool isNew = text(opens) == text("Novy");
            EXPECT_EQ(lines(), text(member.lines).section(u'|', isNew ? 0 : 1));
            card.reset();
            EXPECT_EQ(kept(), QStringList());
        }
    }
}

TEST_F(KeptWordsTest, ARecordIsTheOneThatWasEditedAndKeepsItsWorkerAndItsKind) {
    const cardtest::Member& care = cardtest::members[3];
    turnTo(care);
    add(care.first);
    add({{0, "2.9.2005"}, {3, "ADAMOVEV00"}});
    for (const char* opens : {"Opr", "Novy"}) {
        keeper().setPace(atOnce);
        pressLine(1);
        press(opens);
        fill({{0, text(opens) == text("Opr") ? "3.9.2005" : "4.9.2005"}, {3, cardtest::worker}});
        crash();
        reopen();
        takeWordsBack();
        press("Zap");
        turnTo(care);
    }
    EXPECT_EQ(lines(), text("01.09.2005|03.09.2005|04.09.2005"));
    EXPECT_EQ(count("idkod_p = 'NOVAKJA00'"), 3);

    turnTo(9);
    press(at<QRadioButton>("optZarTvk"));
    keeper().setPace(atOnce);
    press("Novy");
    fill({{0, "21"}});
    crash();
    reopen();
    takeWordsBack();
    EXPECT_TRUE(at<QRadioButton>("optZarTvk").isChecked());
    press("Zap");
    EXPECT_EQ(value("akronym") + value("nazzar"), text("TVK21"));
}
