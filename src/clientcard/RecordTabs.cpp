#include "clientcard/RecordTabs.h"

#include "clientcard/CardData.h"
#include "clientcard/RecordTab.h"
#include "validation/modKontrola.h"

#include <map>

namespace clientcard {

namespace {

class RecordTabs : public TabFamily {
  public:
    explicit RecordTabs(CardFrame& frame) : frame_(frame) {}

    QWidget* makePage(int tab, QWidget* parent) override {
        return tabs_.try_emplace(tab, frame_, tab).first->second.makePage(parent);
    }
    void turnedTo(int tab) override { tabs_.at(tab).turnedTo(); }
    TabContents contentsOf(int tab) override;

  private:
    CardFrame& frame_;
    std::map<int, RecordTab> tabs_;
};

/// "1 záznam", "3 záznamy", "5 záznamov".
QString recordsInWords(int count) {
    const QString word = count == 1               ? QStringLiteral("záznam")
                         : count > 1 && count < 5 ? QStringLiteral("záznamy")
                                                  : QStringLiteral("záznamov");
    return QStringLiteral("%1 %2").arg(count).arg(word);
}

TabContents RecordTabs::contentsOf(int tab) {
    const RecordRow& row = recordRow(tab);
    const int count = frame_.data().recordsIn(row.table, modKontrola::gIdKod);
    const bool isDated = *row.dateColumn != u'\0';
    return {QString::number(count), recordsInWords(count),
            isDated ? frame_.data().latestIn(row.dateColumn, row.table, modKontrola::gIdKod)
                    : QString()};
}

} // namespace

std::unique_ptr<TabFamily> makeRecordTabs(CardFrame& frame) {
    return std::make_unique<RecordTabs>(frame);
}

} // namespace clientcard
