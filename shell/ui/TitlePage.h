// The title page: the product picture in the middle and one picture button per kind of graph.
#pragma once

#include <QWidget>

class QToolButton;

namespace curvemill {

// Command identifiers of the title page's buttons.
inline constexpr int kTitleProductButton = 117;
inline constexpr int kTitleTwoDGraphButton = 112;
inline constexpr int kTitleEquationButton = 111;
inline constexpr int kTitleThreeDGraphButton = 113;

class TitlePage : public QWidget {
    Q_OBJECT
  public:
    explicit TitlePage(QWidget* parent = nullptr);

    QToolButton* button(int id) const;

  Q_SIGNALS:
    void commandTriggered(int id);
    // Emitted once, after the page was painted for the first time.
    void firstPainted();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QToolButton* makeButton(int id, const QString& text, const QPixmap& picture, QSize size);

    QToolButton* product_ = nullptr;
    QToolButton* twoD_ = nullptr;
    QToolButton* equation_ = nullptr;
    QToolButton* threeD_ = nullptr;
    bool painted_ = false;
};

}  // namespace curvemill
