#include "history/ui/EntryReportList.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace curvemill {
namespace {

constexpr int kFormulaWidth = 420;
constexpr int kRangeWidth = 100;

QStringList headers(EntryKind kind) {
    if (kind == EntryKind::TwoD) {
        return {QStringLiteral("Formula"), QStringLiteral("From"), QStringLiteral("To")};
    }
    return {QStringLiteral("Formula"), QStringLiteral("X Beg"), QStringLiteral("X End"),
            QStringLiteral("Y Beg"), QStringLiteral("Y End")};
}

QStringList cells(const HistoryEntry& entry, EntryKind kind) {
    QStringList out{QString::fromStdString(entry.formula), QString::fromStdString(entry.xBegin),
                    QString::fromStdString(entry.xEnd)};
    if (kind != EntryKind::TwoD) {
        out << QString::fromStdString(entry.yBegin) << QString::fromStdString(entry.yEnd);
    }
    return out;
}

}  // namespace

EntryReportList::EntryReportList(QWidget* parent)
    : EntryListView(parent), tree_(new QTreeWidget(this)) {
    tree_->setRootIsDecorated(false);
    tree_->setUniformRowHeights(true);
    tree_->setSelectionMode(QAbstractItemView::SingleSelection);
    tree_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tree_->setAllColumnsShowFocus(true);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    QPalette colours = tree_->palette();
    colours.setColor(QPalette::Base, kReportBackground);
    colours.setColor(QPalette::AlternateBase, kReportBackground);
    colours.setColor(QPalette::Text, kReportText);
    tree_->setPalette(colours);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree_);
    setFocusProxy(tree_);

    connect(tree_, &QTreeWidget::itemSelectionChanged, this,
            [this] { Q_EMIT currentRowChanged(currentRow()); });
    connect(tree_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        Q_EMIT rowActivated(tree_->indexOfTopLevelItem(item));
    });
    connect(tree_, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        const int row = rowAt(position);
        if (row >= 0) {
            setCurrentRow(row);
        }
        Q_EMIT contextMenuRequested(row, tree_->viewport()->mapToGlobal(position));
    });
}

void EntryReportList::setEntries(const std::vector<HistoryEntry>& rows, EntryKind kind) {
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    const QStringList titles = headers(kind);
    tree_->setColumnCount(static_cast<int>(titles.size()));
    tree_->setHeaderLabels(titles);
    tree_->header()->setStretchLastSection(false);
    tree_->setColumnWidth(0, kFormulaWidth);
    for (int column = 1; column < titles.size(); ++column) {
        tree_->setColumnWidth(column, kRangeWidth);
    }
    for (const HistoryEntry& entry : rows) {
        auto* item = new QTreeWidgetItem(cells(entry, kind));
        if (entry.marked) {
            QFont bold = tree_->font();
            bold.setBold(true);
            for (int column = 0; column < titles.size(); ++column) {
                item->setFont(column, bold);
                item->setBackground(column, kMarkedBackground);
            }
        }
        tree_->addTopLevelItem(item);
    }
    tree_->setCurrentItem(nullptr);
    tree_->clearSelection();
}

int EntryReportList::currentRow() const {
    const QList<QTreeWidgetItem*> selected = tree_->selectedItems();
    return selected.isEmpty() ? -1 : tree_->indexOfTopLevelItem(selected.front());
}

void EntryReportList::setCurrentRow(int row) {
    QTreeWidgetItem* item = row >= 0 ? tree_->topLevelItem(row) : nullptr;
    if (item == nullptr) {
        tree_->setCurrentItem(nullptr);
        tree_->clearSelection();
        return;
    }
    tree_->setCurrentItem(item);
    item->setSelected(true);
    tree_->scrollToItem(item);
}

void EntryReportList::showHit(int row, std::size_t, std::size_t) {
    // The whole row is selected; the columns leave no room to mark the hit inside the formula.
    setCurrentRow(row);
}

int EntryReportList::rowCount() const {
    return tree_->topLevelItemCount();
}

int EntryReportList::rowAt(const QPoint& position) const {
    QTreeWidgetItem* item = tree_->itemAt(position);
    return item ? tree_->indexOfTopLevelItem(item) : -1;
}

QWidget* EntryReportList::mouseArea() const {
    return tree_->viewport();
}

}  // namespace curvemill
