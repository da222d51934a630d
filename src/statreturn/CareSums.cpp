#include "statreturn/CareSums.h"

#include "forms/Metrics.h"

#include <QGridLayout>
#include <QLabel>

namespace statreturn {

namespace {

constexpr QColor differs(176, 0, 32);

QString number(double value) {
    return QString::number(value, 'f', 0);
}

} // namespace

CareSums::CareSums(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {
    setObjectName(QStringLiteral("careSums"));
    grid_->setContentsMargins(forms::gap, 0, 0, 0);
    columnTitle_ = addTitle();
    for (const ColumnCheck& check : columnChecks())
        columnLines_.push_back(
            addLine(careRowCode(check.statedRow),
                    QStringLiteral("%1 až %2")
                        .arg(careRowCode(check.firstSummed), careRowCode(check.lastSummed))));
    rowTitle_ = addTitle();
    rowLine_ = addLine({}, {});
    grid_->setRowStretch(grid_->rowCount(), 1);
}

QLabel* CareSums::addTitle() {
    auto* title = new QLabel(this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    const int row = grid_->rowCount();
    forms::fitToFont(*title, [this, title, row] {
        grid_->setRowMinimumHeight(row, 2 * title->sizeHint().height());
    });
    grid_->addWidget(title, row, 0, 1, 4, Qt::AlignBottom);
    return title;
}

CareSums::Line CareSums::addLine(const QString& name, const QString& of) {
    const int row = grid_->rowCount();
    const Line line{new QLabel(name, this), new QLabel(this), new QLabel(of, this),
                    new QLabel(this)};
    for (QLabel* value : {line.stated, line.summed}) {
        value->setAlignment(Qt::AlignRight);
        forms::fitToFont(*value,
                         [value] { value->setMinimumWidth(forms::lettersWide(*value, 6)); });
    }
    grid_->addWidget(line.name, row, 0);
    grid_->addWidget(line.stated, row, 1);
    grid_->addWidget(line.summands, row + 1, 0);
    grid_->addWidget(line.summed, row + 1, 1);
    return line;
}

void CareSums::show(const CareCells& cells, int row, int column) {
    const auto put = [](const Line& line, const CareSum& sum) {
        line.stated->setText(number(sum.stated));
        line.summed->setText(sum.agrees() ? QStringLiteral("= ") + number(sum.summed)
                                          : QStringLiteral("≠ ") + number(sum.summed));
        QPalette palette;
        if (!sum.agrees())
            palette.setColor(QPalette::WindowText, differs);
        line.summed->setPalette(palette);
    };
    columnTitle_->setText(QStringLiteral("Súčty v stĺpci ") + careColumnName(column));
    for (std::size_t i = 0; i < columnLines_.size(); ++i)
        put(columnLines_[i], columnChecks()[i].sumOf(cells, column));
    const BlockCheck& block = blockOf(column);
    rowTitle_->setText(QStringLiteral("Súčty v riadku ") + careRowCode(row));
    rowLine_.name->setText(QStringLiteral("stĺpec ") + careColumnName(block.total));
    rowLine_.summands->setText(
        QStringLiteral("stĺpce %1 až %2")
            .arg(careColumnName(block.total + 1), careColumnName(block.lastColumn)));
    put(rowLine_, block.sumOf(cells, row));
}

} // namespace statreturn
