#pragma once

#include <QLabel>

#include <vector>

namespace forms {
class EntryField;
}

namespace card {

/// A line that names the dates of a screen which no calendar has, for as long as they stand in
/// their fields; it marks those fields as well. Such a text is kept as it was typed, but the return
/// can't count by it. Nothing is said of a text that is still being typed.
class CalendarNote : public QLabel {
    Q_OBJECT
  public:
    explicit CalendarNote(QWidget* parent);

    /// The field must not end before the note.
    void watch(forms::EntryField& field);
    /// The field's text is no longer being typed. Fields that are not watched are left alone.
    void judge(const forms::EntryField& field);

  private:
    struct Watched {
        forms::EntryField* field;
        bool isWrong = false;
    };
    void mark(Watched& watched, bool isWrong);
    void showLines();

    std::vector<Watched> fields_;
};

} // namespace card
