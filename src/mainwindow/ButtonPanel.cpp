#include "mainwindow/ButtonPanel.h"

#include "forms/Colours.h"
#include "forms/Metrics.h"

#include <QVBoxLayout>

#include <vector>

static void loadPictures() {
    Q_INIT_RESOURCE(icons);
}

namespace mainwindow {

namespace {

struct LabelTraits {
    QStringView name;
    QStringView caption;
    QStringView toolTip = {};
};

struct ButtonTraits {
    QStringView icon;
    QStringView toolTip;
    QStringView accessibleName;
    std::vector<LabelTraits> labels;
};

constexpr QStringView schoolYearLabel = u"lblSkolskyRok";

const std::array<ButtonTraits, ButtonColours::buttons>& traits() {
    static const std::array<ButtonTraits, ButtonColours::buttons> table{{
        {u"klienti",
         u"Zobrazí zoznam klientov",
         u"Klienti",
         {{u"Label1", u"KLIENTI", u"Zobrazí údaje klientov"}}},
        {u"zamestnanci",
         u"Zobrazí zoznam zamestnancov",
         u"Zamestnanci",
         {{u"Label2", u"   ZAMESTNANCI", u"Zobrazí údaje zamestnancov"}}},
        {u"ukazovatele",
         u"Sprístupní editáciu údajov dopĺňajúcich ukazovateľov",
         u"Dopĺňajúce ukazovatele",
         {{u"Label3", u"DOPĹŇAJÚCE"}, {u"Label5", u"UKAZOVATELE"}}},
        {u"koniec", u"Ukončí program", u"Koniec", {{u"Label4", u"KONIEC"}}},
        {u"starostlivost",
         u"Sprístupní editáciu údajov odbornej starostlivosti",
         u"Odborná starostlivosť",
         {{u"Label6", u"ODBORNÁ"}, {u"Label7", u"STAROSTLIVOSŤ"}}},
        {u"skolskyrok",
         u"Nastaví školský rok pre tvorbu výkazov v tvare RR/RR+1 resp. RRRR/RRRR+1",
         u"Školský rok",
         {{u"Label8", u"ŠKOLSKÝ ROK"}, {schoolYearLabel, u""}}},
    }};
    return table;
}

PictureLabel* makeLabel(const LabelTraits& traits) {
    auto* label = new PictureLabel(traits.caption.toString());
    label->setObjectName(traits.name.toString());
    label->setTextFormat(Qt::PlainText);
    label->setToolTip(traits.toolTip.toString());
    forms::enlarge(*label, traits.name == schoolYearLabel ? 1.2 : 1, true);
    return label;
}

} // namespace

ButtonPanel::ButtonPanel(QWidget* parent) : QFrame(parent) {
    loadPictures();
    setObjectName(QStringLiteral("Frame2"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(forms::windowMargin, forms::windowMargin, forms::windowMargin,
                               forms::windowMargin);
    layout->setSpacing(forms::gap);
    for (int number = 1; number <= ButtonColours::buttons; ++number)
        addButton(number);
    lblSkolskyRok_ = findChild<QLabel*>(schoolYearLabel.toString());
    resetColours();
}

void ButtonPanel::addButton(int number) {
    const ButtonTraits& own = traits().at(static_cast<size_t>(number - 1));
    std::vector<PictureLabel*> labels;
    for (const LabelTraits& label : own.labels)
        labels.push_back(makeLabel(label));
    auto* button = new PictureButton(QStringLiteral(":/icons/%1.svg").arg(own.icon), labels, this);
    button->setObjectName(QStringLiteral("Picture%1").arg(number));
    button->setToolTip(own.toolTip.toString());
    button->setAccessibleName(own.accessibleName.toString());
    button->setStatusTip(QStringLiteral("%1 (Ctrl+%2)").arg(own.toolTip).arg(number));
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    forms::fitToFont(*button,
                     [button] { button->setMaximumHeight(2 * button->sizeHint().height()); });
    layout()->addWidget(button);
    buttons_.at(static_cast<size_t>(number - 1)) = button;

    connect(button, &PictureButton::pointerMoved, this,
            [this, number] { change(&ButtonColours::pointerMoved, number); });
    connect(button, &PictureButton::pictureClicked, this,
            [this, number] { change(&ButtonColours::pictureClicked, number); });
    connect(button, &PictureButton::clicked, this, [this, number] { Q_EMIT chosen(number); });
}

void ButtonPanel::resetColours() {
    QPalette palette;
    palette.setColor(QPalette::Window, forms::buttonColour);
    setPalette(palette);
    colours_ = ButtonColours();
    showColours();
}

// A reader of the screen tells the year with the button that sets it.
void ButtonPanel::setSchoolYear(const QString& year) {
    lblSkolskyRok_->setText(year);
    button(6)->setAccessibleDescription(year);
}

void ButtonPanel::showColours() {
    for (int number = 1; number <= ButtonColours::buttons; ++number)
        button(number)->setColour(colours_.shown(number));
}

} // namespace mainwindow
