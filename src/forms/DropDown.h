#pragma once

#include "forms/Bound.h"
#include "forms/EntryField.h"
#include "forms/FieldEvents.h"
#include "forms/RowsModel.h"

#include <QComboBox>
#include <QPointer>

namespace forms {

class HitList;

/// A drop-down: fixed lines, or a column of a data source. It opens at once however long the list
/// is, and finds as one types, opened or not.
///
/// The pick is the line that the user chose, by typing its beginning, by moving to it or by
/// clicking; the text may be something else where it can be typed. Opened, Enter picks the line and
/// then acts as Enter in the closed field, Esc gives the former pick back.
class DropDown : public QComboBox, public Bound {
    Q_OBJECT
  public:
    enum class Kind { ListOnly, Editable };

    explicit DropDown(QWidget* parent = nullptr, Kind kind = Kind::ListOnly);

    /// Shows these lines, without a pick.
    void setItems(const QStringList& items);
    void removeItem(int row);
    /// Shows a column of the source's rows; after a refresh of the source the pick is dropped.
    void setSource(store::DataSource& source, const QString& column);
    /// Lines of the same text bear this column's value as well; what is picked stays the text.
    void tellTwinsBy(const QString& column) { rows_.setTwinColumn(column); }
    /// Reads the source's rows anew when the list is next opened; drops the pick, keeps the text.
    void refill();

    /// The field that the rules write the pick into, for as long as it lives. The list opens on the
    /// line of what stands there; Esc in the opened list gives the field its text back, too. What
    /// is typed into the field is completed (TypeAhead).
    void serve(EntryField& field);

    QString text() const;
    /// Drops the pick. No event of the user.
    void setText(const QString& text);
    /// As setText(), and keeps the text.
    void dropPick() { setText(text()); }
    /// Line of the pick, -1 without one.
    int pick() const { return pick_; }
    /// Picks a line, or none by -1, and shows its text. No event of the user.
    void setPick(int row);
    QString itemText(int row) const { return rows_.text(row); }
    /// The picked row, for the recordset of the source; not valid without a pick.
    store::RowMark selectedItem() const { return rows_.mark(pick_); }

    /// Least width of the opened list in device-independent pixels; it is never narrower than the
    /// field or its lines.
    void setDroppedWidth(int pixels) { droppedWidth_ = pixels; }
    /// Shows the arrow and no text: what is picked is seen in the field beside it.
    void showArrowOnly();

    bool dataChanged() const override { return text() != shown_; }
    QString boundText() const override { return text(); }
    void showBound(const QString& text) override;
    void enter(const QString& text) override { setText(text); }
    void limitTo(int characters) override;

    void showPopup() override;

  Q_SIGNALS:
    /// The user changed the text, by typing or by moving in the list.
    void textEdited();
    /// Area::Button before the list opens, Area::Edit when the text was clicked, Area::Item when a
    /// line was chosen.
    void clicked(forms::Area area);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    bool isOpened() const;
    void load();
    void open();
    void fitList();
    int openingLine(int sourceRowBefore) const;
    void show(int row, const QString& text);
    void moveTo(int row);
    void moveBy(int lines);
    bool moves(const QKeyEvent& event);
    void listKey(QKeyEvent& event);
    void closedKey(QKeyEvent& event);
    void textKey(QKeyEvent& event);
    void endList(QKeyEvent& event);
    void putBack();
    void findTyped(const QString& character);
    void textTyped(const QString& typed);
    void userChanged();
    void chosen(int row);
    bool hidesHits();

    RowsModel rows_{*this};
    Kind kind_;
    bool arrowOnly_ = false;
    int droppedWidth_ = 0;
    int pick_ = -1;
    QString shown_;
    /// What was typed so far to find a line.
    QString sought_;
    bool deleting_ = false;
    bool endingByEsc_ = false;
    /// As they were before the list was opened.
    int pickBefore_ = -1;
    QString textBefore_, servedBefore_;
    QPointer<EntryField> served_;
    /// Of what is typed into the drop-down itself.
    QPointer<HitList> hits_;
};

} // namespace forms
