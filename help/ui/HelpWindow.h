// The "Curve Mill Help" window: contents and index beside the topic, with Home, Back and Forward.
#pragma once

#include <QUrl>
#include <QWidget>

class QHelpEngine;
class QLineEdit;
class QTabWidget;

namespace curvemill {

class HelpBrowser;

class HelpWindow : public QWidget {
    Q_OBJECT
  public:
    // `engine` has the archive registered and outlives the window.
    HelpWindow(QHelpEngine& engine, QUrl home, QWidget* parent = nullptr);

    void showTopic(const QUrl& address);
    HelpBrowser* page() const { return page_; }
    QTabWidget* sidePanel() const { return side_; }
    QLineEdit* indexFilter() const { return indexFilter_; }

  private:
    QWidget* buildIndexTab();
    // Selects the shown topic's title in the contents (once they are read, if they are not yet).
    void markInContents();

    QHelpEngine& engine_;
    QUrl home_;
    HelpBrowser* page_ = nullptr;
    QTabWidget* side_ = nullptr;
    QLineEdit* indexFilter_ = nullptr;
};

}  // namespace curvemill
