// The text list of the "List of Functions" window: one "(formula)  From:..  To:.." line per entry.
#pragma once

#include <optional>
#include <vector>

#include "history/ListLine.h"
#include "history/ui/EntryListView.h"

class QScrollArea;

namespace curvemill {

class TextListCanvas;

class FunctionTextList : public EntryListView {
    Q_OBJECT
  public:
    explicit FunctionTextList(QWidget* parent = nullptr);

    void setEntries(const std::vector<HistoryEntry>& rows, EntryKind kind) override;
    int currentRow() const override { return current_; }
    void setCurrentRow(int row) override;
    void showHit(int row, std::size_t position, std::size_t length) override;
    int rowCount() const override { return static_cast<int>(rows_.size()); }
    int rowAt(const QPoint& position) const override;
    QWidget* mouseArea() const override;

    // What the canvas paints; exposed so tests can check the pieces of a hit line.
    const std::vector<HistoryEntry>& rows() const { return rows_; }
    const std::optional<ListLinePieces>& hitPieces() const { return hitPieces_; }
    int lineHeight() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    friend class TextListCanvas;
    void selectFromMouse(int row);
    void scrollToRow(int row);

    QScrollArea* scroll_;
    TextListCanvas* canvas_;
    std::vector<HistoryEntry> rows_;
    int current_ = -1;
    // The hit is drawn only on the current row, and only until the selection moves.
    std::optional<ListLinePieces> hitPieces_;
};

}  // namespace curvemill
