#pragma once

#include "forms/Bound.h"
#include "forms/Words.h"
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

/// Which rows the fields of a binding show.
enum class Shows {
    AllRows,
    /// Only one that is open for an edit; as long as none is, the fields keep what they show.
    OpenRows
};
/// What becomes of a value that its column refuses: the rest is written and the user told of it, or
/// nothing is.
enum class Refused { PassedOver, StopsAction };

struct NotWritten;

/// Ties fields of a screen to columns of a data source. The fields show the current row, or the row
/// that is open for an edit; Update takes what differs from it out of the fields. Typing is limited
/// to the column's width.
///
/// A refresh, a move, the end of the source or of the binding writes a row that is open and whose
/// fields have changed; CancelUpdate drops it before. Nothing is thrown by that: what was not
/// written goes the window's ErrorRoute.
///
/// Let a binding end before its fields do, so as a member of the screen declared after its source.
class Binding : public QObject {
    Q_OBJECT
  public:
    explicit Binding(store::DataSource& source, Shows shows = Shows::AllRows,
                     Refused refused = Refused::PassedOver);
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

    /// What differs from the row, whether that is open or not.
    Words typed() const;
    /// Puts texts into the fields of these names, as if the user had typed them; passes over those
    /// that it does not know.
    void enter(const Words& words);
    /// Remembers what differs from the row. Calling the result puts it into the fields again, as if
    /// the user had typed it; not to be called after the end of the binding.
    std::function<void()> keepTyped();

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
    bool isOpen() const;
    void showAll();
    void show(Tie& tie);
    static void guard(const Tie& tie, const std::function<void()>& reads);
    void limit(const Tie& tie);
    void limitAll();
    store::Value valueOf(const QString& column);
    void putAll();
    void put(Tie& tie);
    void writeBack();
    bool differs(const Tie& tie) const;
    void enter(Tie& tie, const QString& text);
    void tell(QWidget& widget, const NotWritten& refused) const;

    QPointer<store::DataSource> source_;
    const Shows shows_;
    const Refused refused_;
    std::vector<Tie> ties_;
};

} // namespace forms
