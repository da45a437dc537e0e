// F1 and help buttons anywhere in the program: finds the topic of the control or window asking
// (the table in help/HelpTopics.cpp) and shows it.
//
// A window's help button asks by sending QEvent::HelpRequest to itself (or to the control it is
// about); no window needs to know the help window exists.
#pragma once

#include <QObject>

#include "help/HelpTopics.h"

class QWidget;

namespace curvemill {

class HelpViewer;

// The topic for `widget`: the nearest control with a row of its own in its window, else the row
// of the window's own objectName, else the window's row, else the same search in the window's
// owner; the home topic when nothing matches.
HelpLink helpLinkForWidget(const QWidget* widget);

// Sends the help request a help button makes: to `about`, the control or window concerned.
void requestHelp(QWidget* about);

class ContextHelp : public QObject {
    Q_OBJECT
  public:
    // Watches every event of the application while it lives.
    explicit ContextHelp(HelpViewer& viewer, QObject* parent = nullptr);
    ~ContextHelp() override;

    // Shows the topic of `widget` (the focus widget when null).
    void showFor(const QWidget* widget);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    HelpViewer& viewer_;
};

}  // namespace curvemill
