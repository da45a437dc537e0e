// One page of the Information dialog: the questions it answers for one kind of graph.
#pragma once

#include <QWidget>

namespace curvemill {

class InformationPage : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;
    // The dialog's Calculate button: reads the page's boxes and shows the answer; a refused
    // entry is told in a message box. False on refusal.
    virtual bool calculate() = 0;
    // Whether calculate() answers at once on the user-interface thread or starts a worker run
    // that ends with finished(): the dialog disables Calculate and Close meanwhile.
    virtual bool usesWorker() const { return false; }

  Q_SIGNALS:
    // A worker run started by calculate() has ended.
    void finished(bool completed);
};

}  // namespace curvemill
