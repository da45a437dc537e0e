#include "history/ui/FunctionTextList.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace curvemill {
namespace {

constexpr int kMargin = 4;

QFont listFont() {
    if (QFontDatabase::families().contains(QStringLiteral("Courier New"))) {
        return QFont(QStringLiteral("Courier New"), 10);
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

}  // namespace

// Paints every line; the list holds at most 200 entries, so only the exposed lines are drawn
// but no further caching is worth it.
class TextListCanvas : public QWidget {
  public:
    explicit TextListCanvas(FunctionTextList& list) : QWidget(nullptr), list_(list) {
        setFont(listFont());
        setAutoFillBackground(true);
        QPalette colours = palette();
        colours.setColor(QPalette::Window, Qt::white);
        setPalette(colours);
    }

    void updateSize() {
        int width = 0;
        for (const HistoryEntry& entry : list_.rows()) {
            width = std::max(
                width, fontMetrics().horizontalAdvance(QString::fromStdString(listLine(entry))));
        }
        resize(std::max(width + 2 * kMargin, list_.scroll_->viewport()->width()),
               std::max(list_.rowCount() * list_.lineHeight() + kMargin,
                        list_.scroll_->viewport()->height()));
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const int height = list_.lineHeight();
        const int first = std::max(0, event->rect().top() / height);
        const int last = std::min(list_.rowCount() - 1, event->rect().bottom() / height);
        for (int row = first; row <= last; ++row) {
            paintLine(painter, row, QRect(0, row * height, width(), height));
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        list_.selectFromMouse(list_.rowAt(event->position().toPoint()));
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        const int row = list_.rowAt(event->position().toPoint());
        if (row >= 0) {
            Q_EMIT list_.rowActivated(row);
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int row = list_.currentRow();
        switch (event->key()) {
            case Qt::Key_Up:
                list_.selectFromMouse(std::max(0, row - 1));
                break;
            case Qt::Key_Down:
                list_.selectFromMouse(std::min(list_.rowCount() - 1, row + 1));
                break;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                if (row >= 0) {
                    Q_EMIT list_.rowActivated(row);
                }
                break;
            default:
                QWidget::keyPressEvent(event);
        }
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        const int row = list_.rowAt(event->pos());
        list_.selectFromMouse(row);
        Q_EMIT list_.contextMenuRequested(row, event->globalPos());
    }

  private:
    void paintText(QPainter& painter, int& x, const QRect& line, const QString& text,
                   const QColor& ink, const QColor& paper) {
        const int advance = painter.fontMetrics().horizontalAdvance(text);
        const QRect box(x, line.top(), advance, line.height());
        painter.fillRect(box, paper);
        painter.setPen(ink);
        painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, text);
        x += advance;
    }

    void paintLine(QPainter& painter, int row, const QRect& line) {
        const HistoryEntry& entry = list_.rows()[static_cast<std::size_t>(row)];
        const bool selected = row == list_.currentRow();
        QFont font = this->font();
        font.setBold(entry.marked);
        painter.setFont(font);
        const QColor paper = entry.marked ? kMarkedBackground : QColor(Qt::white);
        painter.fillRect(line, paper);
        int x = kMargin;
        if (selected && list_.hitPieces()) {
            const ListLinePieces& pieces = *list_.hitPieces();
            paintText(painter, x, line, QString::fromStdString(pieces.before), Qt::black, paper);
            paintText(painter, x, line, QString::fromStdString(pieces.hit), Qt::white, Qt::black);
            paintText(painter, x, line, QString::fromStdString(pieces.after), Qt::black, paper);
        } else if (selected) {
            paintText(painter, x, line, QString::fromStdString(listLine(entry)), Qt::white,
                      Qt::black);
        } else {
            paintText(painter, x, line, QString::fromStdString(listLine(entry)), Qt::black, paper);
        }
    }

    FunctionTextList& list_;
};

FunctionTextList::FunctionTextList(QWidget* parent)
    : EntryListView(parent), scroll_(new QScrollArea(this)), canvas_(new TextListCanvas(*this)) {
    scroll_->setWidget(canvas_);
    scroll_->setWidgetResizable(false);
    scroll_->setBackgroundRole(QPalette::Base);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll_);
    setFocusProxy(canvas_);
    canvas_->setFocusPolicy(Qt::StrongFocus);
}

int FunctionTextList::lineHeight() const {
    return canvas_->fontMetrics().height() + 2;
}

QWidget* FunctionTextList::mouseArea() const {
    return canvas_;
}

int FunctionTextList::rowAt(const QPoint& position) const {
    if (position.y() < 0) {
        return -1;
    }
    const int row = position.y() / lineHeight();
    return row < rowCount() ? row : -1;
}

void FunctionTextList::resizeEvent(QResizeEvent* event) {
    EntryListView::resizeEvent(event);
    canvas_->updateSize();
}

void FunctionTextList::setEntries(const std::vector<HistoryEntry>& rows, EntryKind) {
    rows_ = rows;
    current_ = -1;
    hitPieces_.reset();
    canvas_->updateSize();
    canvas_->update();
}

void FunctionTextList::setCurrentRow(int row) {
    const int next = row >= 0 && row < rowCount() ? row : -1;
    hitPieces_.reset();
    const bool moved = next != current_;
    current_ = next;
    scrollToRow(current_);
    canvas_->update();
    if (moved) {
        Q_EMIT currentRowChanged(current_);
    }
}

void FunctionTextList::showHit(int row, std::size_t position, std::size_t length) {
    setCurrentRow(row);
    if (current_ >= 0) {
        hitPieces_ = splitAtHit(rows_[static_cast<std::size_t>(current_)], position, length);
        canvas_->update();
    }
}

void FunctionTextList::selectFromMouse(int row) {
    setCurrentRow(row);
}

void FunctionTextList::scrollToRow(int row) {
    if (row >= 0) {
        scroll_->ensureVisible(kMargin, row * lineHeight() + lineHeight() / 2, 0, lineHeight());
    }
}

}  // namespace curvemill
