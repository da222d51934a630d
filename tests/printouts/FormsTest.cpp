// All forms alike, whatever their rows hold.
#include "printouts/Forms.h"

#include "printouts/Statements.h"
#include "printouts/TabReports.h"
#include "report/Fonts.h"
#include "report/PageCheck.h"
#include "report/Pages.h"
#include "store/FileBytes.h"

#include <QDate>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace printouts;

namespace {

/// Two rows that hold this text in each column.
class AlikeRows : public report::RowSource {
  public:
    explicit AlikeRows(QString text) : text_(std::move(text)) {}
    bool next() override { return ++row_ < 2; }
    QString text(const QString&) const override { return text_; }

  private:
    QString text_;
    int row_ = -1;
};

QString lettersOf(const report::Pages& pages, const QString& control) {
    QString letters;
    for (const report::Page& page : pages.pages) {
        for (const report::PlacedText& text : page.texts)
            letters += text.control == control ? text.text : QString();
    }
    return letters.remove(u' ');
}

TEST(Forms, takeAnyTextInAnyColumnAndLoseAndSetNothingOver) {
    const QString texts[] = {
        u"Ab"_s, QString(255, u'W'), u"O'Neil \"%d\" 50 % "_s.repeated(15).left(255),
        u"漢字 😀 עברית 31.2.2007 "_s.repeated(9), u"dlhší text o mnohých slovách "_s.repeated(50)};
    std::vector<report::Layout> forms{rptZozKlient()};
    for (const TabReport& tab : tabReports())
        forms.push_back(formOf(tab));
    for (report::Layout& form : forms) {
        for (const QString& text : texts) {
            form.reportHeader.control(u"lblMeno").caption = text.left(255);
            AlikeRows rows(text);
            const auto pages =
                report::makePages(form, rows, report::FontMeter(), QDate(2026, 11, 23));
            EXPECT_EQ(report::layoutFaults(pages).join(u'\n').left(500), QString())
                << form.name.toStdString() << text.left(20).toStdString();
            EXPECT_EQ(lettersOf(pages, u"lblMeno"_s), text.left(255).remove(u' '));
            for (const report::Control& control : form.detail.controls) {
                if (control.kind != report::ControlKind::Field)
                    continue;
                EXPECT_EQ(lettersOf(pages, control.name), QString(text).remove(u' ').repeated(2))
                    << form.name.toStdString() << control.name.toStdString();
            }
        }
    }
}

TEST(Statements, areThoseOfTheListOfAllStatements) {
    const QString all = QString::fromUtf8(files::read(QStringLiteral(TVK_CORPUS)));
    const QString key = u"O'NEILSE00"_s;
    QStringList statements{allClients()};
    for (const TabReport& tab : tabReports()) {
        if (*tab.query != u'\0' && (tab.statement || *tab.column != u'\0'))
            statements << (tab.statement ? tab.statement(key) : memo(tab.column, key));
    }
    EXPECT_EQ(statements.size(), 13);
    for (const QString& statement : statements)
        EXPECT_TRUE(all.contains(u'\t' + statement + u'\n')) << statement.toStdString();
}

} // namespace
