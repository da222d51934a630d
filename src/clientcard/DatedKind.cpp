#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/CodePick.h"
#include "clientcard/RecordKind.h"
#include "clientcard/RecordStateTexts.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "forms/Letters.h"
#include "forms/MessageBox.h"
#include "forms/WhyNot.h"

#include <QDialog>
#include <QStringList>

#include <optional>

namespace clientcard {

namespace {

CodePickRow workers(const RecordRow& row) {
    return {.name = row.pick,
            .toolTip = u"výber z číselníka",
            .source = u"datZamestnanci",
            .table = u"zamestnanci",
            .codeColumn = u"idkod",
            .nameColumn = u"spolu"};
}

/// The pick of the worker. The row at which the list of employees stands is part of the state: a
/// new record takes its worker from there.
class WorkerPick : public CodePick {
  public:
    using CodePick::CodePick;

    /// The employee picked since the last forget(), blank if none.
    const QString& idkodPracovnika() const { return idkodPracovnika_; }
    void forget() { idkodPracovnika_.clear(); }
    QString current() const { return codes().Recordset().Fields(u"idkod").Value().toText(); }
    /// An employee's name in the field becomes the employee's key, and the list of employees stands
    /// at that one.
    void takeName();
    /// The list of employees stands at the one in the field, if there is one.
    void follow();
    /// The binding carries the worker's key into the record.
    void putIntoField(const QString& key) { field().setText(card::trimBlanks(key)); }

  protected:
    bool opens(forms::Area area) override;
    void take() override;

  private:
    QString idkodPracovnika_;
};

bool WorkerPick::opens(forms::Area /*area*/) {
    if (!codes().Recordset().Eof())
        return true;
    forms::showMessage(&frame().window(), {.text = QStringLiteral("Chýba zoznam zamestnancov ! "),
                                           .icon = QMessageBox::Warning});
    forms::moveFocus(&field());
    return false;
}

void WorkerPick::take() {
    const store::RowMark picked = pick().selectedItem();
    if (!picked.isValid())
        return;
    codes().Recordset().setBookmark(picked);
    idkodPracovnika_ = current();
    putIntoField(idkodPracovnika_);
}

/// Case, accents and the number of blanks aside, if need be.
QString letters(const QString& name, bool withAccents) {
    const QString folded = name.simplified().toCaseFolded();
    return withAccents ? folded : forms::withoutAccents(folded);
}

/// The keys of the employees of that name, whichever of its two parts comes first.
QStringList employeesNamed(const QString& name, store::Recordset& employees, bool withAccents) {
    const auto part = [&](QStringView column) {
        return employees.Fields(column).Value().toText();
    };
    const auto isName = [&](const QString& whole) {
        return letters(whole, withAccents) == letters(name, withAccents);
    };
    QStringList keys;
    for (employees.MoveFirst(); !employees.Eof(); employees.MoveNext()) {
        const QString first = part(u"meno");
        const QString last = part(u"priezv");
        if (isName(last + u' ' + first) || isName(first + u' ' + last))
            keys += part(u"idkod");
    }
    return keys;
}

/// A name that several employees bear names nobody.
void WorkerPick::takeName() {
    if (pick().pick() >= 0 || field().text().trimmed().isEmpty() || codes().Recordset().Eof())
        return;
    const auto employees = codes().Recordset().Clone();
    QStringList keys = employeesNamed(field().text(), *employees, true);
    if (keys.isEmpty())
        keys = employeesNamed(field().text(), *employees, false);
    if (keys.size() != 1)
        return;
    putIntoField(keys.front());
    codes().Recordset().FindFirst(QStringLiteral("idkod =") + store::quoted(keys.front()));
    showMeaning();
}

void WorkerPick::follow() {
    const QString key = card::trimBlanks(field().text());
    if (!key.isEmpty() && !codes().Recordset().Eof())
        codes().Recordset().FindFirst(QStringLiteral("idkod =") + store::quoted(key));
    showMeaning();
}

/// Examinations, changes, care and visits. Visits have no worker.
class DatedKind : public RecordKind {
  public:
    explicit DatedKind(const RecordParts& parts) : row_(parts.row) {
        if (row_.pickedField >= 0)
            worker_.emplace(parts.frame, workers(row_),
                            *parts.fields[std::size_t(row_.pickedField)], parts.workshop);
    }

    forms::DropDown* pickOf(int field) const override {
        return worker_ && field == row_.pickedField ? &worker_->pick() : nullptr;
    }
    void enableInput(bool enabled) override {
        if (worker_)
            forms::setUsable(worker_->pick(), enabled, recordIsClosedText());
    }
    void editBegins() override {
        if (worker_)
            worker_->forget();
    }
    void rowShown(store::Recordset& /*rows*/) override {
        if (worker_)
            worker_->showMeaning();
    }
    /// Without a word of what is nobody's name.
    void leftUnchecked(int field) override {
        if (worker_ && field == row_.pickedField)
            worker_->takeName();
    }
    bool holds(int /*field*/) override {
        worker_->takeName();
        return worker_->lookUp();
    }
    /// A new record takes its worker from where the list of employees stands.
    void wasFilled() override {
        if (worker_)
            worker_->follow();
    }
    void complete(store::Recordset& rows) override;
    QString recordSource(const QString& key) const override {
        return datedRecordsOf(row_.table, key);
    }

  private:
    const RecordRow& row_;
    std::optional<WorkerPick> worker_;
};

/// Of an edited record only a picked worker counts beside what stands in the field; that of a new
/// one is the employee at whom the list stands, whatever the field says.
void DatedKind::complete(store::Recordset& rows) {
    if (!worker_)
        return;
    if (rows.EditMode() == store::EditState::Add)
        worker_->putIntoField(worker_->current());
    else if (!card::trimBlanks(worker_->idkodPracovnika()).isEmpty())
        worker_->putIntoField(worker_->idkodPracovnika());
}

} // namespace

std::unique_ptr<RecordKind> makeDatedKind(const RecordParts& parts) {
    return std::make_unique<DatedKind>(parts);
}

} // namespace clientcard
