// Measured on what is painted, whatever painted it.
#include "app/ScreenWalk.h"
#include "support/Contrast.h"
#include "validation/modKontrola.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Of the letters in a part of a picture to what they stand on; nothing where there are none. Holds
/// for texts that are painted without smoothing.
std::optional<double> contrastOfText(const QImage& picture, const QRect& part) {
    std::map<QRgb, int> counts;
    const QRect inside = part & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    std::vector<std::pair<int, QRgb>> byCount;
    for (const auto& [colour, count] : counts)
        byCount.emplace_back(count, colour);
    std::ranges::sort(byCount, std::greater());
    if (byCount.size() < 2)
        return std::nullopt;
    // A ground may have shades of its own.
    constexpr double shade = 1.6;
    const QRgb ground = byCount[0].second;
    const auto ink = std::ranges::find_if(byCount, [&](const auto& counted) {
        return contrast::ratio(ground, counted.second) > shade;
    });
    return contrast::ratio(ground, (ink != byCount.end() ? ink : byCount.begin() + 1)->second);
}

constexpr double leastForText = 4.5;
constexpr double leastForReading = 7;
constexpr double leastForEdges = 3;

struct Text {
    QWidget* widget;
    QRect part;
    QString words;
    double least = leastForText;
};

using Texts = std::vector<Text>;

bool isOnlyRead(const QWidget& field) {
    return !field.isEnabled() || field.property("readOnly").toBool();
}

void addItems(QAbstractItemView& view, Texts& texts) {
    constexpr int mostRows = 30;
    const auto& model = *view.model();
    for (int row = 0; row < std::min(model.rowCount(), mostRows); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            const QRect part = view.visualRect(index) & view.viewport()->rect();
            if (!index.data().toString().isEmpty() && part.height() > 10)
                texts.push_back({view.viewport(), part, index.data().toString()});
        }
    }
}

void addHead(QHeaderView& head, Texts& texts) {
    for (int i = 0; i < head.count(); ++i) {
        const bool lies = head.orientation() == Qt::Horizontal;
        const int at = head.sectionViewportPosition(i), size = head.sectionSize(i);
        texts.push_back(
            {head.viewport(),
             (lies ? QRect(at, 0, size, head.height()) : QRect(0, at, head.width(), size))
                 .adjusted(3, 2, -3, -3),
             head.model()->headerData(i, head.orientation()).toString()});
    }
}

void addActions(QWidget& menu, const std::function<QRect(QAction*)>& place, Texts& texts) {
    for (QAction* action : menu.actions()) {
        if (!action->isSeparator() && !action->text().isEmpty())
            texts.push_back({&menu, place(action).adjusted(3, 3, -3, -3), action->text()});
    }
}

QRect fieldOf(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    return box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                       &box);
}

/// What is written on a widget itself.
void addTexts(QWidget& widget, Texts& texts) {
    const auto whole = [&](const QString& words, double least, int edge) {
        if (!words.trimmed().isEmpty())
            texts.push_back(
                {&widget, widget.rect().adjusted(edge, edge, -edge, -edge), words, least});
    };
    const double ofField = isOnlyRead(widget) ? leastForReading : leastForText;
    if (auto* label = qobject_cast<QLabel*>(&widget))
        whole(label->text(),
              label->foregroundRole() == QPalette::PlaceholderText ? leastForReading : leastForText,
              0);
    else if (auto* button = qobject_cast<QAbstractButton*>(&widget))
        whole(button->text(), leastForText, 5);
    else if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
        line->deselect();
        whole(line->text() + line->placeholderText(), ofField, 4);
    } else if (auto* box = qobject_cast<QComboBox*>(&widget); box != nullptr && !box->isEditable())
        texts.push_back({box, fieldOf(*box), box->currentText(), ofField});
    else if (auto* edit = qobject_cast<QTextEdit*>(&widget))
        whole(edit->toPlainText(), ofField, 4);
    else if (auto* head = qobject_cast<QHeaderView*>(&widget))
        addHead(*head, texts);
    else if (auto* view = qobject_cast<QAbstractItemView*>(&widget))
        addItems(*view, texts);
    else if (auto* menu = qobject_cast<QMenu*>(&widget))
        addActions(
            *menu, [&](QAction* action) { return menu->actionGeometry(action); }, texts);
    else if (auto* bar = qobject_cast<QMenuBar*>(&widget))
        addActions(
            *bar, [&](QAction* action) { return bar->actionGeometry(action); }, texts);
    else if (auto* tabs = qobject_cast<QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts.push_back({tabs, tabs->tabRect(tab).adjusted(5, 5, -5, -5), tabs->tabText(tab)});
    }
}

class Readable {
  public:
    explicit Readable(QWidget& screen, const QString& name) : screen_(screen), name_(name) {}

    std::set<QString> faults() {
        const QImage picture = screen_.grab().toImage();
        auto widgets = screen_.findChildren<QWidget*>();
        widgets.push_back(&screen_);
        Texts texts;
        for (QWidget* widget : widgets) {
            if (widget->visibleRegion().isEmpty() || widget->window() != &screen_)
                continue;
            addTexts(*widget, texts);
            lookAtEdge(*widget, picture);
        }
        const QImage anew = screen_.grab().toImage();
        for (const Text& text : texts)
            lookAtText(text, anew);
        return faults_;
    }

  private:
    void fault(const QWidget& widget, const QString& what, double measured) {
        faults_.insert(u"%1: %2 %3: %4 %5"_s
                           .arg(name_, QString::fromUtf8(widget.metaObject()->className()),
                                widget.objectName(), what)
                           .arg(measured, 0, 'f', 2));
    }
    void lookAtText(const Text& text, const QImage& picture) {
        const QRect seen = text.part & text.widget->visibleRegion().boundingRect();
        const QPoint corner = text.widget->mapTo(&screen_, seen.topLeft());
        const auto measured = contrastOfText(picture, QRect(corner, seen.size()));
        if (measured && *measured < text.least)
            fault(*text.widget,
                  u"'%1' (%2)"_s.arg(text.words.left(30)).arg(text.widget->isEnabled()), *measured);
    }
    void lookAtEdge(QWidget& field, const QImage& picture) {
        const bool hasEdge =
            (qobject_cast<QLineEdit*>(&field) && static_cast<QLineEdit&>(field).hasFrame()) ||
            qobject_cast<QComboBox*>(&field) || qobject_cast<QAbstractSpinBox*>(&field) ||
            (qobject_cast<QAbstractScrollArea*>(&field) &&
             static_cast<QFrame&>(field).frameShape() == QFrame::StyledPanel);
        if (!hasEdge || !field.isEnabled() || field.visibleRegion().boundingRect() != field.rect())
            return;
        const QColor around = field.parentWidget()->palette().color(QPalette::Window);
        const QPoint left = field.mapTo(&screen_, QPoint(0, field.height() / 2));
        const double measured = contrast::ratio(picture.pixelColor(left), around);
        if (measured < leastForEdges)
            fault(field, u"edge"_s, measured);
    }

    QWidget& screen_;
    QString name_;
    std::set<QString> faults_;
};

/// Whether the focus changes a control by more than its cursor.
bool showsFocus(QWidget& screen, QWidget& control, QWidget& other) {
    const auto seen = [&](QWidget& focused) {
        focused.setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        const QRect around = control.rect().adjusted(-3, -3, 3, 3);
        return screen.grab(around.translated(control.mapTo(&screen, QPoint()))).toImage();
    };
    const QImage without = seen(other), with = seen(control);
    // A rule may have kept it where it was.
    if (!control.hasFocus())
        return true;
    int changed = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x)
            changed +=
                with.pixel(x, y) != without.pixel(x, y) &&
                contrast::ratio(with.pixelColor(x, y), without.pixelColor(x, y)) >= leastForEdges;
    }
    return changed >= std::min(with.width(), 2 * with.height());
}

/// Controls on which the focus can't be seen, one of each kind.
void findUnseenFocus(QWidget& screen, const QString& name, std::set<QString>& faults) {
    std::vector<QWidget*> controls;
    std::set<QString> kinds;
    for (auto* control : screen.findChildren<QWidget*>()) {
        if (control->isEnabled() && control->focusPolicy() & Qt::TabFocus &&
            control->focusProxy() == nullptr && control->window() == &screen &&
            !control->visibleRegion().isEmpty() &&
            kinds.insert(QString::fromUtf8(control->metaObject()->className())).second)
            controls.push_back(control);
    }
    if (controls.size() < 2)
        return;
    QWidget* before = screen.focusWidget();
    for (QWidget* control : controls) {
        QWidget& other = control == controls.back() ? *controls.front() : *controls.back();
        if (!showsFocus(screen, *control, other))
            faults.insert(u"%1: %2 %3"_s.arg(name,
                                             QString::fromUtf8(control->metaObject()->className()),
                                             control->objectName()));
    }
    if (before != nullptr)
        before->setFocus();
}

TEST(ReadableTest, theFocusIsSeen) {
    std::set<QString> faults, known;
    ScreenWalk walk([&](QWidget& screen, const QString& name) {
        // The rules of an empty card keep the focus where it is.
        const bool isNew = modKontrola::gAkcia == 1 || name.endsWith(u":novy"_s);
        if (!isNew && known.insert(name).second && !screen.windowFlags().testFlag(Qt::Popup))
            findUnseenFocus(screen, name, faults);
    });
    walk.walk();
    for (const QString& fault : faults)
        ADD_FAILURE() << fault.toStdString();
}

TEST(ReadableTest, allTextsAndEdgesStandOut) {
    QFont font = QApplication::font();
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    std::set<QString> faults;
    ScreenWalk walk([&](QWidget& screen, const QString& name) {
        faults.merge(Readable(screen, name).faults());
    });
    walk.walk();
    for (const QString& fault : faults)
        ADD_FAILURE() << fault.toStdString();
}

} // namespace
