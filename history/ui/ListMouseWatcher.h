// Watches the mouse over a history list and shows the whole entry under it as a tooltip.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace curvemill {

class EntryListView;

class ListMouseWatcher : public QObject {
    Q_OBJECT
  public:
    // `guard` runs the watcher's work in the failure guard of its own procedure name.
    ListMouseWatcher(EntryListView& view, std::function<QString(int row)> describeRow,
                     std::function<void(const std::function<void()>&)> guard);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    EntryListView& view_;
    QWidget* area_;
    std::function<QString(int row)> describeRow_;
    std::function<void(const std::function<void()>&)> guard_;
};

}  // namespace curvemill
