#include "backup/FrmZalohy.h"

#include "backup/Archive.h"
#include "backup/FileChoice.h"
#include "backup/PasswordForm.h"
#include "forms/MessageBox.h"
#include "forms/Metrics.h"
#include "forms/ProgressForm.h"
#include "forms/WhyNot.h"
#include "store/EngineError.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace backup {

namespace {

constexpr QSize startSize(620, 460);
constexpr int rowPadding = 10;
enum Column { Made, Size, Clients, State, columns };

const QLocale& slovak() {
    static const QLocale locale(QLocale::Slovak);
    return locale;
}

QTableWidgetItem* newItem(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
    auto* item = new QTableWidgetItem(text);
    item->setTextAlignment(alignment | Qt::AlignVCenter);
    return item;
}

QString wordsOf(const CopyState& state) {
    switch (state.kind) {
    case CopyState::Kind::Sound:
        return QStringLiteral("v poriadku");
    case CopyState::Kind::Damaged:
        return QStringLiteral("poškodená");
    default:
        return QStringLiteral("nedá sa skontrolovať: ") + state.why;
    }
}

FileChoice saveChoice(const Copy& copy) {
    return {.title = QStringLiteral("Kam uložiť zálohu"),
            .filters = {{QStringLiteral("záloha"), QStringLiteral("*.zip")}},
            .mode = QFileDialog::AcceptSave,
            .name = QFileInfo(copy.path).fileName()};
}

} // namespace

FrmZalohy::FrmZalohy(const store::ProgramFolder& folder, QWidget* parent)
    : QDialog(parent), folder_(folder), lstZalohy_(new QTableWidget(0, columns)),
      lblStav_(new QLabel) {
    setObjectName(QStringLiteral("FrmZalohy"));
    setWindowTitle(QStringLiteral("Zálohy"));
    forms::openAs(*this, startSize);
    buildList();
    lblStav_->setObjectName(QStringLiteral("lblStav"));
    lblStav_->setWordWrap(true);
    lblStav_->setTextFormat(Qt::PlainText);
    auto* buttons = new QHBoxLayout;
    cmdObnovit_ =
        addButton(QStringLiteral("cmdObnovit"), QStringLiteral("&Obnoviť"),
                  QStringLiteral("Nahradí údaje vybranou zálohou"), &FrmZalohy::restoreChosen);
    cmdUlozit_ =
        addButton(QStringLiteral("cmdUlozit"), QStringLiteral("&Uložiť inam…"),
                  QStringLiteral("Uloží vybranú zálohu na iné miesto, ak chcete, s heslom"),
                  &FrmZalohy::saveChosen);
    buttons->addWidget(cmdObnovit_);
    buttons->addWidget(cmdUlozit_);
    buttons->addStretch();
    buttons->addWidget(addButton(QStringLiteral("cmdZavriet"), QStringLiteral("&Zavrieť"),
                                 QStringLiteral("Zavrie zoznam záloh"), &QDialog::reject));
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(lstZalohy_, 1);
    lines->addWidget(lblStav_);
    lines->addLayout(buttons);
    fill();
}

FrmZalohy::~FrmZalohy() = default;

void FrmZalohy::buildList() {
    lstZalohy_->setObjectName(QStringLiteral("lstZalohy"));
    lstZalohy_->setAccessibleName(QStringLiteral("Zálohy"));
    lstZalohy_->setHorizontalHeaderLabels({QStringLiteral("Dátum a čas"), QStringLiteral("Veľkosť"),
                                           QStringLiteral("Klientov"), QStringLiteral("Stav")});
    lstZalohy_->verticalHeader()->hide();
    forms::fitToFont(*lstZalohy_, [list = lstZalohy_] {
        list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + rowPadding);
    });
    lstZalohy_->horizontalHeader()->setStretchLastSection(true);
    lstZalohy_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstZalohy_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstZalohy_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstZalohy_->setTabKeyNavigation(false);
    lstZalohy_->setColumnWidth(Made, 170);
    connect(lstZalohy_, &QTableWidget::itemSelectionChanged, this, &FrmZalohy::choose);
}

QPushButton* FrmZalohy::addButton(const QString& name, const QString& caption, const QString& tip,
                                  void (FrmZalohy::*action)()) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void FrmZalohy::fill() {
    copies_ = copies(folder_);
    lstZalohy_->setRowCount(static_cast<int>(copies_.size()));
    std::vector<QString> archives;
    for (const Copy& copy : copies_) {
        const int row = static_cast<int>(archives.size());
        lstZalohy_->setItem(row, Made,
                            newItem(copy.made.toString(QStringLiteral("dd.MM.yyyy  HH:mm:ss"))));
        lstZalohy_->setItem(
            row, Size,
            newItem(slovak().formattedDataSize(copy.size, 1, QLocale::DataSizeTraditionalFormat),
                    Qt::AlignRight));
        lstZalohy_->setItem(row, Clients, newItem({}, Qt::AlignRight));
        lstZalohy_->setItem(row, State, newItem(QStringLiteral("kontroluje sa …")));
        archives.push_back(copy.path);
    }
    const QString place = QDir::toNativeSeparators(copiesFolder(folder_));
    lblStav_->setText(
        copies_.empty()
            ? QStringLiteral("Zatiaľ tu nie je žiadna záloha. Program ju urobí pri ukončení cez "
                             "Koniec a uloží do priečinka %1.")
                  .arg(place)
            : QStringLiteral("Zálohy robí program pri ukončení cez Koniec, ležia v priečinku %1.")
                  .arg(place));
    if (!copies_.empty())
        lstZalohy_->selectRow(0);
    choose();
    inspection_ = std::make_unique<CopyInspection>(
        std::move(archives), [this](size_t row, const CopyState& state) {
            QMetaObject::invokeMethod(
                this, [this, row, state] { showState(row, state); }, Qt::QueuedConnection);
        });
}

void FrmZalohy::showState(size_t place, const CopyState& state) {
    const int row = static_cast<int>(place);
    if (state.kind == CopyState::Kind::Sound)
        lstZalohy_->item(row, Clients)->setText(QString::number(state.clients));
    QTableWidgetItem* words = lstZalohy_->item(row, State);
    words->setText(wordsOf(state));
    words->setToolTip(wordsOf(state));
}

const Copy* FrmZalohy::chosen() const {
    const auto row = static_cast<size_t>(lstZalohy_->currentRow());
    return row < copies_.size() ? &copies_[row] : nullptr;
}

void FrmZalohy::choose() {
    for (QPushButton* button : {cmdObnovit_, cmdUlozit_})
        forms::setUsable(*button, chosen() != nullptr,
                         QStringLiteral("Najprv vyberte zálohu v zozname."));
}

void FrmZalohy::restoreChosen() {
    toRestore_ = chosen()->path;
    accept();
}

void FrmZalohy::saveChosen() {
    const Copy& copy = *chosen();
    try {
        save(copy);
    } catch (const store::GivenUp&) {
        lblStav_->setText(QStringLiteral("Uloženie zálohy bolo zrušené."));
    } catch (const store::EngineError& error) {
        forms::showMessage(
            this, {.text = QStringLiteral("Záloha sa inam neuložila.\n\n") + error.description(),
                   .title = QStringLiteral("Chybová správa"),
                   .icon = QMessageBox::Warning,
                   .detail = error.place()});
    }
}

void FrmZalohy::save(const Copy& copy) {
    const auto target = chooseFile(this, saveChoice(copy));
    if (!target)
        return;
    const auto password = askNewPassword(this);
    if (!password)
        return;
    forms::ProgressForm form(QStringLiteral("frmUlozenie"), QStringLiteral("Uložiť inam"), this);
    saveCopy(folder_, copy.path, *target, *password,
             form.progress(QStringLiteral("Záloha sa ukladá …")));
    lblStav_->setText((password->isEmpty() ? QStringLiteral("Záloha je uložená bez hesla: %1")
                                           : QStringLiteral("Záloha je uložená s heslom: %1"))
                          .arg(QDir::toNativeSeparators(*target)));
}

} // namespace backup
