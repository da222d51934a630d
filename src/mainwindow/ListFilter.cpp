#include "mainwindow/ListFilter.h"

#include "forms/EntryField.h"
#include "forms/Guard.h"
#include "forms/Metrics.h"
#include "forms/RecordsetGrid.h"
#include "store/DataSource.h"
#include "store/RowTexts.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace mainwindow {

namespace {

constexpr int rowsAtOnce = 1000;
constexpr int fieldLetters = 50;

QLineEdit* makeFilterField() {
    auto* field = new forms::EntryField;
    field->setObjectName(QStringLiteral("textFilter"));
    field->setAccessibleName(QStringLiteral("Filter zoznamu"));
    field->setToolTip(
        QStringLiteral("Slová v ľubovoľnom poradí, aj bez dĺžňov a mäkčeňov. Esc ukáže všetkých."));
    field->setClearButtonEnabled(true);
    forms::fitToFont(*field,
                     [field] { field->setMaximumWidth(forms::lettersWide(*field, fieldLetters)); });
    return field;
}

bool movesInList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool types(const QKeyEvent& event) {
    // Both together are the third row of the keys.
    const bool isShortcut = event.modifiers().testFlag(Qt::ControlModifier) !=
                            event.modifiers().testFlag(Qt::AltModifier);
    return !isShortcut && event.text().size() == 1 && event.text().front().isPrint();
}

} // namespace

ListFilter::ListFilter(QWidget* parent)
    : QWidget(parent), field_(makeFilterField()), count_(new QLabel) {
    count_->setObjectName(QStringLiteral("lblPocet"));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(field_, 1);
    line->addStretch();
    line->addWidget(count_);
    reading_.setInterval(1);
    connect(&reading_, &QTimer::timeout, this, &ListFilter::readOn);
    connect(field_, &QLineEdit::textChanged, this, [this] {
        note_.clear();
        forms::guarded(this, [this] { letterTyped(); });
    });
    field_->installEventFilter(this);
}

ListFilter::~ListFilter() = default;

void ListFilter::follow(const ListTraits& list, forms::RecordsetGrid& grid,
                        store::DataSource& rows) {
    leave();
    list_ = &list;
    grid_ = &grid;
    rows_ = &rows;
    grid.installEventFilter(this);
    connect(&grid, &forms::RecordsetGrid::rowsTaken, this, &ListFilter::takeRows);
    field_->setPlaceholderText(list.filterHint.toString());
    takeRows();
    show();
}

void ListFilter::leave() {
    if (grid_ != nullptr) {
        grid_->removeEventFilter(this);
        grid_->disconnect(this);
    }
    grid_ = nullptr;
    texts_.reset();
    isWaiting_ = false;
    note_.clear();
    reading_.stop();
    field_->clear();
    hide();
}

bool ListFilter::isOn() const {
    return !field_->text().trimmed().isEmpty();
}

/// What is on show stays as it was told, by rows that have been read anew.
void ListFilter::takeRows() {
    texts_.reset();
    reading_.start();
    if (isOn())
        forms::showGuarded(this, [this] { apply(); });
    else
        tell();
}

store::RowTexts& ListFilter::texts() {
    if (!texts_) {
        QStringList columns;
        for (const QStringView column : list_->filtered)
            columns << column.toString();
        texts_.emplace(rows_->Recordset(), columns);
    }
    return *texts_;
}

/// What can't be read now is read, or told, when a letter needs it.
void ListFilter::readOn() {
    if (rows_ == nullptr || !rows_->isOpen())
        return reading_.stop();
    try {
        texts().read(rowsAtOnce);
        if (!texts_->isComplete())
            return;
        reading_.stop();
    } catch (const store::EngineError&) {
        texts_.reset();
        return reading_.stop();
    }
    if (isWaiting_)
        forms::showGuarded(this, [this] { apply(); });
}

/// Letters typed before a long list has been read wait for it; nothing stands still meanwhile.
void ListFilter::letterTyped() {
    if (grid_ == nullptr || rows_ == nullptr || !rows_->isOpen())
        return;
    if (isOn())
        texts().read(rowsAtOnce);
    if (!isOn() || texts_->isComplete())
        return apply();
    isWaiting_ = true;
    reading_.start();
    count_->setText(QStringLiteral("Filtruje sa …"));
}

void ListFilter::apply() {
    isWaiting_ = false;
    if (grid_ == nullptr || rows_ == nullptr || !rows_->isOpen())
        return;
    if (isOn())
        grid_->showOnly(texts().positionsOf(field_->text()));
    else
        grid_->showOnly(std::nullopt);
    grid_->centreCurrentRow();
    tell();
    Q_EMIT changed();
}

void ListFilter::settle() {
    if (!isWaiting_)
        return;
    while (isOn() && !texts().isComplete())
        texts().read(rowsAtOnce);
    apply();
}

void ListFilter::showAll() {
    field_->clear();
}

void ListFilter::giveWay() {
    if (!isOn() || grid_->showsCurrentRow())
        return;
    showAll();
    note_ = QStringLiteral("Filter je zrušený, vybraný riadok mu nezodpovedal.  ·  ");
    tell();
}

QWidget& ListFilter::field() const {
    return *field_;
}

void ListFilter::tell() {
    const int all = grid_->rows().allRows();
    const QString text = isOn() ? QStringLiteral("%1 z %2 %3")
                                      .arg(grid_->rows().rowCount())
                                      .arg(all)
                                      .arg(all == 1 ? list_->countedOne : list_->counted)
                                : QStringLiteral("Počet: %1").arg(all);
    count_->setText(note_ + text);
    QAccessibleEvent event(count_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

bool ListFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::InputMethod && watched == grid_) {
        field_->insert(static_cast<QInputMethodEvent*>(event)->commitString());
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Escape && watched == field_ && grid_ != nullptr)
        grid_->setFocus();
    return watched == field_ && key.key() != Qt::Key_Escape ? keyInField(key) : take(key);
}

bool ListFilter::keyInField(QKeyEvent& event) {
    return grid_ != nullptr && movesInList(event.key()) &&
           QCoreApplication::sendEvent(grid_, &event);
}

bool ListFilter::take(QKeyEvent& event) {
    if (grid_ == nullptr)
        return false;
    if (event.key() == Qt::Key_Escape) {
        showAll();
        return true;
    }
    const bool isBlank = event.key() == Qt::Key_Space && field_->text().isEmpty();
    if (event.key() != Qt::Key_Backspace && (!types(event) || isBlank))
        return false;
    field_->end(false);
    QCoreApplication::sendEvent(field_, &event);
    return true;
}

} // namespace mainwindow
