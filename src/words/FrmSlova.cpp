#include "words/FrmSlova.h"

#include "forms/RichDocument.h"
#include "forms/WhyNot.h"
#include "report/StoredText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace words {

namespace {

constexpr QSize startSize(760, 460);

/// The fields one below the other, each under its name, with the marks of those that are formatted.
report::RichParagraphs asText(const Kept& kept) {
    report::RichParagraphs all;
    for (const forms::Word& word : kept.words) {
        report::RichParagraph head;
        head.add(word.caption.isEmpty() ? word.field : word.caption, {.bold = true});
        all.push_back(head);
        if (word.isRich) {
            const report::RichParagraphs text = report::readStored(word.text);
            all.insert(all.end(), text.begin(), text.end());
        } else {
            report::RichParagraph line;
            line.add(word.text, {});
            all.push_back(line);
        }
    }
    return all;
}

} // namespace

FrmSlova::FrmSlova(Book& book, QWidget* parent)
    : QDialog(parent), book_(book), lstSlova_(new QListWidget(this)),
      rtbSlova_(new QTextEdit(this)), lblStav_(new QLabel(this)),
      cmdKopirovat_(new QPushButton(QStringLiteral("&Kopírovať"), this)),
      cmdZahodit_(new QPushButton(QStringLiteral("Za&hodiť"), this)) {
    setObjectName(QStringLiteral("FrmSlova"));
    setWindowTitle(QStringLiteral("Rozpísané slová"));
    resize(startSize);
    layOut();
    connect(lstSlova_, &QListWidget::currentRowChanged, this, &FrmSlova::showChosen);
    connect(cmdKopirovat_, &QPushButton::clicked, this, &FrmSlova::copy);
    connect(cmdZahodit_, &QPushButton::clicked, this, &FrmSlova::throwAway);
    shown_ = book_.all();
    fill();
}

void FrmSlova::showAlone(const Kept& kept) {
    shown_ = {kept};
    fill();
}

void FrmSlova::layOut() {
    lstSlova_->setObjectName(QStringLiteral("lstSlova"));
    lstSlova_->setWordWrap(true);
    lstSlova_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstSlova_->setSpacing(3);
    lstSlova_->setAccessibleName(QStringLiteral("Čie slová a odkedy"));
    rtbSlova_->setObjectName(QStringLiteral("rtbSlova"));
    rtbSlova_->setAccessibleName(QStringLiteral("Rozpísané slová"));
    rtbSlova_->setReadOnly(true);
    rtbSlova_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    rtbSlova_->setTabChangesFocus(true);
    lblStav_->setObjectName(QStringLiteral("lblStav"));
    lblStav_->setTextFormat(Qt::PlainText);
    lblStav_->setWordWrap(true);
    cmdKopirovat_->setObjectName(QStringLiteral("cmdKopirovat"));
    cmdKopirovat_->setToolTip(QStringLiteral("Skopíruje celý text"));
    cmdZahodit_->setObjectName(QStringLiteral("cmdZahodit"));
    cmdZahodit_->setToolTip(QStringLiteral("Zahodí vybrané slová, nikde sa nezapíšu"));
    auto* close = new QPushButton(QStringLiteral("&Zavrieť"), this);
    close->setObjectName(QStringLiteral("cmdZavriet"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* halves = new QHBoxLayout;
    halves->addWidget(lstSlova_, 2);
    halves->addWidget(rtbSlova_, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdKopirovat_);
    buttons->addWidget(cmdZahodit_);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* lines = new QVBoxLayout(this);
    lines->addLayout(halves, 1);
    lines->addWidget(lblStav_);
    lines->addLayout(buttons);
}

void FrmSlova::fill() {
    lstSlova_->clear();
    for (const Kept& kept : shown_)
        lstSlova_->addItem(titleOf(kept) +
                           (kept.isDropped ? QStringLiteral(" – zahodené") : QString()));
    lblStav_->setText(!book_.fault().isEmpty() ? book_.fault()
                      : shown_.empty()
                          ? QStringLiteral("Žiadne rozpísané slová tu nie sú.")
                          : QStringLiteral("Tieto slová nie sú zapísané v registri. Text sa dá "
                                           "vybrať a kopírovať."));
    lstSlova_->setCurrentRow(shown_.empty() ? -1 : 0);
    showChosen();
}

const Kept* FrmSlova::chosen() const {
    const int row = lstSlova_->currentRow();
    return row < 0 ? nullptr : &shown_[std::size_t(row)];
}

void FrmSlova::showChosen() {
    const Kept* kept = chosen();
    rtbSlova_->clear();
    if (kept != nullptr)
        forms::insertParagraphs(asText(*kept), QTextCursor(rtbSlova_->document()));
    for (QPushButton* button : {cmdKopirovat_, cmdZahodit_})
        forms::setUsable(*button, kept != nullptr,
                         QStringLiteral("Najprv vyberte riadok v zozname."));
}

void FrmSlova::copy() {
    rtbSlova_->selectAll();
    rtbSlova_->copy();
    lblStav_->setText(QStringLiteral("Text je skopírovaný."));
}

void FrmSlova::throwAway() {
    hasThrownAway_ = true;
    const QString id = chosen()->id;
    book_.remove(id);
    std::erase_if(shown_, [&](const Kept& kept) { return kept.id == id; });
    fill();
}

} // namespace words
