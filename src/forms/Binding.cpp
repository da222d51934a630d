#include "forms/Binding.h"

#include "forms/Guard.h"
#include "store/DataSource.h"

#include <QEvent>

#include <algorithm>
#include <utility>

namespace forms {

Binding::Binding(store::DataSource& source, Shows shows, Refused refused)
    : source_(&source), shows_(shows), refused_(refused) {
    connect(&source, &store::DataSource::repositioned, this, &Binding::showAll);
    connect(&source, &store::DataSource::refreshed, this, &Binding::limitAll);
    connect(&source, &store::DataSource::aboutToWrite, this, &Binding::putAll);
    connect(&source, &store::DataSource::aboutToLeave, this, &Binding::writeBack);
}

Binding::~Binding() {
    writeBack();
}

void Binding::tie(QWidget& widget, Bound& bound, const QString& column) {
    untie(widget);
    Tie& added = ties_.emplace_back(Tie{&widget, &bound, column});
    if (bound.showsLate())
        widget.installEventFilter(this);
    limit(added);
    show(added);
}

void Binding::untie(QWidget& widget) {
    widget.removeEventFilter(this);
    std::erase_if(ties_, [&](const Tie& tie) { return tie.widget == &widget; });
}

bool Binding::isOpen() const {
    return source_ != nullptr && source_->isOpen() &&
           source_->Recordset().EditMode() != store::EditState::None;
}

void Binding::showAll() {
    for (Tie& tie : ties_)
        guard(tie, [&] { show(tie); });
}

void Binding::show(Tie& tie) {
    if (tie.widget == nullptr || (shows_ == Shows::OpenRows && !isOpen()))
        return;
    tie.put = false;
    tie.owed = tie.bound->showsLate() && !tie.widget->isVisible();
    QString text;
    try {
        if (!tie.owed)
            text = valueOf(tie.column).toText();
    } catch (const store::EngineError&) {
        // Not what the row before held.
        tie.bound->showBound(QString());
        tie.owed = tie.bound->showsLate();
        throw;
    }
    tie.bound->showBound(text);
}

void Binding::guard(const Tie& tie, const std::function<void()>& reads) {
    if (tie.widget != nullptr)
        showGuarded(tie.widget, reads);
}

/// Null without a row.
store::Value Binding::valueOf(const QString& column) {
    if (source_ == nullptr || !source_->isOpen())
        return {};
    try {
        return source_->Recordset().Fields(column).Value();
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::NoCurrentRecord ||
            error.number() == store::ErrorNumber::RecordDeleted)
            return {};
        throw;
    }
}

void Binding::limitAll() {
    for (const Tie& tie : ties_)
        guard(tie, [&] { limit(tie); });
}

void Binding::limit(const Tie& tie) {
    if (tie.widget != nullptr && source_ != nullptr && source_->isOpen())
        tie.bound->limitTo(source_->Recordset().Fields(tie.column).column().width);
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        const auto tie = std::ranges::find(ties_, watched, &Tie::widget);
        if (tie != ties_.end() && tie->owed && !tie->bound->dataChanged())
            guard(*tie, [&] { show(*tie); });
    }
    return false;
}

bool Binding::differs(const Tie& tie) const {
    return tie.widget != nullptr && (tie.put || tie.bound->dataChanged());
}

bool Binding::dataChanged() const {
    return isOpen() && std::ranges::any_of(ties_, [this](const Tie& tie) { return differs(tie); });
}

Words Binding::typed() const {
    Words words;
    for (const Tie& tie : ties_) {
        if (differs(tie))
            words.push_back({.field = tie.widget->objectName(),
                             .column = tie.column,
                             .text = tie.bound->boundText(),
                             .isRich = tie.bound->showsLate()});
    }
    return words;
}

std::function<void()> Binding::keepTyped() {
    return [this, typed = typed()] {
        enter(typed);
    };
}

void Binding::enter(const Words& words) {
    for (const Word& word : words) {
        const auto tie = std::ranges::find_if(ties_, [&](const Tie& each) {
            return each.widget != nullptr && each.widget->objectName() == word.field;
        });
        if (tie != ties_.end())
            enter(*tie, word.text);
    }
}

void Binding::enter(Tie& tie, const QString& text) {
    if (std::exchange(tie.owed, false))
        tie.bound->showBound(valueOf(tie.column).toText());
    tie.bound->enter(text);
    // What it shows may be what an undone Update had written: it is owed to the row again.
    tie.put = true;
}

void Binding::putAll() {
    for (Tie& tie : ties_) {
        if (differs(tie))
            put(tie);
    }
}

void Binding::put(Tie& tie) {
    const QString typed = tie.bound->boundText();
    try {
        auto field = source_->Recordset().Fields(tie.column);
        const auto type = field.column().type;
        const bool holdsTexts =
            !type || *type == store::ColumnType::Text || *type == store::ColumnType::Memo;
        field.setValue(typed.isEmpty() && !holdsTexts ? store::Value() : store::Value(typed));
        tie.put = true;
    } catch (const store::EngineError& error) {
        tell(*tie.widget, {tie.column, typed, error});
    }
}

void Binding::writeBack() {
    if (!isOpen())
        return;
    const auto changed =
        std::ranges::find_if(ties_, [this](const Tie& tie) { return differs(tie); });
    if (changed == ties_.end())
        return;
    try {
        source_->Recordset().Update();
    } catch (const store::EngineError& error) {
        tell(*changed->widget, {{}, {}, error});
    }
}

void Binding::tell(QWidget& widget, const NotWritten& refused) const {
    ErrorRoute& route = ErrorRoute::of(widget);
    refused_ == Refused::StopsAction ? route.fail(refused.error) : route.passOver(refused);
}

} // namespace forms
