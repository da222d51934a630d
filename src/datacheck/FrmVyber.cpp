#include "datacheck/FrmVyber.h"

#include "forms/ErrorRoute.h"
#include "forms/Metrics.h"
#include "forms/RecordsetGrid.h"
#include "forms/WhyNot.h"
#include "store/Sql.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace datacheck {

namespace {

constexpr QSize pickSize(560, 460);

constexpr forms::GridColumn clientColumns[] = {{u"Priezvisko", u"priezv", 2600},
                                               {u"Meno", u"meno", 2000},
                                               {u"Dát.nar.", u"datnar", 1300},
                                               {u"Kat.číslo", u"katcis", 1300}};
constexpr forms::GridColumn employeeColumns[] = {{u"Priezvisko", u"priezv", 3000},
                                                 {u"Meno", u"meno", 3000}};

struct Choice {
    const char16_t* title;
    const char16_t* table;
    std::span<const forms::GridColumn> columns;
};
constexpr Choice choices[] = {{u"Výber klienta", u"k_zaklad", clientColumns},
                              {u"Výber zamestnanca", u"zamestnanci", employeeColumns}};

} // namespace

FrmVyber::FrmVyber(Who who, const QString& purpose, store::DBEngine& engine,
                   const store::ProgramFolder& folder, QWidget* parent)
    : QDialog(parent), source_(engine),
      grid_(new forms::RecordsetGrid(choices[static_cast<int>(who)].columns)),
      textHladaj_(new QLineEdit) {
    const Choice& choice = choices[static_cast<int>(who)];
    setObjectName(QStringLiteral("FrmVyber"));
    setWindowTitle(QString::fromUtf16(choice.title));
    forms::openAs(*this, pickSize);
    source_.setDatabaseName(folder.database());
    source_.setRecordSource(QStringLiteral("select * from %1 where isnull(idkod) = false "
                                           "order by priezv, meno")
                                .arg(choice.table));
    source_.Refresh();
    auto* lines = new QVBoxLayout(this);
    auto* words = new QLabel(purpose);
    words->setWordWrap(true);
    words->setTextFormat(Qt::PlainText);
    auto* caption = new QLabel(QStringLiteral("&Hľadať priezvisko:"));
    caption->setBuddy(textHladaj_);
    textHladaj_->setObjectName(QStringLiteral("textHladaj"));
    textHladaj_->setAccessibleName(QStringLiteral("Hľadať priezvisko"));
    textHladaj_->installEventFilter(this);
    grid_->setObjectName(QStringLiteral("dbgVyber"));
    grid_->setAccessibleName(windowTitle());
    grid_->bind(&source_);
    auto* buttons = new QDialogButtonBox;
    auto* cmdPriradit =
        buttons->addButton(QStringLiteral("&Priradiť"), QDialogButtonBox::AcceptRole);
    cmdPriradit->setObjectName(QStringLiteral("cmdPriradit"));
    cmdPriradit->setDefault(true);
    forms::setUsable(*cmdPriradit, !source_.Recordset().Eof(),
                     QStringLiteral("V registri nie je nikto, komu by sa dalo priradiť."));
    buttons->addButton(QStringLiteral("&Zrušiť"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("cmdZrusit"));
    for (QWidget* line :
         std::initializer_list<QWidget*>{words, caption, textHladaj_, grid_, buttons})
        lines->addWidget(line);
    connect(textHladaj_, &QLineEdit::textEdited, this, &FrmVyber::find);
    connect(grid_, &QAbstractItemView::doubleClicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    textHladaj_->setFocus();
}

QString FrmVyber::key() {
    store::Recordset& rows = source_.Recordset();
    return rows.Eof() ? QString() : rows.Fields(u"idkod").Value().toText();
}

/// Up and down go through the list while one types.
bool FrmVyber::eventFilter(QObject* watched, QEvent* event) {
    if (watched == textHladaj_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
            key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(grid_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Goes to the first one in order whose surname is not before the text.
void FrmVyber::find(const QString& surname) {
    forms::ErrorRoute::of(*this).perform([&] {
        if (!source_.Recordset().Eof())
            source_.Recordset().FindFirst(QStringLiteral("priezv >= ") + store::quoted(surname));
    });
}

} // namespace datacheck
