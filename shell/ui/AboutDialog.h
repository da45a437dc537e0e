// The "About CurveMill" box: program icon, name and version, the web page and the support address.
#pragma once

#include <QDialog>

#include "failure/ProcedureNames.h"

namespace curvemill {

class AboutDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    explicit AboutDialog(QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcAboutDialog; }
};

}  // namespace curvemill
