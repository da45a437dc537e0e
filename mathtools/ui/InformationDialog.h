// The "Information" dialog: questions about the graph on screen at a typed value, one page per
// kind of graph (the function's page is built in; an equation's page is added beside it).
#pragma once

#include <QDialog>

#include "failure/ProcedureNames.h"

class QPushButton;
class QStackedWidget;

namespace curvemill {

class Formula;
class FunctionValuePage;
class InformationPage;
class Worker;
struct TwoDGraph;

class InformationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    InformationDialog(Formula& formula, const TwoDGraph& graph, Worker& worker,
                      QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcInformationDialog; }

    // Adds the page of another kind of graph; the dialog owns it. Returns its index for
    // showPage().
    int addPage(InformationPage* page);
    // The page for the graph on screen; the function's page is index kFunctionPage.
    void showPage(int index);
    static constexpr int kFunctionPage = 0;
    FunctionValuePage* functionPage() const { return functionPage_; }
    InformationPage* currentPage() const;

  public Q_SLOTS:
    // Calculate: the current page answers.
    void accept() override;
    // Escape and Close: not while a page's worker run goes on.
    void reject() override;

  private:
    void setWaiting(bool waiting);

    Worker& worker_;
    QStackedWidget* pages_ = nullptr;
    FunctionValuePage* functionPage_ = nullptr;
    QPushButton* calculateButton_ = nullptr;
    QPushButton* closeButton_ = nullptr;
    bool waiting_ = false;
};

}  // namespace curvemill
