#pragma once

#include <QString>

namespace forms {

/// What a binding needs of a widget that shows a column. The text is what the column holds.
class Bound {
  public:
    virtual ~Bound() = default;
    /// The widget's text differs from what showBound() was last given.
    virtual bool dataChanged() const = 0;
    virtual QString boundText() const = 0;
    /// Shows the text without any event of the user.
    virtual void showBound(const QString& text) = 0;
    /// Puts a text in as if the user had typed it, without any event of the user.
    virtual void enter(const QString& text) = 0;
    /// The column's width in characters, 0 when it is free.
    virtual void limitTo(int characters) = 0;
    /// A field of long text, whose column is read only when the field is in sight.
    virtual bool showsLate() const { return false; }
};

} // namespace forms
