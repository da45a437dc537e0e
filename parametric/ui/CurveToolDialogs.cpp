#include "parametric/ui/CurveToolDialogs.h"

#include <algorithm>
#include <cmath>

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/ui/EntryErrorBox.h"

namespace curvemill {

namespace {

// Relative to the curve's size: chords this close to the arc make the length and the area good
// to about ten digits.
constexpr double kRelativeTolerance = 1e-11;

QString idName(int id) {
    return QString::number(id);
}

QLineEdit* numberEdit(QWidget* parent, int id, const QString& text) {
    auto* edit = new QLineEdit(text, parent);
    edit->setObjectName(idName(id));
    edit->setMaxLength(70);
    return edit;
}

QPlainTextEdit* resultBox(QWidget* parent) {
    auto* box = new QPlainTextEdit(parent);
    box->setObjectName(idName(curve_tool_ids::kResult));
    box->setReadOnly(true);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 40);
    box->setFixedHeight(box->fontMetrics().lineSpacing() * 6);
    return box;
}

QPushButton* button(QWidget* parent, int id, const QString& text) {
    auto* made = new QPushButton(text, parent);
    made->setObjectName(idName(id));
    made->setAutoDefault(false);
    return made;
}

// A box's own refusal has a Help button explaining it; a range refusal does not.
void refuse(QWidget* dialog, const std::string& message, QLineEdit* box) {
    showRefusal(dialog, QString::fromStdString(message), box, message.rfind("ERROR IN ", 0) == 0);
}

}  // namespace

CurveInformationDialog::CurveInformationDialog(Formula& formula, const CurveGraph& graph,
                                               QWidget* parent)
    : QDialog(parent), formula_(formula), graph_(graph) {
    setWindowTitle(QStringLiteral("Information"));
    tEdit_ = numberEdit(this, curve_tool_ids::kT, QString());
    result_ = resultBox(this);
    auto* ok = button(this, curve_tool_ids::kOk, QStringLiteral("C&alculate"));
    ok->setDefault(true);
    auto* close = button(this, curve_tool_ids::kClose, QStringLiteral("&Close"));

    auto* row = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("&T ="), this);
    label->setBuddy(tEdit_);
    row->addWidget(label);
    row->addWidget(tEdit_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(result_);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &CurveInformationDialog::accept);
    connect(close, &QPushButton::clicked, this, &CurveInformationDialog::reject);
    connect(tEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { tBox_.setText(text.toStdString()); });
}

void CurveInformationDialog::accept() {
    const CurveInterval at = readCurveT(formula_, graph_, tBox_);
    if (at.refusal) {
        refuse(this, *at.refusal, tEdit_);
        return;
    }
    const CurveLocal local = curveLocalAt(curveOf(formula_, graph_.form), at.begin);
    result_->setPlainText(QString::fromStdString(localText(local)).trimmed());
}

CurveMathDialog::CurveMathDialog(Formula& formula, const CurveGraph& graph, Worker& worker,
                                 QWidget* parent)
    : QDialog(parent),
      formula_(formula),
      graph_(graph),
      job_(
          worker, this, [this](int percent) { progress_->setValue(percent); },
          [this](bool completed) { finish(completed); }) {
    setWindowTitle(QStringLiteral("Math"));
    beginEdit_ = numberEdit(this, curve_tool_ids::kTBegin, QString());
    endEdit_ = numberEdit(this, curve_tool_ids::kTEnd, QString());
    result_ = resultBox(this);
    progress_ = new QProgressBar(this);
    progress_->setObjectName(idName(curve_tool_ids::kProgress));
    progress_->setRange(0, 100);
    QSizePolicy keepRoom = progress_->sizePolicy();
    keepRoom.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(keepRoom);
    okButton_ = button(this, curve_tool_ids::kOk, QStringLiteral("C&alculate"));
    okButton_->setDefault(true);
    stopButton_ = button(this, curve_tool_ids::kStop, QStringLiteral("&Stop"));
    closeButton_ = button(this, curve_tool_ids::kClose, QStringLiteral("&Close"));

    auto* boxes = new QGridLayout;
    const auto add = [this, boxes](int column, const QString& text, QLineEdit* edit) {
        auto* label = new QLabel(text, this);
        label->setBuddy(edit);
        boxes->addWidget(label, 0, column);
        boxes->addWidget(edit, 0, column + 1);
    };
    add(0, QStringLiteral("&T Begin"), beginEdit_);
    add(2, QStringLiteral("T &End"), endEdit_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(okButton_);
    buttons->addWidget(stopButton_);
    buttons->addWidget(closeButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(boxes);
    layout->addWidget(result_);
    layout->addWidget(progress_);
    layout->addLayout(buttons);
    connect(okButton_, &QPushButton::clicked, this, &CurveMathDialog::accept);
    connect(stopButton_, &QPushButton::clicked, this, [this] { job_.stop(); });
    connect(closeButton_, &QPushButton::clicked, this, &CurveMathDialog::reject);
    connect(beginEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { beginBox_.setText(text.toStdString()); });
    connect(endEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { endBox_.setText(text.toStdString()); });
    // The whole curve to begin with: its length, and its area when it closes.
    beginEdit_->setText(QString::fromStdString(boxText(graph.tBegin)));
    endEdit_->setText(QString::fromStdString(boxText(graph.tEnd)));
    setRunning(false);
}

void CurveMathDialog::setRunning(bool running) {
    for (QWidget* input : {static_cast<QWidget*>(beginEdit_), static_cast<QWidget*>(endEdit_),
                           static_cast<QWidget*>(okButton_), static_cast<QWidget*>(closeButton_)}) {
        input->setEnabled(!running);
    }
    stopButton_->setEnabled(running);
    progress_->setVisible(running);
    progress_->setValue(0);
}

void CurveMathDialog::accept() {
    if (isRunning() || job_.refuseWhileBusy(kBoxCaption)) {
        return;
    }
    const CurveInterval interval = readCurveInterval(formula_, graph_, beginBox_, endBox_);
    if (interval.refusal) {
        const bool endBox = *interval.refusal == curve_messages::kTEndOutside ||
                            interval.refusal->find(kTEndBoxName) != std::string::npos;
        refuse(this, *interval.refusal, endBox ? endEdit_ : beginEdit_);
        return;
    }
    begin_ = interval.begin;
    end_ = interval.end;
    const CurveBox box = viewBox(graph_.points);
    const double size = std::max({box.xMax - box.xMin, box.yMax - box.yMin, 1e-300});
    setRunning(true);
    const bool started = job_.start(
        kProcCurveWindow, formula_.keepComputing, [this, size](const JobContext& context) {
            control_.progress = context.progress;
            const CurveAt curve = curveOf(formula_, graph_.form);
            measures_ = measureCurve(curve, begin_, end_, kRelativeTolerance * size, control_);
            sweptDefined_ =
                graph_.form == CurveForm::Polar &&
                sweptArea(curve, begin_, end_, kRelativeTolerance * size * size, swept_);
            return !measures_.stopped && formula_.keepComputing.load();
        });
    if (!started) {
        setRunning(false);
    }
}

void CurveMathDialog::finish(bool completed) {
    setRunning(false);
    if (!completed) {
        return;
    }
    if (!measures_.defined) {
        QMessageBox::critical(this, QString::fromLatin1(kBoxCaption),
                              QString::fromLatin1(curve_messages::kCannotMeasure));
        return;
    }
    const std::optional<double> swept =
        sweptDefined_ ? std::optional<double>(swept_) : std::nullopt;
    result_->setPlainText(QString::fromStdString(measuresText(measures_, swept)).trimmed());
}

void CurveMathDialog::reject() {
    if (isRunning()) {
        job_.stop();
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
