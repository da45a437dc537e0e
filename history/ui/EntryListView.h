// What a history window needs from its list of entries, whichever way the list is drawn.
#pragma once

#include <QColor>
#include <QPoint>
#include <QWidget>
#include <cstddef>
#include <vector>

#include "history/HistoryEntry.h"

namespace curvemill {

// Colours shared by both lists for entries marked with "Highlight Selected Item".
inline const QColor kMarkedBackground{255, 232, 140};

class EntryListView : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;

    // One row per entry, top to bottom; `kind` decides the columns where the view has any.
    // Clears the selection and any Find hit.
    virtual void setEntries(const std::vector<HistoryEntry>& rows, EntryKind kind) = 0;
    // -1 when nothing is selected.
    virtual int currentRow() const = 0;
    // Selects `row` and scrolls it into view; -1 clears the selection.
    virtual void setCurrentRow(int row) = 0;
    // Selects `row` and shows a Find hit in its formula.
    virtual void showHit(int row, std::size_t position, std::size_t length) = 0;
    virtual int rowCount() const = 0;
    // The row under a point of the widget that receives the mouse, or -1.
    virtual int rowAt(const QPoint& position) const = 0;
    // The widget that receives the mouse, for the list's mouse watcher.
    virtual QWidget* mouseArea() const = 0;

  Q_SIGNALS:
    void currentRowChanged(int row);
    void rowActivated(int row);
    void contextMenuRequested(int row, const QPoint& globalPosition);
};

}  // namespace curvemill
