// The history list's "Find" dialog: a search string with the drop-down of recent strings.
#pragma once

#include <QDialog>

#include "failure/ProcedureNames.h"

class QComboBox;
class QRadioButton;

namespace curvemill {

class SearchRing;

class FindDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    // Results of exec(): Cancel, search from the head of the list, search from the selected entry.
    static constexpr int kCancelled = 0;
    static constexpr int kFromHead = 1;
    static constexpr int kFromSelection = 2;

    // `ring` fills the drop-down (newest first) and receives the string on OK.
    FindDialog(SearchRing& ring, bool hasSelection, QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcTextFindDialog; }
    QString text() const;
    QComboBox* combo() const { return combo_; }

    void accept() override;

  private:
    SearchRing& ring_;
    QComboBox* combo_;
    QRadioButton* fromSelection_;
};

}  // namespace curvemill
