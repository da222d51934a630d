#include "forms/DropDown.h"

#include "forms/Binding.h"
#include "forms/HitList.h"
#include "forms/KitScreen.h"
#include "forms/RowList.h"
#include "store/DataSource.h"
#include "store/FaultVfs.h"
#include "support/TemporaryRegister.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace {

using namespace Qt::StringLiterals;

using forms::Area;
using forms::Control;
using forms::DropDown;

/// Two picks beside the fields of the kit, and rules in the manner of the cards: a chosen line and
/// Enter send the focus to the first field, Esc too.
class PickScreen : public kittest::KitScreen {
  public:
    PickScreen() : drop(this, DropDown::Kind::Editable), fixed(this) {
        guard.watch(&drop, u"pick"_s, 0, *this);
        guard.watch(&fixed, u"pick"_s, 1, *this);
        for (DropDown* pick : {&drop, &fixed}) {
            layout()->addWidget(pick);
            pick->setVisible(true);
        }
    }
    void start() {
        drop.setFocus();
        told.clear();
    }

    void gotFocus(const Control& /*control*/) override {}
    forms::Leave lostFocus(const Control& /*control*/, const Control& /*now*/) override {
        return forms::Leave::Go;
    }
    void change(const Control& control) override {
        told += u"change "_s + textOf(control);
        if (onChange)
            onChange();
    }
    void click(const Control& control, Area area) override {
        told += u"click%1 %2"_s.arg(int(area)).arg(textOf(control));
        if (area == Area::Button && onButton)
            onButton();
        if (area == Area::Item)
            field.setFocus();
    }
    void keyDown(const Control& control, int& key, Qt::KeyboardModifiers /*m*/) override {
        if (control.name() != u"pick" || !takesKeys ||
            (key != Qt::Key_Return && key != Qt::Key_Escape))
            return;
        told += u"key "_s + textOf(control);
        key = 0;
        field.setFocus();
    }

    void openByMouse() { support::press(drop, QPoint(drop.width() - 8, drop.height() / 2)); }
    /// To the list when it is open, as the window system would.
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick((popup != nullptr ? popup : this)->windowHandle(), Qt::Key(code),
                        modifiers);
    }
    void type(const char* keys) {
        for (const char* at = keys; *at != 0; ++at)
            key(*at == ' ' ? int{Qt::Key_Space} : Qt::Key_A + *at - 'a');
    }
    QString lineUnderMark() const { return drop.view()->currentIndex().data().toString(); }
    static bool isOpened() { return QApplication::activePopupWidget() != nullptr; }

    DropDown drop, fixed;
    forms::EntryField& field = text[0];
    std::function<void()> onChange, onButton;
    bool takesKeys = true;

  private:
    static QString textOf(const Control& control) {
        if (auto* box = qobject_cast<DropDown*>(control.widget()))
            return box->text();
        return control.name();
    }
};

class DropDownTest : private faults::Layer, public testing::Test {
  protected:
    DropDownTest() {
        int code = 1;
        for (const char16_t* name : {u"Bardejov", u"Bratislava", u"Brezno", u"Čadca", u"Žilina"})
            add(code++, QString::fromUtf16(name));
        towns.setDatabaseName(reg.folder.database());
        towns.setRecordSource(u"select * from c_iczuj order by nazov"_s);
    }
    void add(int code, const QString& name) {
        reg.add(u"c_iczuj"_s, {{u"kod", QString::number(code)}, {u"nazov", name}});
    }
    void start() {
        towns.Refresh();
        screen.drop.setSource(towns, u"nazov"_s);
        screen.fixed.setItems({u"M"_s, u"Z"_s});
        screen.start();
    }
    /// While nothing can be read, the action brings one box, a repaint behind it none, and the
    /// program goes on.
    void failReads(const std::function<void()>& action, QWidget* repainted = nullptr) {
        reg.engine.commitPending();
        faults::install({faults::Plan::Fault::ReadFails});
        boxes.expectTold(u"Chyba č. 3043\n\nChyba pri čítaní disku alebo zápise naň."_s, {},
                         QMessageBox::Critical);
        action();
        EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.isEmpty(); }));
        if (repainted != nullptr)
            repainted->grab();
        QCoreApplication::processEvents();
        faults::install({});
    }
    QString pickedName() {
        towns.Recordset().setBookmark(screen.drop.selectedItem());
        return towns.Recordset().Fields(u"nazov").Value().toText();
    }

    support::TemporaryRegister reg;
    store::DataSource towns{reg.engine};
    support::ScriptedBoxes boxes;
    PickScreen screen;
};

} // namespace

TEST_F(DropDownTest, AClickedLineIsThePickAndTellsChangeThenClick) {
    start();
    screen.key(Qt::Key_F4);
    ASSERT_TRUE(screen.isOpened());
    EXPECT_EQ(screen.heard(), u"click0 "_s);
    QAbstractItemView& view = *screen.drop.view();
    const QPoint line = view.visualRect(screen.drop.model()->index(2, 0)).center();
    QTest::mouseMove(QApplication::activePopupWidget()->windowHandle(),
                     view.viewport()->mapTo(view.window(), line));
    support::press(*view.viewport(), line);
    EXPECT_FALSE(screen.isOpened());
    EXPECT_EQ(screen.told.mid(1), QStringList({u"change Brezno"_s, u"click2 Brezno"_s}));
    EXPECT_EQ(screen.focusWidget(), &screen.field);
    EXPECT_EQ(pickedName(), u"Brezno"_s);
    EXPECT_EQ(screen.drop.pick(), 2);
}

TEST_F(DropDownTest, TypedInTheOpenListItFindsAndEnterTakes) {
    start();
    screen.openByMouse();
    screen.told.clear();
    screen.type("bre");
    EXPECT_EQ(screen.lineUnderMark(), u"Brezno"_s);
    EXPECT_EQ(screen.heard(), u"change Bardejov; change Bratislava; change Brezno"_s);
    screen.type("c");
    EXPECT_EQ(screen.lineUnderMark(), u"Čadca"_s) << "accents and a new beginning";
    screen.key(Qt::Key_Down);
    screen.told.clear();
    screen.key(Qt::Key_Return);
    EXPECT_FALSE(screen.isOpened());
    EXPECT_EQ(screen.heard(), u"key Žilina"_s);
    EXPECT_EQ(screen.focusWidget(), &screen.field);
    EXPECT_EQ(pickedName(), u"Žilina"_s);
}

TEST_F(DropDownTest, EscInTheOpenListGivesThePickBackAndNeverReachesStorno) {
    for (const bool takesKeys : {true, false}) {
        start();
        screen.takesKeys = takesKeys;
        screen.drop.setText(u"Nitra"_s);
        screen.key(Qt::Key_F4);
        screen.key(Qt::Key_Down);
        screen.told.clear();
        screen.key(Qt::Key_Escape);
        EXPECT_FALSE(screen.isOpened());
        EXPECT_EQ(screen.drop.text(), u"Nitra"_s);
        EXPECT_FALSE(screen.drop.selectedItem().isValid());
        EXPECT_EQ(screen.heard(), takesKeys ? u"key Nitra"_s : QString());
    }
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.heard(), u"storno"_s);
}

TEST_F(DropDownTest, TheListOpensOnWhatTheFieldHoldsAndEscGivesItBack) {
    start();
    screen.drop.serve(screen.field);
    screen.onChange = [&] {
        screen.field.setText(screen.drop.text());
    };
    add(6, u"Žilina-Bytčica"_s);
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"Brezno", u"Brezno"}, {u"", u"Bardejov"},     {u"BRE", u"Brezno"},
        {u"ca", u"Čadca"},      {u"Žilina", u"Žilina"}, {u"zilina-", u"Žilina-Bytčica"},
        {u"Nitra", u""},
    };
    towns.Refresh();
    for (const auto& [held, line] : cases) {
        const QString before = QString::fromUtf16(held);
        for (const bool takes : {false, true}) {
            screen.field.setText(before);
            screen.drop.setText(u"Poprad"_s);
            screen.drop.setFocus();
            screen.key(Qt::Key_F4);
            EXPECT_EQ(screen.lineUnderMark(), QString::fromUtf16(line)) << before.toStdString();
            if (!takes)
                screen.key(Qt::Key_Down);
            screen.key(takes ? Qt::Key_Return : Qt::Key_Escape);
            const bool finds = *line != 0;
            EXPECT_EQ(screen.field.text(), takes && finds ? QString::fromUtf16(line) : before);
            EXPECT_EQ(screen.drop.text(), takes && finds ? QString::fromUtf16(line) : u"Poprad"_s);
        }
    }
}

TEST_F(DropDownTest, TypedInTheClosedFieldItCompletes) {
    start();
    screen.type("br");
    EXPECT_EQ(screen.drop.text(), u"Bratislava"_s);
    EXPECT_EQ(screen.drop.lineEdit()->selectedText(), u"atislava"_s);
    EXPECT_EQ(pickedName(), u"Bratislava"_s);
    screen.type("e");
    EXPECT_EQ(screen.drop.text(), u"Brezno"_s);
    screen.key(Qt::Key_Backspace);
    EXPECT_EQ(screen.drop.text(), u"Bre"_s) << "deleting must not complete";
    screen.type("x");
    EXPECT_EQ(screen.drop.text(), u"Brex"_s);
    EXPECT_FALSE(screen.drop.selectedItem().isValid());
    screen.key(Qt::Key_Home);
    screen.type("ab");
    EXPECT_EQ(screen.drop.text(), u"abBrex"_s) << "where the cursor stands";
    EXPECT_EQ(screen.told.size(), 7) << screen.told.join(u"; ").toStdString();
    screen.told.clear();
    screen.field.setFocus();
    EXPECT_EQ(screen.heard(), QString()) << "leaving must not choose";
}

TEST_F(DropDownTest, WhatIsTypedIntoTheServedFieldIsCompletedBesideItsLines) {
    add(31, u"Nitra"_s);
    add(512435, u"Lipovec"_s);
    add(515167, u"Lipovec"_s);
    start();
    forms::EntryField& field = screen.field;
    screen.drop.tellTwinsBy(u"kod"_s);
    screen.drop.serve(field);
    QObject::connect(&screen.drop, &DropDown::clicked, &field,
                     [&] { field.setText(screen.drop.text()); });
    const auto shown = [this] {
        for (const auto* list : screen.findChildren<forms::HitList*>()) {
            if (list->isVisible())
                return list->currentIndex().data().toString();
        }
        return QString();
    };
    const auto expect = [&](const char16_t* text, const char16_t* completed, const char16_t* line) {
        EXPECT_EQ(field.text(), QString::fromUtf16(text));
        EXPECT_EQ(field.selectedText(), QString::fromUtf16(completed));
        EXPECT_EQ(shown(), QString::fromUtf16(line));
        EXPECT_EQ(field.accessibleDescription(), shown());
    };
    field.setFocus();
    screen.type("br");
    expect(u"Bratislava", u"atislava", u"Bratislava");
    screen.type("e");
    expect(u"Brezno", u"zno", u"Brezno");
    screen.key(Qt::Key_Backspace);
    expect(u"Bre", u"", u"Brezno");
    screen.key(Qt::Key_Down, Qt::ControlModifier);
    expect(u"Brezno", u"", u"Brezno");
    screen.key(Qt::Key_Down, Qt::ControlModifier);
    expect(u"Čadca", u"", u"Čadca");
    field.clear();
    screen.type("ca");
    expect(u"ca", u"", u"Čadca");
    screen.type("x");
    expect(u"cax", u"", u"");
    field.clear();
    screen.type("lip");
    expect(u"Lipovec", u"ovec", u"Lipovec (512435)");
    field.clear();
    screen.type("br");
    screen.told.clear();
    screen.key(Qt::Key_Escape);
    expect(u"Br", u"", u"");
    EXPECT_EQ(screen.heard(), QString()) << "Esc is for what lies above the card first";
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.heard(), u"storno"_s);
    towns.setRecordSource(u"select kod + ' | ' + nazov as roleta from c_iczuj order by kod"_s);
    towns.Refresh();
    screen.drop.setSource(towns, u"roleta"_s);
    for (const auto& [typed, text, completed, line] :
         {std::tuple(Qt::Key_3, u"3", u"", u"3 | Brezno"), {Qt::Key_N, u"n", u"", u"31 | Nitra"}}) {
        field.clear();
        screen.key(typed);
        expect(text, completed, line);
    }
    screen.text[1].setFocus();
    EXPECT_EQ(shown(), QString());
}

TEST_F(DropDownTest, TheProgramChangesItSilentlyAndRefreshDropsThePick) {
    start();
    screen.drop.setPick(3);
    EXPECT_EQ(screen.drop.text(), u"Čadca"_s);
    add(6, u"Aaa"_s);
    towns.Refresh();
    EXPECT_FALSE(screen.drop.selectedItem().isValid());
    EXPECT_EQ(screen.drop.text(), u"Čadca"_s);
    screen.drop.setPick(0);
    EXPECT_EQ(screen.drop.text(), u"Aaa"_s);
    screen.fixed.setPick(1);
    screen.fixed.removeItem(0);
    EXPECT_EQ(screen.fixed.text(), u"Z"_s);
    EXPECT_EQ(screen.fixed.pick(), 0);
    EXPECT_EQ(screen.heard(), QString());
}

TEST_F(DropDownTest, TheListOpensOnTheRowThatTheButtonsRuleHasFound) {
    start();
    screen.drop.setPick(4);
    screen.onButton = [&] {
        towns.Recordset().FindFirst(u"kod ='4'"_s);
    };
    screen.openByMouse();
    EXPECT_EQ(screen.lineUnderMark(), u"Čadca"_s);
    EXPECT_EQ(screen.drop.pick(), 4) << "to open is not to pick";
    screen.key(Qt::Key_Return);
    EXPECT_EQ(screen.drop.pick(), 3);
    screen.drop.setFocus();
    // A rule that sends the focus away keeps the list closed.
    screen.onButton = [&] {
        screen.field.setFocus();
    };
    screen.openByMouse();
    EXPECT_FALSE(screen.isOpened());
}

TEST_F(DropDownTest, OpeningReadsOnlyTheLinesInSight) {
    for (int code = 1000; code < 3900; ++code)
        add(code, u"Obec %1"_s.arg(code));
    start();
    // Rows that are gone read as empty, so a line read before shows by its text.
    screen.openByMouse();
    QCoreApplication::processEvents();
    reg.execute({u"delete * from c_iczuj"_s});
    int read = 0;
    for (int row = 0; row < screen.drop.count(); ++row)
        read += int{!screen.drop.itemText(row).isEmpty()};
    EXPECT_EQ(screen.drop.count(), 2905);
    EXPECT_GT(read, 5);
    EXPECT_LT(read, 60);
    screen.key(Qt::Key_Escape);
}

TEST_F(DropDownTest, AListShowsRowsAndTellsOfTheUsersChoiceOnly) {
    start();
    forms::RowList list(&screen);
    screen.layout()->addWidget(&list);
    screen.guard.watch(&list, u"list"_s, -1, screen);
    list.setSource(towns, u"nazov"_s);
    list.show();
    list.setFocus();
    screen.told.clear();
    towns.Recordset().setAbsolutePosition(2);
    list.showCurrentRow();
    EXPECT_EQ(list.text(), u"Brezno"_s);
    EXPECT_EQ(screen.heard(), QString());
    screen.key(Qt::Key_Down);
    EXPECT_EQ(screen.heard(), u"click2 list"_s);
    towns.Recordset().setBookmark(list.selectedItem());
    EXPECT_EQ(towns.Recordset().Fields(u"kod").Value().toText(), u"4"_s);
    reg.execute({u"delete from c_iczuj where kod = '1'"_s});
    towns.Refresh();
    EXPECT_EQ(list.count(), 4);
    EXPECT_FALSE(list.selectedItem().isValid());
}

TEST_F(DropDownTest, WhatCannotBeReadIsToldOnceAndComesWhenItCan) {
    // More than come with the opening of a source.
    for (int code = 1000; code < 1200; ++code)
        add(code, u"Obec %1"_s.arg(code));
    start();
    failReads([&] { screen.key(Qt::Key_F4); });
    EXPECT_FALSE(screen.isOpened());
    screen.key(Qt::Key_F4);
    EXPECT_EQ(screen.drop.count(), 205) << "not empty for good";
    screen.key(Qt::Key_Escape);
    forms::RowList list(&screen);
    list.setSource(towns, u"nazov"_s);
    forms::Binding binding(towns);
    binding.bind(screen.text[1], u"nazov"_s);
    binding.bind(screen.text[2], u"kod"_s);
    const auto showRows = [&] {
        list.grab();
        EXPECT_NO_THROW(towns.Recordset().MoveNext());
        EXPECT_EQ(screen.text[1].text() + screen.text[2].text(), QString());
    };
    failReads(showRows, &list);
    towns.Recordset().MoveFirst();
    EXPECT_EQ(screen.text[1].text(), u"Bardejov"_s);
}
