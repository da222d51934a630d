#include "staff/FunctionPick.h"

#include "card/FieldKeys.h"
#include "forms/CodeDropDown.h"
#include "forms/FocusGuard.h"
#include "store/DataSource.h"
#include "validation/Validators.h"

#include <QLineEdit>

#include <algorithm>

namespace staff {

namespace {

/// The functions that the return knows. What a list has beyond them is shown and not taken.
constexpr qsizetype functionsOfReturn = 8;

} // namespace

FunctionPick::FunctionPick(QWidget& window, forms::FocusGuard& guard, store::DataSource& functions)
    : window_(window), pick_(new forms::CodeDropDown(functions, QStringLiteral("fc_idkod"),
                                                     QStringLiteral("nazov"), &window)) {
    guard.watch(pick_, QStringLiteral("DBCombo1"), -1, *this);
    store::Recordset& rows = functions.Recordset();
    for (; !rows.Eof(); rows.MoveNext())
        names_ << rows.Fields(u"nazov").Value().toText();
}

void FunctionPick::gotFocus(const forms::Control& /*control*/) {
    pick_->lineEdit()->selectAll();
}

void FunctionPick::keyDown(const forms::Control& /*control*/, int& key,
                           Qt::KeyboardModifiers /*modifiers*/) {
    if (!card::leadsToButton(window_, QStringLiteral("cmdZap"), key))
        modKontrola::enterNaTab(key);
}

forms::Leave FunctionPick::lostFocus(const forms::Control& /*control*/, const forms::Control& now) {
    if (now.is(u"cmdStorno"))
        return forms::Leave::Pending;
    const auto end = names_.cbegin() + std::min(functionsOfReturn, names_.size());
    const auto name = std::find_if(names_.cbegin(), end, [this](const QString& one) {
        return one.toUpper() == pick_->text().toUpper();
    });
    if (name == end) {
        card::refuse(window_, QStringLiteral("Nebol zadaný správny údaj"));
        return forms::Leave::Hold;
    }
    if (pick_->text() != *name)
        pick_->setText(*name);
    return forms::Leave::Go;
}

} // namespace staff
