#include "shell/ui/TitlePage.h"

#include <QPainter>
#include <QToolButton>

#include "shell/ui/TitlePictures.h"

namespace curvemill {

namespace {

constexpr QSize kProductSize(250, 163);
constexpr QSize kKindSize(175, 115);
// The kind buttons carry their name under the picture.
constexpr int kCaptionHeight = 22;
constexpr int kCornerGap = 16;

}  // namespace

TitlePage::TitlePage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("titlePage"));
    // Room for the six pictures without overlapping: two columns of three beside the product.
    setMinimumSize(640, 420);
    const qreal ratio = devicePixelRatioF();
    const QSize picture(kKindSize.width() - 8, kKindSize.height() - kCaptionHeight - 8);
    product_ = makeButton(kTitleProductButton, QString(),
                          productPicture(kProductSize - QSize(8, 8), ratio), kProductSize);
    product_->setToolTip(QStringLiteral("Click Here To See Our Webpage"));
    twoD_ = makeButton(kTitleTwoDGraphButton, QStringLiteral("TWO D GRAPH"),
                       twoDGraphPicture(picture, ratio), kKindSize);
    equation_ = makeButton(kTitleEquationButton, QStringLiteral("EQUATION"),
                           equationPicture(picture, ratio), kKindSize);
    threeD_ = makeButton(kTitleThreeDGraphButton, QStringLiteral("THREE D GRAPH"),
                         threeDGraphPicture(picture, ratio), kKindSize);
    parametric_ = makeButton(kTitleParametricCurveButton, QStringLiteral("PARAMETRIC CURVE"),
                             parametricCurvePicture(picture, ratio), kKindSize);
    polar_ = makeButton(kTitlePolarCurveButton, QStringLiteral("POLAR CURVE"),
                        polarCurvePicture(picture, ratio), kKindSize);
    for (QToolButton* kind : {twoD_, equation_, threeD_, parametric_, polar_}) {
        kind->setToolTip(QStringLiteral("Click Here To Begin"));
    }
    makeHiddenButtons();
}

void TitlePage::makeHiddenButtons() {
    const auto add = [this](int id, QSize size) {
        auto* button = new QToolButton(this);
        button->setObjectName(QString::number(id));
        button->setFixedSize(size);
        button->hide();
        connect(button, &QToolButton::clicked, this, [this, id] { Q_EMIT commandTriggered(id); });
        buttons_.insert(id, button);
        return button;
    };
    for (int id : kTitleSmallButtons) {
        add(id, QSize(111, 40));
    }
    QToolButton* back = add(kTitleMoveBack, QSize(40, 40));
    back->setArrowType(Qt::LeftArrow);
    back->setToolTip(QStringLiteral("Move Back"));
    QToolButton* forward = add(kTitleMoveForward, QSize(40, 40));
    forward->setArrowType(Qt::RightArrow);
    forward->setToolTip(QStringLiteral("Move Forward"));
}

QToolButton* TitlePage::makeButton(int id, const QString& text, const QPixmap& picture,
                                   QSize size) {
    auto* button = new QToolButton(this);
    button->setObjectName(QString::number(id));
    button->setIcon(QIcon(picture));
    button->setIconSize(picture.deviceIndependentSize().toSize());
    button->setText(text);
    button->setToolButtonStyle(text.isEmpty() ? Qt::ToolButtonIconOnly
                                              : Qt::ToolButtonTextUnderIcon);
    button->setFixedSize(size);
    button->setAutoRaise(false);
    button->setCursor(Qt::PointingHandCursor);
    QFont font = button->font();
    font.setBold(true);
    button->setFont(font);
    // A sunken edge, as the picture buttons are framed into the page.
    button->setStyleSheet(QStringLiteral(
        "QToolButton { border: 2px inset #8a94a8; background: #f4f6fb; color: #1c2c5a; }"
        "QToolButton:hover { background: #e2e9f8; }"
        "QToolButton:pressed { background: #cdd8ef; }"
        "QToolButton:disabled { color: #8a8f9a; }"));
    connect(button, &QToolButton::clicked, this, [this, id] { Q_EMIT commandTriggered(id); });
    buttons_.insert(id, button);
    return button;
}

void TitlePage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int w = width();
    const int h = height();
    product_->move((w - product_->width()) / 2, (h - product_->height()) / 2);
    twoD_->move(w - twoD_->width() - kCornerGap, h - twoD_->height() - kCornerGap);
    equation_->move(kCornerGap, h - equation_->height() - kCornerGap);
    threeD_->move(w - threeD_->width() - kCornerGap, kCornerGap);
    // The curves in the middle of the two sides, clear of the corners above and below.
    parametric_->move(kCornerGap, (h - parametric_->height()) / 2);
    polar_->move(w - polar_->width() - kCornerGap, (h - polar_->height()) / 2);
}

void TitlePage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient background(0, 0, 0, height());
    background.setColorAt(0, QColor(250, 251, 255));
    background.setColorAt(1, QColor(222, 230, 245));
    painter.fillRect(rect(), background);
    if (!painted_) {
        painted_ = true;
        Q_EMIT firstPainted();
    }
}

}  // namespace curvemill
