#pragma once

#include "forms/Bound.h"
#include "store/EngineError.h"
#include "store/Value.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <concepts>
#include <functional>
#include <vector>

namespace store {
class DataSource;
}

namespace forms {

template <typename Widget>
concept BoundWidget = std::derived_from<Widget, QWidget> && std::derived_from<Widget, Bound>;

/// What the user typed and the row could not take.
struct NotWritten {
    /// Empty when the row as a whole was refused.
    QString column;
    QString typed;
    store::EngineError error;
};

/// Ties fields of a screen to columns of a data source. The fields show the current row, or the row
/// that is open for an edit; Update takes what differs from it out of the fields. Typing is limited
/// to the column's width.
///
/// A refresh, a move, the end of the source or of the binding writes a row that is open and whose
/// fields have changed; CancelUpdate drops it before. Nothing is thrown by that: what was not
/// written waits in takeErrors().
///
/// Let a binding end before its fields do, so as a member of the screen declared after its source.
class Binding : public QObject {
    Q_OBJECT
  public:
    explicit Binding(store::DataSource& source);
    ~Binding() override;
    Q_DISABLE_COPY_MOVE(Binding)

    /// Ties the field to a column, instead of the one it was tied to, and shows its value.
    /// @throws EngineError 3265 when the open source has no such column
    template <BoundWidget Widget>
    void bind(Widget& field, const QString& column) {
        tie(field, field, column);
    }

    /// The open row has fields that differ from it.
    bool dataChanged() const;
    /// Writes the open row if dataChanged(). @return false when something was not written
    bool writeBack();

    /// Remembers what differs from the row. Calling the result puts it into the fields again, as if
    /// the user had typed it; not to be called after the end of the binding.
    std::function<void()> keepTyped();

    /// What was not written since the last call.
    std::vector<NotWritten> takeErrors();
    /// Keeps an error of Update that the caller passes over, to be told with the others.
    void addError(const store::EngineError& error);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Tie {
        QPointer<QWidget> widget;
        Bound* bound;
        QString column;
        /// Put into the open row already, by an Update that failed, or entered again after one.
        bool put = false;
        /// Shown when the field becomes visible.
        bool owed = false;
    };

    void tie(QWidget& widget, Bound& bound, const QString& column);
    void untie(QWidget& widget);
    void showAll();
    void show(Tie& tie);
    static void guard(const Tie& tie, const std::function<void()>& reads);
    void limit(const Tie& tie);
    void limitAll();
    store::Value valueOf(const QString& column);
    void putAll();
    void put(Tie& tie);
    bool differs(const Tie& tie) const;
    void enter(const QWidget* widget, const QString& text);
    void note(NotWritten error);

    QPointer<store::DataSource> source_;
    std::vector<Tie> ties_;
    std::vector<NotWritten> errors_;
};

/// Tells the user once what was not written; does nothing without errors.
void showNotWritten(QWidget* parent, const std::vector<NotWritten>& errors);

} // namespace forms
