#include "clientcard/RecordTab.h"

#include "card/Actions.h"
#include "card/FieldKeys.h"
#include "card/TextRules.h"
#include "clientcard/CardData.h"
#include "clientcard/CardTables.h"
#include "clientcard/RecordPage.h"
#include "clientcard/RecordStateTexts.h"
#include "clientcard/TabFamily.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "forms/RichText.h"
#include "forms/RowList.h"
#include "forms/WhyNot.h"
#include "validation/modKontrola.h"
#include "words/Keeper.h"

#include <QDialog>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextEdit>

namespace clientcard {

namespace {

std::unique_ptr<RecordKind> makeKind(const RecordParts& parts) {
    switch (tabTable()[std::size_t(parts.row.tab)].kind) {
    case TabKind::Placements:
        return makePlacementKind(parts);
    case TabKind::Siblings:
        return makeSiblingKind(parts);
    default:
        return makeDatedKind(parts);
    }
}

} // namespace

RecordTab::RecordTab(CardFrame& frame, int tab)
    : frame_(frame), row_(recordRow(tab)), source_(frame.data().source(row_.source)),
      fields_(frame, row_, &workshop_), kind_(makeKind(parts())) {
    fields_.setKind(*kind_);
    makeList();
    makeRichText();
    makeButtons();
    keepWords();
}

/// A record that is still open is dropped: it has no client yet, or the user has not said that it
/// is to be written.
RecordTab::~RecordTab() {
    const QSignalBlocker silent(source_);
    if (source_.isOpen())
        source_.Recordset().CancelUpdate();
}

RecordParts RecordTab::parts() {
    return {frame_, row_, source_, fields_.fields(), &workshop_, [this] {
                showBrowsing();
            }};
}

void RecordTab::makeList() {
    list_ = new forms::RowList(&workshop_);
    frame_.guard().watch(list_, QString::fromUtf16(row_.list), -1, *this);
}

void RecordTab::makeRichText() {
    if (*row_.richText == u'\0')
        return;
    richText_ = new forms::RichText(&workshop_);
    richText_->setObjectName(QString::fromUtf16(row_.richText));
    richText_->editor().setAccessibleName(QString::fromUtf16(row_.richLabel));
    if (row_.upFromFirst == UpFromFirst::RichText)
        fields_.setNeighbours(richText_, nullptr);
}

void RecordTab::makeButtons() {
    const std::array<const char16_t*, buttonCount> suffixes = {u"Novy", u"Opr",    u"Vym",
                                                               u"Zap",  u"ZapNew", u"Sto"};
    const std::array<const char16_t*, buttonCount> captions = {
        u"&Nový", u"&Oprava", u"Vý&maz", row_.saveCaption, row_.saveNewCaption, u"&Storno"};
    for (std::size_t i = 0; i < buttonCount; ++i) {
        auto* button = new QPushButton(QString::fromUtf16(captions[i]), &workshop_);
        const char16_t* prefix = i == Vym ? row_.deleteButtons : row_.buttons;
        button->setObjectName(QString::fromUtf16(prefix) + QString::fromUtf16(suffixes[i]));
        QObject::connect(button, &QPushButton::clicked, button, [this, i] { act(Button(i)); });
        buttons_[i] = button;
    }
    enableSaving(false);
    enableBrowsing(false);
    enableInput(false);
}

QWidget* RecordTab::makePage(QWidget* parent) {
    return makeRecordPage({.row = row_,
                           .fields = fields_.fields(),
                           .calendarNote = fields_.calendarNote(),
                           .kind = *kind_,
                           .list = *list_,
                           .richText = richText_,
                           .buttons = {buttons_.begin(), buttons_.end()}},
                          parent);
}

void RecordTab::turnedTo() {
    if (binding_ || forms::showGuarded(&frame_.window(), [this] { bind(); }))
        showBrowsing();
}

/// All of it, or nothing when a row can't be read: then the tab stays closed, and the next turning
/// to it tries again.
void RecordTab::bind() {
    auto binding = std::make_unique<forms::Binding>(source_);
    for (std::size_t i = 0; i < row_.fields.size(); ++i) {
        const QString column = QString::fromUtf16(row_.fields[i].field.column);
        if (!column.isEmpty())
            binding->bind(*fields_.fields()[i], column);
    }
    if (richText_ != nullptr)
        binding->bind(*richText_, QString::fromUtf16(row_.richColumn));
    list_->setSayEmpty([this](store::Recordset& row) { return kind_->sayEmptyLine(row); });
    list_->setSource(source_, QString::fromUtf16(row_.shownColumn));
    binding_ = std::move(binding);
    const auto show = [this] {
        forms::showGuarded(&frame_.window(), [this] { kind_->rowShown(records()); });
    };
    QObject::connect(&source_, &store::DataSource::repositioned, binding_.get(), show);
    show();
}

store::Recordset& RecordTab::records() const {
    return source_.Recordset();
}

bool RecordTab::hasRows() const {
    return source_.isOpen() && !records().Eof();
}

QWidget* RecordTab::openingField() const {
    if (row_.opensOn == OpensOn::RichText)
        return richText_;
    return &fields_.field(0);
}

void RecordTab::enableInput(bool enabled) {
    fields_.enable(enabled, recordIsClosedText());
    if (richText_ != nullptr)
        richText_->setReadOnly(!enabled, recordIsClosedText());
    kind_->enableInput(enabled);
}

void RecordTab::enableSaving(bool enabled) {
    for (const Button button : {Zap, ZapNew, Sto})
        forms::setUsable(*buttons_[button], enabled, recordIsClosedText());
}

void RecordTab::enableBrowsing(bool enabled) {
    forms::setUsable(*list_, enabled, recordIsOpenText());
    forms::setUsable(*buttons_[Novy], enabled, recordIsOpenText());
    for (const Button button : {Opr, Vym})
        forms::setUsable(*buttons_[button], enabled && hasRows(),
                         enabled ? QStringLiteral("Zoznam je zatiaľ prázdny.")
                                 : recordIsOpenText());
}

void RecordTab::otvorVstup() {
    enableInput(true);
    forms::moveFocus(openingField());
}

void RecordTab::stavEdit() {
    enableSaving(true);
    enableBrowsing(false);
    kind_->setEditing(true);
    frame_.beginEdit(row_.tab, *buttons_[Sto]);
}

void RecordTab::stavPrehlad() {
    enableBrowsing(true);
    kind_->setEditing(false);
    frame_.endEdit();
}

void RecordTab::naplnZoznam() {
    enableInput(false);
    if (!hasRows()) {
        buttons_[Novy]->setFocus();
        return;
    }
    list_->showCurrentRow();
    list_->setFocus();
}

void RecordTab::showBrowsing() {
    stavPrehlad();
    naplnZoznam();
    // Not before the focus has left the button that was pressed.
    enableSaving(false);
}

void RecordTab::click(const forms::Control& control, forms::Area /*area*/) {
    if (control.isEnabled() && hasRows())
        records().setBookmark(list_->selectedItem());
}

void RecordTab::act(Button button) {
    frame_.words().keep();
    const bool isDone = frame_.actions().perform([&] { press(button); });
    frame_.actions().perform([this] { closeLostRecord(); });
    if (isDone)
        frame_.showContents();
}

void RecordTab::press(Button button) {
    switch (button) {
    case Novy:
        return novy();
    case Opr:
        return oprava();
    case Vym:
        vymaz();
        return showBrowsing();
    case Zap:
        return zapis() ? showBrowsing() : void();
    case ZapNew:
        return zapis() ? beginNext() : void();
    case Sto:
        return storno();
    case buttonCount:
        return;
    }
}

/// What is typed into a record that could not be opened would go nowhere.
void RecordTab::closeLostRecord() {
    const bool isOpen = source_.isOpen() && records().EditMode() != store::EditState::None;
    if (buttons_[Sto]->isEnabled() && !isOpen && !draft_.isOwed())
        showBrowsing();
}

void RecordTab::novy() {
    otvorVstup();
    stavEdit();
    records().AddNew();
}

void RecordTab::beginNext() {
    records().AddNew();
    forms::moveFocus(openingField());
}

void RecordTab::oprava() {
    if (row_.editOpens == EditOpens::BeforeFields)
        records().Edit();
    otvorVstup();
    stavEdit();
    kind_->editBegins();
    if (row_.editOpens == EditOpens::AfterFields)
        records().Edit();
}

void RecordTab::storno() {
    frame_.words().dropped(row_.tab);
    draft_.forget();
    if (source_.isOpen())
        records().CancelUpdate();
    if (row_.stornoRereads == StornoRereads::Yes)
        source_.Refresh();
    showBrowsing();
}

/// @return false when a mandatory field is empty; it has the focus then
bool RecordTab::zapis() {
    if (!isComplete())
        return false;
    if (draft_.isOwed())
        draft_.openOwed(typed());
    draft_.keepRow(source_, typed());
    const auto write = [this] {
        kind_->complete(records());
        if (records().EditMode() == store::EditState::Edit)
            writeEdited();
        else if (records().EditMode() == store::EditState::Add)
            writeNew();
    };
    frame_.actions().write(write, [this] { draft_.resume(); });
    frame_.words().written(row_.tab);
    return true;
}

card::Draft::Typed RecordTab::typed() {
    return {[this, words = typedWords()] {
        enterWords(words);
    }};
}

forms::Words RecordTab::typedWords() const {
    const bool isOpen =
        draft_.isOwed() || (source_.isOpen() && records().EditMode() != store::EditState::None);
    if (!isOpen || !binding_)
        return {};
    forms::Words words = binding_->typed();
    const forms::Words unbound = kind_->typedWords();
    words.insert(words.end(), unbound.begin(), unbound.end());
    return words;
}

void RecordTab::enterWords(const forms::Words& words) {
    binding_->enter(words);
    kind_->enterWords(words);
}

void RecordTab::keepWords() {
    frame_.words().add({.part = row_.tab,
                        .title = QString::fromUtf16(tabTable()[std::size_t(row_.tab)].caption),
                        .tables = {QString::fromUtf16(row_.table)},
                        .typed =
                            [this] {
                                forms::Words words = typedWords();
                                const forms::Words among = kind_->begunAmong();
                                if (!words.empty())
                                    words.insert(words.end(), among.begin(), among.end());
                                return words;
                            },
                        .basis = [this] { return openedRow(); },
                        .enter =
                            [this](const words::Kept& kept) {
                                openAnew(kept);
                            }});
}

/// Empty for a new one.
QByteArray RecordTab::openedRow() const {
    return records().EditMode() == store::EditState::Add
               ? QByteArray()
               : words::printOf(records(), QString::fromUtf16(row_.table));
}

bool RecordTab::goToRow(const QByteArray& print) {
    const auto rows = records().Clone();
    if (hasRows())
        rows->MoveFirst();
    for (; hasRows() && !rows->Eof(); rows->MoveNext()) {
        if (words::printOf(*rows, QString::fromUtf16(row_.table)) != print)
            continue;
        records().setBookmark(rows->Bookmark());
        return true;
    }
    return false;
}

/// Opens the record that words were typed into, as its buttons do, and puts them in.
void RecordTab::openAnew(const words::Kept& kept) {
    frame_.turnTo(row_.tab);
    if (!binding_)
        return;
    kind_->showAmong(kept.words);
    if (!kept.basis.isEmpty() && !goToRow(kept.basis))
        return;
    kept.basis.isEmpty() ? novy() : oprava();
    enterWords(kept.words);
    kind_->wasFilled();
}

bool RecordTab::isComplete() {
    for (const MandatoryField& mandatory : row_.mandatory) {
        if (mandatory.field < 0 ||
            !card::trimBlanks(fields_.field(mandatory.field).text()).isEmpty())
            continue;
        card::refuse(frame_.window(), QString::fromUtf16(mandatory.message));
        fields_.field(mandatory.field).setFocus();
        return false;
    }
    return true;
}

void RecordTab::writeEdited() {
    const qint64 place = records().AbsolutePosition();
    records().Update();
    source_.Refresh();
    if (row_.afterEdit == AfterEdit::SamePlace)
        records().setAbsolutePosition(place);
}

void RecordTab::writeNew() {
    const QString key = frame_.data().datZaklad().Recordset().Fields(u"idkod").Value().toText();
    records().Fields(u"idkod").setValue(key);
    records().Update();
    source_.setRecordSource(kind_->recordSource(key));
    source_.Refresh();
}

void RecordTab::vymaz() {
    const QString ownTitle = QString::fromUtf16(row_.deleteTitle);
    const auto answer = forms::showMessage(
        &frame_.window(),
        {.text = question(),
         .title = ownTitle.isEmpty() ? QString() : ownTitle + modKontrola::gMenoKlienta,
         .icon = QMessageBox::Question,
         .buttons = QMessageBox::Yes | QMessageBox::No,
         .defaultButton = QMessageBox::No});
    if (answer != QMessageBox::Yes)
        return;
    const auto erase = [this] {
        records().Delete();
        source_.Refresh();
    };
    frame_.actions().write(erase, [this] {
        source_.Refresh();
        showBrowsing();
    });
}

QString RecordTab::question() const {
    QString text = QString::fromUtf16(row_.deleteQuestion);
    for (const QuestionPart& part : row_.questionParts) {
        store::DataSource& from =
            *part.source == u'\0' ? source_ : frame_.data().source(part.source);
        text += QString::fromUtf16(part.before);
        if (!from.Recordset().Eof())
            text += card::trimBlanks(from.Recordset().Fields(part.column).Value().toText());
    }
    return text + QStringLiteral(" ?");
}

} // namespace clientcard
