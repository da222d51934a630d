#pragma once

#include <QDir>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <initializer_list>
#include <vector>

namespace tour {

/// Says why and ends the program at once: what is on the screen is not what the tour walks through.
[[noreturn]] void giveUp(const QString& why);

/// Walks through the windows as a user does, by keys and clicks, and takes pictures on the way.
/// Whatever is not as expected ends the program.
class Guide : public QObject {
    Q_OBJECT
  public:
    /// @param folder where pictures and print-outs go; made when it is missing. An empty one takes
    /// none: then the tour only looks at what can be seen.
    Guide(const QString& folder, QWidget& window);

    /// Looks for what can't be seen as it should in the window, the modal windows and the menu over
    /// it, and takes a picture of them. Pictures are numbered in their order.
    void picture(const QString& name);
    /// Clicks a control of the window in front.
    void click(const QString& objectName);
    /// Presses a key in the window in front.
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    /// Types each text and presses Enter after it.
    void enter(std::initializer_list<const char*> typed);
    /// Goes to a control of the window in front by Tab.
    void goTo(const QString& objectName);
    /// Goes to a button by Tab and presses it by Enter.
    void press(const QString& button);
    /// Runs the steps in the next modal windows, one after the other; the last one closes it.
    void inModalWindow(std::function<void(QWidget&)> steps);
    /// Fails when a modal window that was waited for never came, or when something could not be
    /// seen.
    void end() const;
    bool takesPictures() const { return takesPictures_; }
    QString path(const QString& name) const { return folder_.filePath(name); }
    QWidget& inFront() const;
    QRect place() const { return window_.geometry(); }

  private:
    void look();
    std::vector<QWidget*> shownAbove() const;

    void takePicture(const QString& name);

    bool takesPictures_;
    QDir folder_;
    QWidget& window_;
    QTimer looker_;
    std::deque<std::function<void(QWidget&)>> awaited_;
    std::vector<QPointer<QWidget>> seen_;
    int taken_ = 0;
    /// With the first picture that shows it.
    QMap<QString, QString> faults_;
};

} // namespace tour
