// Shows a help topic in the help window, opening the archive on first use; when the archive cannot
// be found or opened it asks whether to fetch it from the product's web page instead.
//
// The help is Qt's compiled help: our HTML topics compiled by qhelpgenerator into one archive at
// build time, shown with QHelpEngine's contents and index beside a text browser. It gives what a
// compiled help file gives (one file, contents, index, topics addressed by name and anchor) with
// widgets of the toolkit we already use; a web browser or QtWebEngine would add a large dependency
// and leave the program's own window for the user's browser.
#pragma once

#include <functional>
#include <memory>

#include <QObject>
#include <QString>

#include "help/HelpArchive.h"

class QHelpEngine;
class QTemporaryDir;
class QWidget;

namespace curvemill {

class HelpWindow;

class HelpViewer : public QObject {
    Q_OBJECT
  public:
    // `findArchive` gives the archive's path (empty when there is none); `openWebPage` is called
    // when the user answers Yes to the missing-help question.
    HelpViewer(std::function<QString()> findArchive, std::function<void()> openWebPage,
               QObject* parent = nullptr);
    ~HelpViewer() override;

    // Shows topic 1..34, at `anchor` when one is given, and returns the help window; returns null
    // after the missing-help question when help cannot be shown.
    QWidget* showHelpTopic(int topic, const char* anchor = nullptr);
    HelpWindow* window() const { return window_.get(); }

  private:
    bool openArchive();

    std::function<QString()> findArchive_;
    std::function<void()> openWebPage_;
    HelpArchiveOnce archive_;
    // The engine keeps its collection (a small database) in a folder of its own, removed at exit;
    // the archive itself is only read, so an installed read-only copy serves.
    std::unique_ptr<QTemporaryDir> collectionDir_;
    std::unique_ptr<QHelpEngine> engine_;
    std::unique_ptr<HelpWindow> window_;
};

// The archive beside the running program's data (see helpArchiveCandidates), or empty.
QString findInstalledHelpArchive();

}  // namespace curvemill
