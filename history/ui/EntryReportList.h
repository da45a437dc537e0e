// The report list of the "Previous Entries" window: formula and range columns per entry.
#pragma once

#include "history/ui/EntryListView.h"

class QTreeWidget;

namespace curvemill {

inline const QColor kReportBackground{238, 238, 255};
inline const QColor kReportText{0, 0, 68};

class EntryReportList : public EntryListView {
    Q_OBJECT
  public:
    explicit EntryReportList(QWidget* parent = nullptr);

    void setEntries(const std::vector<HistoryEntry>& rows, EntryKind kind) override;
    int currentRow() const override;
    void setCurrentRow(int row) override;
    void showHit(int row, std::size_t position, std::size_t length) override;
    int rowCount() const override;
    int rowAt(const QPoint& position) const override;
    QWidget* mouseArea() const override;

    QTreeWidget* tree() const { return tree_; }

  private:
    QTreeWidget* tree_;
};

}  // namespace curvemill
