#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;

namespace forms {

class EntryField;
class HitList;
class RowsModel;

/// Completes what is typed into a field by the lines of its pick, and shows these below it. A name
/// is completed by the first line that begins so; a code, which says nothing to who reads it over,
/// when no other begins so. What was completed is selected, so that the next letter replaces it.
///
/// The keys of the field stay what they are; Ctrl+Down and Ctrl+Up choose the line found and those
/// beside it, and Esc, while the lines are shown, takes the completion back and no more.
class TypeAhead : public QObject {
    Q_OBJECT
  public:
    /// @param rows must outlive it
    /// @param load takes up the rows, if need be
    TypeAhead(EntryField& field, RowsModel& rows, std::function<void()> load);

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// The user chose a line, by key or by a click.
    void chosen(int row);

  private:
    void typed(const QString& text);
    void complete(int row, const QString& text);
    bool keyPressed(const QKeyEvent& event);
    void choose(int row);
    void step(int lines);
    void giveUp();

    EntryField& field_;
    RowsModel& rows_;
    std::function<void()> load_;
    HitList* hits_;
    bool deleting_ = false;
};

} // namespace forms
