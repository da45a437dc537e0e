#include "history/ui/ListMouseWatcher.h"

#include <QHelpEvent>
#include <QToolTip>

#include "history/ui/EntryListView.h"

namespace curvemill {

ListMouseWatcher::ListMouseWatcher(EntryListView& view, std::function<QString(int row)> describeRow,
                                   std::function<void(const std::function<void()>&)> guard)
    : QObject(&view),
      view_(view),
      area_(view.mouseArea()),
      describeRow_(std::move(describeRow)),
      guard_(std::move(guard)) {
    area_->installEventFilter(this);
}

bool ListMouseWatcher::eventFilter(QObject* watched, QEvent* event) {
    // Only the pointer is compared: events also arrive while the view is being destroyed.
    if (event->type() != QEvent::ToolTip || watched != area_) {
        return false;
    }
    guard_([&] {
        auto* help = static_cast<QHelpEvent*>(event);
        const int row = view_.rowAt(help->pos());
        if (row >= 0) {
            QToolTip::showText(help->globalPos(), describeRow_(row), area_);
        } else {
            QToolTip::hideText();
        }
    });
    return true;
}

}  // namespace curvemill
