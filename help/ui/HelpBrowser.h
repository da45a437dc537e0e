// The page pane of the help window: shows topics and their pictures straight from the archive.
#pragma once

#include <QTextBrowser>

class QHelpEngine;

namespace curvemill {

class HelpBrowser : public QTextBrowser {
    Q_OBJECT
  public:
    HelpBrowser(QHelpEngine& engine, QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

  private:
    QHelpEngine& engine_;
};

}  // namespace curvemill
