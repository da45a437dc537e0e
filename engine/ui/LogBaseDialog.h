// The Log Base dialog: base 10 or another base for log(.
#pragma once

#include <QDialog>

#include "failure/ProcedureNames.h"

class QLineEdit;
class QRadioButton;

namespace curvemill {

class Formula;

// Control identifiers (each widget's objectName).
inline constexpr int kLogBaseTenRadio = 1045;
inline constexpr int kLogBaseOtherRadio = 1046;
inline constexpr int kLogBaseEdit = 1047;

class LogBaseDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    LogBaseDialog(Formula& formula, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcLogBaseDialog; }

  public Q_SLOTS:
    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    // Box enabled only while another base is chosen.
    void followChoice();

    Formula& formula_;
    QRadioButton* baseTen_;
    QRadioButton* otherBase_;
    QLineEdit* baseEdit_;
};

// What the input windows do before a formula holding "log(" is checked: the dialog, unless a
// LogBaseQuestionHold lives.
void askLogBase(Formula& formula, QWidget* parent);

// While one lives, askLogBase asks nothing: a graph document being opened brings its own base, and
// the question in the middle of drawing it would only interrupt.
class LogBaseQuestionHold {
  public:
    LogBaseQuestionHold();
    ~LogBaseQuestionHold();
    LogBaseQuestionHold(const LogBaseQuestionHold&) = delete;
    LogBaseQuestionHold& operator=(const LogBaseQuestionHold&) = delete;
};

}  // namespace curvemill
