#include "forms/DropDown.h"

#include "forms/Guard.h"
#include "forms/HitList.h"
#include "forms/Metrics.h"
#include "forms/RowLook.h"
#include "forms/TypeAhead.h"
#include "store/DataSource.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace forms {

namespace {

constexpr int linesShown = 16;
/// Letters of nearly all lines of any list.
constexpr int lettersOfMost = 40;

bool isPrintable(const QString& text) {
    return text.size() == 1 && text.front().isPrint();
}

bool opensOrCloses(const QKeyEvent& event) {
    const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
    return event.key() == Qt::Key_F4 || (arrow && event.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

DropDown::DropDown(QWidget* parent, Kind kind) : QComboBox(parent), kind_(kind) {
    // The list asks for the lines that it shows; nothing may look at all of them.
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    setView(list);
    setItemDelegate(makeLines(this));
    list->installEventFilter(this);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMaxVisibleItems(linesShown);
    setInsertPolicy(NoInsert);
    setFocusPolicy(Qt::StrongFocus);
    setModel(&rows_);
    if (kind == Kind::Editable) {
        setEditable(true);
        setLineEdit(new EntryField(this));
        setCompleter(nullptr);
        // The box would look for the text among all lines, and choose it, when it is left.
        disconnect(lineEdit(), nullptr, this, nullptr);
        connect(lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& typed) { guarded(this, [&] { textTyped(typed); }); });
        lineEdit()->installEventFilter(this);
        hits_ = new HitList(rows_, *this);
        connect(hits_, &QListView::clicked, this, [this](const QModelIndex& line) {
            const int row = line.row();
            hits_->hide();
            guarded(this, [&] { chosen(row); });
        });
    }
    connect(this, &QComboBox::activated, this,
            [this](int row) { guarded(this, [&] { chosen(row); }); });
}

void DropDown::setItems(const QStringList& items) {
    rows_.setItems(items);
    show(-1, QString());
}

void DropDown::removeItem(int row) {
    const int pick = pick_;
    rows_.removeItem(row);
    if (pick == row)
        show(-1, QString());
    else
        show(pick > row ? pick - 1 : pick, text());
}

void DropDown::setSource(store::DataSource& source, const QString& column) {
    rows_.setSource(source, column);
    show(-1, QString());
    connect(&source, &store::DataSource::refreshed, this,
            [this] { showGuarded(this, [this] { refill(); }); });
}

void DropDown::refill() {
    const QString kept = text();
    rows_.unload();
    show(-1, kept);
}

QString DropDown::text() const {
    return kind_ == Kind::Editable ? lineEdit()->text() : rows_.text(pick_);
}

void DropDown::setText(const QString& text) {
    show(-1, text);
}

void DropDown::setPick(int row) {
    rows_.load();
    show(row, rows_.text(row));
}

void DropDown::show(int row, const QString& text) {
    const QSignalBlocker silent(this);
    pick_ = row;
    setCurrentIndex(row);
    if (kind_ == Kind::Editable && lineEdit()->text() != text)
        lineEdit()->setText(text);
}

/// As wide as the lines are; of a long list only the first ones are looked at.
void DropDown::fitList() {
    constexpr int mostLooked = 30;
    const int enoughForMost =
        rows_.rowCount() > mostLooked ? lettersWide(*view(), lettersOfMost) : 0;
    int widest = std::max(droppedWidth_, enoughForMost);
    for (int row = 0; row < std::min(rows_.rowCount(), mostLooked); ++row)
        widest = std::max(widest, view()->fontMetrics().horizontalAdvance(rows_.text(row)));
    const int around =
        2 * gap + 2 * view()->frameWidth() + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::min(widest + around, roomFor(*this).width()));
}

void DropDown::serve(EntryField& field) {
    served_ = &field;
    auto* ahead = new TypeAhead(field, rows_, [this] { load(); });
    connect(ahead, &TypeAhead::chosen, this, &DropDown::chosen);
}

void DropDown::showArrowOnly() {
    arrowOnly_ = true;
    setFixedWidth(24);
    if (lineEdit() != nullptr)
        lineEdit()->hide();
}

void DropDown::paintEvent(QPaintEvent* event) {
    if (!arrowOnly_)
        return QComboBox::paintEvent(event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    // A field for the text would be a white sliver.
    option.editable = false;
    QStylePainter(this).drawComplexControl(QStyle::CC_ComboBox, option);
}

void DropDown::showBound(const QString& text) {
    shown_ = text;
    show(-1, text);
}

void DropDown::limitTo(int characters) {
    if (kind_ == Kind::Editable && characters > 0)
        lineEdit()->setMaxLength(std::max(characters, int(shown_.size())));
}

bool DropDown::isOpened() const {
    return view()->isVisible();
}

void DropDown::showPopup() {
    guarded(this, [this] { open(); });
}

/// Takes up the rows; the pick and the text stay.
void DropDown::load() {
    const QString kept = text();
    rows_.load();
    show(pick_, kept);
}

void DropDown::open() {
    load();
    const int sourceRow = rows_.sourceRow();
    servedBefore_ = served_ != nullptr ? served_->text() : QString();
    Q_EMIT clicked(Area::Button);
    if (!isVisible() || !isEnabled() || window()->focusWidget() != this)
        return;
    // The rule may have refreshed the source.
    load();
    textBefore_ = text();
    pickBefore_ = pick_;
    sought_.clear();
    fitList();
    QComboBox::showPopup();
    const QModelIndex line = rows_.index(openingLine(sourceRow), 0);
    view()->setCurrentIndex(line);
    view()->scrollTo(line, QAbstractItemView::PositionAtCenter);
}

int DropDown::openingLine(int sourceRowBefore) const {
    const int sourceRow = rows_.sourceRow();
    if (sourceRow != sourceRowBefore)
        return sourceRow;
    if (pick_ >= 0)
        return pick_;
    const QString sought = served_ != nullptr ? servedBefore_.trimmed() : QString();
    return sought.isEmpty() ? sourceRow : rows_.lineOf(sought);
}

bool DropDown::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease)
        Q_EMIT clicked(Area::Edit);
    if (watched != view() || !isOpened())
        return QComboBox::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        guarded(this, [&] { listKey(*static_cast<QKeyEvent*>(event)); });
        return true;
    }
    // The box would already act on the announcement of Enter and Esc.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void DropDown::listKey(QKeyEvent& event) {
    if (opensOrCloses(event))
        hidePopup();
    else if (moves(event))
        return;
    else if (event.key() == Qt::Key_Backspace)
        sought_.chop(1);
    else if (isPrintable(event.text()))
        findTyped(event.text());
    else
        endList(event);
}

/// Enter takes the line, Esc gives the former pick back; then the key acts on the closed field.
/// Enter without a line has nothing to take into the field, so it is as Esc.
void DropDown::endList(QKeyEvent& event) {
    const bool tabs = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    const bool enters = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const int row = view()->currentIndex().row();
    const bool givesUp = event.key() == Qt::Key_Escape || (enters && row < 0 && served_ != nullptr);
    if (!enters && !tabs && !givesUp)
        return;
    hidePopup();
    if (givesUp)
        putBack();
    else if (enters && row >= 0 && row != pick_)
        moveTo(row);
    const QScopedValueRollback ending(endingByEsc_, givesUp);
    QKeyEvent closed(QEvent::KeyPress, givesUp ? int{Qt::Key_Escape} : event.key(),
                     event.modifiers(), givesUp ? QString() : event.text());
    QCoreApplication::sendEvent(this, &closed);
}

void DropDown::putBack() {
    show(pickBefore_, textBefore_);
    if (served_ != nullptr)
        served_->setText(servedBefore_);
}

bool DropDown::moves(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        moveBy(-1);
        return true;
    case Qt::Key_Down:
        moveBy(1);
        return true;
    case Qt::Key_PageUp:
        moveBy(1 - linesShown);
        return true;
    case Qt::Key_PageDown:
        moveBy(linesShown - 1);
        return true;
    case Qt::Key_Home:
        moveBy(-rows_.rowCount());
        return true;
    case Qt::Key_End:
        moveBy(rows_.rowCount());
        return true;
    default:
        return false;
    }
}

void DropDown::moveBy(int lines) {
    rows_.load();
    const int count = rows_.rowCount();
    if (count == 0)
        return;
    const int here = isOpened() ? view()->currentIndex().row() : pick_;
    sought_.clear();
    moveTo(std::clamp(here + lines, 0, count - 1));
}

void DropDown::moveTo(int row) {
    const bool isNew = row != pick_;
    show(row, rows_.text(row));
    if (isOpened())
        view()->setCurrentIndex(rows_.index(row, 0));
    else if (hits_ != nullptr && hits_->isVisible())
        hits_->showLine(row);
    if (isNew)
        userChanged();
}

/// A letter that leads nowhere behind those before begins a new search.
void DropDown::findTyped(const QString& character) {
    rows_.load();
    int row = rows_.find(sought_ + character);
    sought_ = row >= 0 ? sought_ + character : character;
    if (row < 0)
        row = rows_.find(character);
    if (row >= 0)
        moveTo(row);
    else
        sought_.clear();
    view()->scrollTo(view()->currentIndex(), QAbstractItemView::PositionAtCenter);
}

/// Completes what was typed in the field by the first line that begins so.
void DropDown::textTyped(const QString& typed) {
    const QString kept = typed;
    rows_.load();
    const int row = rows_.find(kept);
    const QString line = rows_.text(row);
    const bool completes = row >= 0 && !deleting_ && line.startsWith(kept, Qt::CaseInsensitive);
    const int cursor = lineEdit()->cursorPosition();
    show(completes ? row : -1, completes ? line : kept);
    if (completes)
        lineEdit()->setSelection(int(line.size()), int(kept.size() - line.size()));
    else
        lineEdit()->setCursorPosition(cursor);
    hits_->showLine(hasFocus() && !isOpened() ? row : -1);
    userChanged();
}

void DropDown::userChanged() {
    Q_EMIT textEdited();
    if (isOpened() && window()->focusWidget() != this)
        hidePopup();
}

void DropDown::chosen(int row) {
    const bool isNew = row != pick_;
    show(row, rows_.text(row));
    if (isNew)
        userChanged();
    Q_EMIT clicked(Area::Item);
}

bool DropDown::hidesHits() {
    const bool shown = hits_ != nullptr && hits_->isVisible();
    if (shown)
        hits_->hide();
    return shown;
}

void DropDown::keyPressEvent(QKeyEvent* event) {
    guarded(this, [&] { closedKey(*event); });
}

void DropDown::closedKey(QKeyEvent& event) {
    event.accept();
    const bool enters = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (opensOrCloses(event))
        showPopup();
    else if (event.key() == Qt::Key_Escape)
        event.setAccepted(endingByEsc_ || hidesHits());
    else if (enters && pick_ >= 0)
        Q_EMIT clicked(Area::Item);
    else if (!enters)
        textKey(event);
}

/// A key of the closed field that moves in the list or types.
void DropDown::textKey(QKeyEvent& event) {
    const bool movesInLine =
        kind_ == Kind::Editable && (event.key() == Qt::Key_Home || event.key() == Qt::Key_End);
    if (!movesInLine && moves(event))
        return;
    if (kind_ == Kind::Editable) {
        const QScopedValueRollback deleting(deleting_, event.key() == Qt::Key_Backspace ||
                                                           event.key() == Qt::Key_Delete);
        QComboBox::keyPressEvent(&event);
    } else if (event.key() == Qt::Key_Space) {
        showPopup();
    } else if (isPrintable(event.text())) {
        findTyped(event.text());
    } else {
        event.ignore();
    }
}

void DropDown::wheelEvent(QWheelEvent* event) {
    // The wheel scrolls what lies around; it must not change a value in passing.
    event->ignore();
}

} // namespace forms
