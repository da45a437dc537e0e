#include "equation/ui/EquationSolutionsDialog.h"

#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

namespace curvemill {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kValueRole = Qt::UserRole;

}  // namespace

QString solutionText(double value, bool piUnits) {
    return piUnits ? QString::asprintf("pi*%.10g", value / kPi) : QString::asprintf("%.10g", value);
}

int SolutionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : curve_.count();
}

int SolutionTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 2;
}

QVariant SolutionTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= curve_.count()) {
        return {};
    }
    const SolutionPoint& point = curve_.solutions[static_cast<std::size_t>(index.row())];
    const double value = index.column() == 0 ? point.x : point.y;
    switch (role) {
        case Qt::DisplayRole:
            return solutionText(value, index.column() == 0 ? xInPi_ : yInPi_);
        case kValueRole:
            return value;
        case Qt::TextAlignmentRole:
            return int(Qt::AlignRight | Qt::AlignVCenter);
        default:
            return {};
    }
}

QVariant SolutionTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return section == 0 ? QStringLiteral("x") : QStringLiteral("y");
}

void SolutionTableModel::setPiUnits(bool x, bool y) {
    xInPi_ = x;
    yInPi_ = y;
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 1), {Qt::DisplayRole});
    }
}

void SolutionTableModel::reload() {
    beginResetModel();
    endResetModel();
}

EquationSolutionsDialog::EquationSolutionsDialog(const EquationCurve& curve, QWidget* parent)
    : QDialog(parent), curve_(curve) {
    setWindowTitle(QStringLiteral("Equation Solutions"));
    model_ = new SolutionTableModel(curve_, this);
    sorted_ = new QSortFilterProxyModel(this);
    sorted_->setSourceModel(model_);
    sorted_->setSortRole(kValueRole);
    table_ = new QTableView(this);
    table_->setObjectName(QString::number(solutions_ids::kList));
    table_->setModel(sorted_);
    table_->setSortingEnabled(true);
    table_->sortByColumn(0, Qt::AscendingOrder);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->setMinimumSize(table_->fontMetrics().horizontalAdvance(u'0') * 48, 320);

    count_ = new QLabel(this);
    count_->setObjectName(QString::number(solutions_ids::kCount));
    xInPi_ = new QCheckBox(QStringLiteral("&X In PI Units"), this);
    xInPi_->setObjectName(QString::number(solutions_ids::kXInPi));
    yInPi_ = new QCheckBox(QStringLiteral("&Y In PI Units"), this);
    yInPi_->setObjectName(QString::number(solutions_ids::kYInPi));
    squares_ = new QCheckBox(QStringLiteral("Draw S&quares Around Points"), this);
    squares_->setObjectName(QString::number(solutions_ids::kSquares));
    squares_->setToolTip(QStringLiteral("Small squares make single points easy to find"));
    auto* copy = new QPushButton(QStringLiteral("&Copy"), this);
    copy->setObjectName(QString::number(solutions_ids::kCopy));
    copy->setToolTip(QStringLiteral("Copies the selected rows as text (Ctrl+C)"));
    auto* information = new QPushButton(QStringLiteral("&Find x or y..."), this);
    information->setObjectName(QString::number(solutions_ids::kInformation));
    information->setToolTip(
        QStringLiteral("Every x of the graph for a typed y, or every y for a "
                       "typed x"));
    auto* close = new QPushButton(QStringLiteral("C&lose"), this);
    close->setObjectName(QString::number(solutions_ids::kClose));
    close->setDefault(true);
    auto* help = new QPushButton(QStringLiteral("&Help"), this);
    help->setObjectName(QString::number(solutions_ids::kHelp));
    help->setAutoDefault(false);
    connect(help, &QPushButton::clicked, this, [this] {
        QEvent request(QEvent::HelpRequest);
        QCoreApplication::sendEvent(this, &request);
    });

    auto* units = new QHBoxLayout;
    units->addWidget(count_, 1);
    units->addWidget(xInPi_);
    units->addWidget(yInPi_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addWidget(information);
    buttons->addStretch(1);
    buttons->addWidget(close);
    buttons->addWidget(help);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(units);
    layout->addWidget(table_, 1);
    layout->addWidget(squares_);
    layout->addLayout(buttons);

    const auto followUnits = [this] {
        model_->setPiUnits(xInPi_->isChecked(), yInPi_->isChecked());
    };
    connect(xInPi_, &QCheckBox::toggled, this, followUnits);
    connect(yInPi_, &QCheckBox::toggled, this, followUnits);
    connect(squares_, &QCheckBox::toggled, this, &EquationSolutionsDialog::squaresToggled);
    connect(copy, &QPushButton::clicked, this, &EquationSolutionsDialog::copySelection);
    connect(information, &QPushButton::clicked, this,
            &EquationSolutionsDialog::informationRequested);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    auto* copyKey = new QShortcut(QKeySequence::Copy, table_);
    copyKey->setContext(Qt::WidgetShortcut);
    connect(copyKey, &QShortcut::activated, this, &EquationSolutionsDialog::copySelection);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (!current.isValid()) {
                    return;
                }
                const double x = sorted_->index(current.row(), 0).data(kValueRole).toDouble();
                const double y = sorted_->index(current.row(), 1).data(kValueRole).toDouble();
                Q_EMIT pointMarked(true, x, y);
            });
    refresh();
}

void EquationSolutionsDialog::refresh() {
    model_->reload();
    count_->setText(curve_.count() == 1 ? QStringLiteral("1 solution point")
                                        : QStringLiteral("%1 solution points").arg(curve_.count()));
}

void EquationSolutionsDialog::setSquares(bool on) {
    const QSignalBlocker block(squares_);
    squares_->setChecked(on);
}

QString EquationSolutionsDialog::selectedText() const {
    QModelIndexList rows = table_->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    QString text;
    for (const QModelIndex& row : rows) {
        text += sorted_->index(row.row(), 0).data().toString() + u'\t' +
                sorted_->index(row.row(), 1).data().toString() + u'\n';
    }
    return text;
}

void EquationSolutionsDialog::copySelection() const {
    const QString text = selectedText();
    if (!text.isEmpty()) {
        QApplication::clipboard()->setText(text);
    }
}

void EquationSolutionsDialog::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    Q_EMIT pointMarked(false, 0.0, 0.0);
}

}  // namespace curvemill
