#include "forms/SpellMenu.h"

#include "spelling/Speller.h"

#include <QKeyEvent>
#include <QMenu>
#include <QTextEdit>

#include <algorithm>
#include <chrono>

namespace forms {

namespace {

constexpr qsizetype mostWords = 6;
/// A menu that is open is not changed as easily as one that is not.
constexpr std::chrono::milliseconds patience(150);

/// One of the lines for other words; without one it is blank.
void fillLine(QAction& line, const QString& word) {
    QFont bold = line.font();
    bold.setBold(true);
    line.setFont(bold);
    line.setText(QString(word).replace(u'&', QStringLiteral("&&")));
    line.setData(word);
    line.setEnabled(!word.isEmpty());
}

QStringList linesFor(const QStringList* words) {
    if (words != nullptr)
        return words->isEmpty() ? QStringList(QString()) : words->mid(0, mostWords);
    return QStringList(mostWords, QString());
}

} // namespace

SpellMenu::SpellMenu(QTextEdit& editor, spelling::Speller& speller)
    : editor_(editor), speller_(speller) {
    waiting_.setSingleShot(true);
    waiting_.setInterval(patience);
    connect(&waiting_, &QTimer::timeout, this, [this] { show(nullptr); });
}

void SpellMenu::open(const Offer& offer) {
    offer_ = offer;
    menu_.clear();
    waiting_.start();
    speller_.suggest(offer.word, this, [this, number = ++offers_](const QStringList& words) {
        if (number == offers_)
            suggested(words);
    });
}

void SpellMenu::openPlain(const QPoint& at) {
    offer_ = {.place = {}, .word = {}, .at = at, .withEditing = true};
    ++offers_;
    const QStringList none;
    show(&none);
}

void SpellMenu::suggested(const QStringList& words) {
    if (waiting_.isActive())
        return show(&words);
    if (menu_ == nullptr)
        return;
    const QList<QAction*> lines = menu_->actions();
    for (qsizetype i = 0; i < mostWords; ++i)
        fillLine(*lines[i], words.value(i));
    // The mouse may be on its way to what stands below.
    for (qsizetype i = std::max<qsizetype>(words.size(), 1); i < mostWords; ++i)
        lines[i]->setVisible(offer_.withEditing);
    if (words.isEmpty())
        lines.front()->setText(QStringLiteral("Žiadny návrh"));
    else if (menu_->activeAction() == nullptr)
        menu_->setActiveAction(lines.front());
}

/// @param words null while they are still being looked for
void SpellMenu::show(const QStringList* words) {
    waiting_.stop();
    menu_ = offer_.withEditing ? editor_.createStandardContextMenu() : new QMenu(&editor_);
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    menu_->installEventFilter(this);
    if (!offer_.word.isEmpty())
        menu_->setAccessibleName(QStringLiteral("Návrhy pre slovo „%1“").arg(offer_.word));
    auto* ours = new QMenu(menu_);
    if (!offer_.word.isEmpty())
        addWords(*ours, words);
    addCommands(*ours);
    menu_->insertActions(menu_->actions().value(0), ours->actions());
    const bool hasWord = !offer_.word.isEmpty() && words != nullptr && !words->isEmpty();
    menu_->popup(offer_.at);
    if (hasWord)
        menu_->setActiveAction(menu_->actions().front());
}

void SpellMenu::addWords(QMenu& menu, const QStringList* words) {
    for (const QString& word : linesFor(words)) {
        QAction* line = menu.addAction(QString());
        fillLine(*line, word);
        connect(line, &QAction::triggered, this,
                [this, line] { replace(line->data().toString()); });
    }
    QAction* first = menu.actions().front();
    if (words == nullptr)
        first->setText(QStringLiteral("Hľadajú sa návrhy…"));
    else if (words->isEmpty())
        first->setText(QStringLiteral("Žiadny návrh"));
    menu.addSeparator();
    QAction* add = menu.addAction(QStringLiteral("Pri&dať do slovníka"));
    connect(add, &QAction::triggered, this, [this] {
        speller_.add(offer_.word);
        Q_EMIT added(offer_.word);
    });
}

void SpellMenu::addCommands(QMenu& menu) {
    QAction* next = menu.addAction(QStringLiteral("Ďalšie &neznáme slovo\tF7"));
    connect(next, &QAction::triggered, this, &SpellMenu::nextAsked);
    if (offer_.withEditing)
        menu.addSeparator();
}

/// The key that opened the menu goes on to the next word.
bool SpellMenu::eventFilter(QObject* watched, QEvent* event) {
    // Its last events come from a menu that is none any more.
    const bool isNext = event->type() == QEvent::KeyPress && watched == menu_ &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F7;
    if (!isNext)
        return QObject::eventFilter(watched, event);
    menu_->close();
    Q_EMIT nextAsked();
    return true;
}

/// In one step to undo, with the marks of the word. The text may have been changed meanwhile, as
/// when another record is shown.
void SpellMenu::replace(const QString& word) {
    QTextCursor place = offer_.place;
    if (editor_.isReadOnly() || !place.hasSelection())
        return;
    place.insertText(word, place.charFormat());
    editor_.setTextCursor(place);
}

} // namespace forms
