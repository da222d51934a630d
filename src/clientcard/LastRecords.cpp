#include "clientcard/LastRecords.h"

#include "clientcard/CardTables.h"
#include "clientcard/TabFamily.h"
#include "forms/Metrics.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace clientcard {

namespace {

QLabel* newText(QWidget* parent) {
    auto* text = new QLabel(parent);
    text->setTextFormat(Qt::PlainText);
    return text;
}

} // namespace

LastRecords::LastRecords(QWidget* parent) : QGroupBox(QStringLiteral("Posledné záznamy"), parent) {
    setObjectName(QStringLiteral("fraPosledne"));
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(3 * forms::gap);
    grid->setVerticalSpacing(forms::tightGap);
    grid->setColumnStretch(3, 1);
    for (int tab = 0; tab < int(tabTable().size()); ++tab) {
        const Line line{newText(this), newText(this), newText(this)};
        line.caption->setText(QString::fromUtf16(tabTable()[std::size_t(tab)].caption));
        grid->addWidget(line.caption, tab, 0);
        grid->addWidget(line.count, tab, 1);
        grid->addWidget(line.latest, tab, 2);
        lines_.push_back(line);
    }
    hide();
}

void LastRecords::showContents(std::span<const TabContents> contents) {
    for (std::size_t tab = 0; tab < lines_.size(); ++tab) {
        const Line& line = lines_[tab];
        line.count->setText(contents[tab].said);
        line.latest->setText(QStringLiteral("posledný ") + contents[tab].latest);
        for (QLabel* part : {line.caption, line.count, line.latest})
            part->setVisible(!contents[tab].latest.isEmpty());
    }
    setHidden(std::ranges::all_of(
        contents, &QString::isEmpty,
        [](const TabContents& one) -> const auto& { return one.latest; }));
}

} // namespace clientcard
