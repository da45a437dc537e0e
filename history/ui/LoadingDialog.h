// The modal "Loading" dialog: painted first, then the entries file is read from its timer.
#pragma once

#include <QDialog>
#include <functional>

#include "failure/ProcedureNames.h"

namespace curvemill {

class LoadingDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    // The delay lets the dialog appear before a slow disk or a large file holds the program up.
    static constexpr int kDelayMs = 100;

    // exec() returns what `load` returned.
    explicit LoadingDialog(std::function<int()> load, QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcLoadingDialog; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    std::function<int()> load_;
    bool started_ = false;
};

}  // namespace curvemill
