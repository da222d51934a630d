#pragma once

#include "forms/Words.h"

#include <QString>

#include <span>

class QAbstractButton;
class QDialog;
class QWidget;

namespace card {
class Actions;
}

namespace forms {
class FocusGuard;
}

namespace words {
class Keeper;
}

namespace clientcard {

class CardData;
class KeyFields;
class SaveCycle;

/// What a tab holds, as the list of the tabs shows it beside the caption and as it is said.
struct TabContents {
    QString shown;
    QString said;
    /// The latest date of its records; empty without any.
    QString latest = {};
};

/// What the frame of the card is to its tabs.
class CardFrame {
  public:
    virtual ~CardFrame() = default;
    virtual QDialog& window() = 0;
    virtual CardData& data() = 0;
    virtual forms::FocusGuard& guard() = 0;
    virtual SaveCycle& cycle() = 0;

    /// What runs the actions of the card's user.
    virtual card::Actions& actions() = 0;
    /// Keeps what is typed on the card.
    virtual words::Keeper& words() = 0;
    /// Turns to a tab as a click on it does.
    virtual void turnTo(int tab) = 0;
    /// A record of the tab goes into edit: all that is outside the tab is disabled, Esc is its
    /// Storno's.
    virtual void beginEdit(int tab, QAbstractButton& storno) = 0;
    /// The record is written or dropped: all tabs and buttons are back, Esc is the frame's.
    virtual void endEdit() = 0;
    /// What the tabs hold may be another after an action.
    virtual void showContents() = 0;
    /// The walk by Enter is over, and Enter was pressed once more: leads to the button that writes
    /// a new client, while there is one.
    virtual void leadOnFromLastField() = 0;
};

/// One or more tabs of a kind. The frame knows them by this alone, and they don't know each other.
class TabFamily {
  public:
    virtual ~TabFamily() = default;
    /// Makes the page of one of the family's tabs; it belongs to the parent.
    virtual QWidget* makePage(int tab, QWidget* parent) = 0;
    /// The user has turned to one of the family's tabs.
    virtual void turnedTo(int tab) = 0;

    /// The fields that the save cycle reads; null for a family that has none.
    virtual KeyFields* keyFields() { return nullptr; }
    /// Gives the focus to an element of `textKrz`.
    virtual void focusElement(int /*element*/) {}
    /// What the client has on a tab. @throws store::EngineError
    virtual TabContents contentsOf(int /*tab*/) { return {}; }
    /// What all tabs hold has been read anew.
    virtual void contentsRead(std::span<const TabContents> /*contents*/) {}
    /// Something was typed or picked that is not written yet.
    virtual bool isChanged() const { return false; }
    /// What was typed or picked that is not written yet.
    virtual forms::Words typedWords() const { return {}; }
    /// Puts it into the fields of the rows that are open, as if it had been typed.
    virtual void enterWords(const forms::Words& /*words*/) {}
};

} // namespace clientcard
