// Graph documents in the main window: Open Graph, Recent Graphs, Save Graph and Save Graph As, the
// window title with the document's name and its modified mark, and the question before a changed
// document goes.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <QStringList>

class QMainWindow;
class QMenu;
class QWidget;

namespace curvemill {

class CommandActions;

// What the window does with documents: the document of what is on screen in its file form, and
// reading and showing one.
class DocumentPort {
  public:
    virtual ~DocumentPort() = default;
    // The file form of the document of the graph on screen; none without a graph or while a
    // computation changes it.
    virtual std::optional<std::string> capture() const = 0;
    // Writes `bytes` as the file `path`; why it failed, or none.
    virtual std::optional<std::string> write(const QString& path, const std::string& bytes) = 0;
    // Reads `path` and, when the file is accepted, starts showing it: `shown` is called once the
    // graph is on screen (true) or its computation was stopped (false). Returns the reader's
    // refusal (nothing on screen changed, `shown` is never called) or none.
    virtual std::optional<std::string> open(const QString& path,
                                            std::function<void(bool shown)> shown) = 0;
};

class DocumentCommands : public QObject {
    Q_OBJECT
  public:
    DocumentCommands(QMainWindow& window, DocumentPort& port);

    // Binds Open Graph, Recent Graphs, Save Graph and Save Graph As, and fills the recent list.
    void bindCommands(CommandActions& actions);

    // The document's file; empty while none was opened or saved.
    const QString& path() const { return path_; }
    // What is on screen differs from the document as it was opened or saved.
    bool isModified() const { return modified_; }
    // The documents opened or saved last, the latest first.
    const QStringList& recentGraphs() const { return recent_; }

    // Opens `path` after the save question; false when it was refused or the question cancelled.
    bool openAsked(const QString& path);
    // Saves to the document's file, asking for a name when there is none; false when not saved.
    bool save();
    bool saveAs();
    // Writes the graph on screen to `path`; false (after saying why) when it was not written.
    bool saveTo(const QString& path);
    // The save question before a changed document goes (closing, opening another); true when it
    // may go.
    bool mayDiscard();
    // Compares what is on screen with the document again, soon and once for any number of calls.
    void scheduleCheck();
    // The graph left the screen (the title page): the window no longer shows the document, so it
    // no longer bears its name. The file stays as last saved.
    void forget();
    // Every repaint of `canvas` may show a changed graph (a scroll, a drag): each schedules a
    // check.
    void watch(QWidget& canvas);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    // The recent list changed: the menus follow.
    void recentChanged();
    // An opened document's graph was drawn (true) or its computation stopped (false).
    void documentShown(bool shown);

  private:
    void open();
    // Opens `path` without asking; false when the reader refused it (and said why).
    bool openNow(const QString& path);
    void check();
    void setModified(bool modified);
    void updateTitle();
    void remember(const QString& path);
    void fillRecentMenu();
    // The folder the file dialogs start in: the document's, else the last one used.
    QString dialogFolder() const;

    QMainWindow& window_;
    DocumentPort& port_;
    QMenu* recentMenu_ = nullptr;
    QString path_;
    QStringList recent_;
    // The document's file form when it was opened or saved.
    std::string saved_;
    bool modified_ = false;
    bool checkPending_ = false;
};

}  // namespace curvemill
