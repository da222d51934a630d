#include "forms/AccessibleParts.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QToolButton>

namespace forms {

namespace {

const QLabel* labelOf(const QWidget& widget) {
    for (const auto* label : widget.window()->findChildren<QLabel*>()) {
        if (label->buddy() == &widget)
            return label;
    }
    return nullptr;
}

QString nameOf(const QWidget& widget) {
    if (!widget.accessibleName().isEmpty())
        return widget.accessibleName();
    const QLabel* label = labelOf(widget);
    return label != nullptr ? label->text().remove(u'&').replace(u'\n', u' ') : widget.toolTip();
}

/// As the toolkit's own, which has the value for a name.
class DropDownAccess : public QAccessibleWidget {
  public:
    explicit DropDownAccess(QComboBox& box)
        : QAccessibleWidget(&box, QAccessible::ComboBox), box_(box) {}

    int childCount() const override { return box_.isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        QWidget* part = index == 0 ? static_cast<QWidget*>(box_.view()) : box_.lineEdit();
        return QAccessible::queryAccessibleInterface(part);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == box_.view() ? 0 : child->object() == box_.lineEdit() ? 1 : -1;
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value)
            return box_.isEditable() ? box_.lineEdit()->text() : box_.currentText();
        return kind == QAccessible::Name ? nameOf(box_) : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box_.view()->isVisible();
        state.collapsed = !state.expanded;
        state.hasPopup = true;
        state.editable = box_.isEditable();
        return state;
    }
    QStringList actionNames() const override {
        return {showMenuAction(), QAccessibleWidget::setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction())
            return QAccessibleWidget::doAction(name);
        box_.setFocus();
        box_.view()->isVisible() ? box_.hidePopup() : box_.showPopup();
    }

  private:
    QComboBox& box_;
};

/// What the dialogs of the toolkit show without a label that would know of it.
struct Unlabelled {
    const char16_t* control;
    const char16_t* name;
};
constexpr Unlabelled unlabelled[] = {{u"unitCombo", u"Jednotka miery"},
                                     {u"pagesPerSheetCombo", u"Strán na hárok"},
                                     {u"pagesPerSheetLayoutCombo", u"Poradie strán"},
                                     {u"fileBrowser", u"Vybrať súbor"}};

void nameOfToolkit(QWidget& control) {
    const QString own = control.objectName();
    for (const auto& [object, name] : unlabelled) {
        if (own == QStringView(object))
            control.setAccessibleName(QString::fromUtf16(name));
    }
    if (!own.endsWith(QLatin1String("Combo")))
        return;
    auto* label = control.window()->findChild<QLabel*>(own.chopped(5) + QLatin1String("Label"));
    if (label != nullptr && label->buddy() == nullptr)
        label->setBuddy(&control);
}

/// Not before it is shown: by then it stands beside its label.
void nameWhenShown(QWidget& widget) {
    const auto name = [](QWidget* part, const QString& as) {
        if (part != nullptr && part->accessibleName().isEmpty() && !as.isEmpty())
            part->setAccessibleName(as);
    };
    if (auto* box = qobject_cast<QComboBox*>(&widget)) {
        nameOfToolkit(*box);
        name(box->view(), nameOf(*box));
        name(box->lineEdit(), nameOf(*box));
    } else if (qobject_cast<QToolButton*>(&widget) != nullptr) {
        nameOfToolkit(widget);
    } else if (qobject_cast<QAbstractItemView*>(&widget) != nullptr) {
        name(&widget, nameOf(widget));
    } else if (qobject_cast<QTabWidget*>(&widget) != nullptr) {
        name(&widget, widget.window()->windowTitle());
    }
}

class PartNamer : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType())
            nameWhenShown(*static_cast<QWidget*>(watched));
        return false;
    }
};

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    return className == QLatin1String("QComboBox")
               ? new DropDownAccess(*static_cast<QComboBox*>(object))
               : nullptr;
}

} // namespace

void nameParts(QCoreApplication& application) {
    QAccessible::installFactory(&makeAccess);
    application.installEventFilter(new PartNamer(&application));
}

} // namespace forms
