#include "clientcard/CodePick.h"

#include "card/FieldGrid.h"
#include "clientcard/CardData.h"
#include "clientcard/TabFamily.h"
#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "store/Sql.h"
#include "validation/Validators.h"
#include "validation/modKontrola.h"

#include <QLineEdit>

namespace clientcard {

namespace {

constexpr int droppedWidth = 320;
constexpr int leastOfPick = 30;
constexpr int mostOfPick = 46;

} // namespace

CodePick::CodePick(CardFrame& frame, const CodePickRow& row, forms::EntryField& field,
                   QWidget* parent)
    : frame_(frame), row_(row), field_(field), codes_(frame.data().source(row.source)),
      pick_(new forms::DropDown(parent, forms::DropDown::Kind::Editable)) {
    pick_->setSource(codes_, QString::fromUtf16(row.shownColumn));
    if (holdsNames())
        pick_->tellTwinsBy(QString::fromUtf16(row.codeColumn));
    pick_->serve(field);
    pick_->setToolTip(QString::fromUtf16(row.toolTip));
    pick_->setDroppedWidth(droppedWidth);
    card::setRoom(*pick_, leastOfPick, mostOfPick);
    frame.guard().watch(pick_, QString::fromUtf16(row.name), row.index, *this);
    // Tab leads from field to field; the pick is reached from its field by Alt and Down.
    pick_->setFocusPolicy(Qt::ClickFocus);
}

bool CodePick::holdsNames() const {
    return QStringView(row_.shownColumn) == row_.nameColumn;
}

bool CodePick::lookUp() {
    const bool held = modKontrola::kontrolaCiselnik(
        *pick_, field_, codes_, holdsNames(), QString::fromUtf16(row_.table),
        QString::fromUtf16(row_.codeColumn), QString::fromUtf16(row_.nameColumn));
    if (!held)
        showMeaning();
    return held;
}

void CodePick::showMeaning() {
    pick_->setText(holdsNames() ? field_.text() : meaning());
    pick_->lineEdit()->setCursorPosition(0);
}

/// Empty for an unknown code.
QString CodePick::meaning() const {
    const QString code = field_.text().trimmed();
    // The client's row is there before the code-lists are.
    if (code.isEmpty() || !codes_.isOpen())
        return {};
    const auto rows = codes_.Recordset().Clone();
    rows->FindFirst(
        QStringLiteral("%1 =%2").arg(QStringView(row_.codeColumn), store::quoted(code)));
    return rows->NoMatch() ? QString() : rows->Fields(row_.shownColumn).Value().toText();
}

void CodePick::gotFocus(const forms::Control& /*control*/) {
    before_ = field_.text();
}

void CodePick::click(const forms::Control& /*control*/, forms::Area area) {
    if (!opens(area) || area != forms::Area::Item)
        return;
    take();
    forms::moveFocus(&field_);
    pick_->refill();
}

void CodePick::keyDown(const forms::Control& /*control*/, int& key,
                       Qt::KeyboardModifiers /*modifiers*/) {
    if (key != Qt::Key_Return && key != Qt::Key_Escape)
        return;
    if (key == Qt::Key_Return)
        take();
    else
        giveUp();
    key = 0;
    forms::moveFocus(&field_);
}

/// What was moved through has not been picked.
void CodePick::giveUp() {
    field_.setText(before_);
    showMeaning();
    modKontrola::gZVyberu = true;
}

/// A text that is no line was taken as it was typed, or not at all.
forms::Leave CodePick::lostFocus(const forms::Control& /*control*/, const forms::Control& /*now*/) {
    if (pick_->pick() >= 0)
        take();
    else
        showMeaning();
    return forms::Leave::Go;
}

} // namespace clientcard
