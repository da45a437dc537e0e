#include "mathtools/ui/ExtremeValuesGroup.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "graph2d/Curve.h"
#include "mathtools/ui/MathControlIds.h"

namespace curvemill {

ExtremeValuesGroup::ExtremeValuesGroup(Curve& curve, QWidget* parent)
    : QGroupBox(QStringLiteral("Extreme Values"), parent), curve_(curve) {
    setObjectName(QStringLiteral("extremeValues"));
    findButton_ = new QPushButton(QStringLiteral("&Find Extreme Values"), this);
    findButton_->setObjectName(QString::number(math_ids::kFindExtremes));
    findButton_->setAutoDefault(false);

    list_ = new QTreeWidget(this);
    list_->setObjectName(QString::number(math_ids::kExtremeList));
    list_->setColumnCount(2);
    list_->setHeaderLabels({QStringLiteral("x"), QStringLiteral("y")});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    // Room for "pi*-12.345678901234567" in each column without scrolling sideways.
    const int column =
        list_->fontMetrics().horizontalAdvance(QStringLiteral("pi*-000.000000000000000"));
    list_->header()->setDefaultSectionSize(column);
    list_->setMinimumWidth(2 * column + 24);

    xInPi_ = new QCheckBox(QStringLiteral("&X In PI Units"), this);
    xInPi_->setObjectName(QString::number(math_ids::kXInPi));
    yInPi_ = new QCheckBox(QStringLiteral("&Y In PI Units"), this);
    yInPi_->setObjectName(QString::number(math_ids::kYInPi));
    maxima_ = new QRadioButton(QStringLiteral("Display M&ax. Values"), this);
    maxima_->setObjectName(QString::number(math_ids::kShowMaxima));
    minima_ = new QRadioButton(QStringLiteral("Display M&in. Values"), this);
    minima_->setObjectName(QString::number(math_ids::kShowMinima));
    both_ = new QRadioButton(QStringLiteral("Display B&oth"), this);
    both_->setObjectName(QString::number(math_ids::kShowBoth));
    both_->setChecked(true);

    auto* layout = new QGridLayout(this);
    layout->addWidget(list_, 0, 0, 6, 1);
    layout->addWidget(findButton_, 0, 1);
    layout->addWidget(maxima_, 1, 1);
    layout->addWidget(minima_, 2, 1);
    layout->addWidget(both_, 3, 1);
    layout->addWidget(xInPi_, 4, 1);
    layout->addWidget(yInPi_, 5, 1);
    layout->setColumnStretch(0, 1);

    connect(findButton_, &QPushButton::clicked, this, &ExtremeValuesGroup::find);
    connect(maxima_, &QRadioButton::clicked, this, [this] { setFilter(ExtremeFilter::kMaxima); });
    connect(minima_, &QRadioButton::clicked, this, [this] { setFilter(ExtremeFilter::kMinima); });
    connect(both_, &QRadioButton::clicked, this, [this] { setFilter(ExtremeFilter::kBoth); });
    for (QCheckBox* box : {xInPi_, yInPi_}) {
        connect(box, &QCheckBox::toggled, this, [this] {
            if (found_) {
                refill();
            }
        });
    }
}

void ExtremeValuesGroup::find() {
    found_ = true;
    refill();
}

void ExtremeValuesGroup::forget() {
    found_ = false;
    list_->clear();
}

int ExtremeValuesGroup::rowCount() const {
    return list_->topLevelItemCount();
}

void ExtremeValuesGroup::setFilter(ExtremeFilter filter) {
    filter_ = filter;
    if (found_) {
        refill();
    }
}

void ExtremeValuesGroup::refill() {
    list_->clear();
    const std::vector<ExtremeRow> rows =
        fillExtremeList(curve_, xInPi_->isChecked(), yInPi_->isChecked(), filter_);
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const ExtremeRow& row : rows) {
        items.append(new QTreeWidgetItem(
            {QString::fromStdString(row.xText), QString::fromStdString(row.yText)}));
    }
    list_->addTopLevelItems(items);
}

}  // namespace curvemill
