// The title page: the product picture in the middle and one picture button per kind of graph.
#pragma once

#include <QMap>
#include <QWidget>

class QToolButton;

namespace curvemill {

// Command identifiers of the title page's buttons.
inline constexpr int kTitleProductButton = 117;
inline constexpr int kTitleTwoDGraphButton = 112;
inline constexpr int kTitleEquationButton = 111;
inline constexpr int kTitleThreeDGraphButton = 113;
// The curves drawn by t, after the kinds above: numbered as their File menu commands.
inline constexpr int kTitleParametricCurveButton = 40301;
inline constexpr int kTitlePolarCurveButton = 40302;
// Small buttons of 111 by 40 and the two arrows of 40 by 40; created hidden, nothing shows them
// yet.
inline constexpr int kTitleSmallButtons[] = {114, 115, 116, 119};
inline constexpr int kTitleMoveBack = 182;
inline constexpr int kTitleMoveForward = 183;

class TitlePage : public QWidget {
    Q_OBJECT
  public:
    explicit TitlePage(QWidget* parent = nullptr);

    // Any of the page's buttons, shown or hidden; null for an unknown id.
    QToolButton* button(int id) const { return buttons_.value(id); }

  Q_SIGNALS:
    void commandTriggered(int id);
    // Emitted once, after the page was painted for the first time.
    void firstPainted();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QToolButton* makeButton(int id, const QString& text, const QPixmap& picture, QSize size);
    void makeHiddenButtons();

    QToolButton* product_ = nullptr;
    QToolButton* twoD_ = nullptr;
    QToolButton* equation_ = nullptr;
    QToolButton* threeD_ = nullptr;
    QToolButton* parametric_ = nullptr;
    QToolButton* polar_ = nullptr;
    QMap<int, QToolButton*> buttons_;
    bool painted_ = false;
};

}  // namespace curvemill
