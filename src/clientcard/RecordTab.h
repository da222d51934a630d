#pragma once

#include "card/Draft.h"
#include "clientcard/RecordFields.h"
#include "clientcard/RecordKind.h"
#include "forms/Binding.h"
#include "forms/FieldEvents.h"
#include "store/Recordset.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QPushButton;

namespace forms {
class RichText;
class RowList;
} // namespace forms

namespace words {
struct Kept;
}

namespace clientcard {

class CardFrame;

/// A tab of records: the list, the record's fields, and the buttons that open, write, drop and
/// delete a record. All six tabs run this machine; its table and its kind say what they have of
/// their own.
class RecordTab : public forms::FieldEvents {
  public:
    /// @param tab one of the six
    RecordTab(CardFrame& frame, int tab);
    ~RecordTab() override;

    /// Makes the page; it belongs to the parent.
    QWidget* makePage(QWidget* parent);
    /// Shows the client's records; the first time it also ties the fields to them, so that a card
    /// opens without reading what is not shown.
    void turnedTo();

    void click(const forms::Control& control, forms::Area area) override;

  private:
    enum Button { Novy, Opr, Vym, Zap, ZapNew, Sto, buttonCount };

    void makeButtons();
    void makeList();
    void makeRichText();
    RecordParts parts();
    void bind();

    bool hasRows() const;
    store::Recordset& records() const;
    QWidget* openingField() const;
    void enableInput(bool enabled);
    void enableSaving(bool enabled);
    void enableBrowsing(bool enabled);

    void otvorVstup();
    void stavEdit();
    void stavPrehlad();
    void naplnZoznam();
    bool zapis();
    void vymaz();

    void act(Button button);
    void press(Button button);
    void closeLostRecord();
    void novy();
    void beginNext();
    void oprava();
    void storno();
    bool isComplete();
    void writeEdited();
    void writeNew();
    card::Draft::Typed typed();
    forms::Words typedWords() const;
    void enterWords(const forms::Words& words);
    void keepWords();
    QByteArray openedRow() const;
    bool goToRow(const QByteArray& print);
    void openAnew(const words::Kept& kept);
    QString question() const;
    void showBrowsing();

    CardFrame& frame_;
    const RecordRow& row_;
    store::DataSource& source_;
    /// Holds the controls until their page takes them.
    QWidget workshop_;
    RecordFields fields_;
    std::unique_ptr<RecordKind> kind_;
    forms::RowList* list_ = nullptr;
    forms::RichText* richText_ = nullptr;
    std::array<QPushButton*, buttonCount> buttons_{};
    std::unique_ptr<forms::Binding> binding_;
    card::Draft draft_;
};

} // namespace clientcard
