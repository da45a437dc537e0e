#include "shell/ui/DocumentCommands.h"

#include <QAction>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>

#include "document/ui/GraphDocumentFile.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"

namespace curvemill {

namespace {

const QString kCaption = QStringLiteral("CURVEMILL");
const QString kFilter = QString::fromLatin1(kGraphFileFilter);
// Without its dot, as the dialog wants it.
const QString kSuffix = QString::fromLatin1(kGraphFileSuffix).mid(1);
constexpr qsizetype kRecentKept = 8;

// The list lives in the user's settings of the program, beside nothing else.
QSettings settings() {
    return QSettings(QStringLiteral("curvemill"), QStringLiteral("curvemill"));
}

const QString kRecentKey = QStringLiteral("recentGraphs");
const QString kFolderKey = QStringLiteral("graphFolder");

}  // namespace

DocumentCommands::DocumentCommands(QMainWindow& window, DocumentPort& port)
    : QObject(&window),
      window_(window),
      port_(port),
      recent_(settings().value(kRecentKey).toStringList().mid(0, kRecentKept)) {}

void DocumentCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::OpenGraph, [this] { open(); });
    actions.bind(Command::SaveGraph, [this] { save(); });
    actions.bind(Command::SaveGraphAs, [this] { saveAs(); });
    // The submenu carries the work; the entry only has to be enabled.
    actions.bind(Command::RecentGraphs, [] {});
    recentMenu_ = actions.action(Command::RecentGraphs)->menu();
    fillRecentMenu();
}

void DocumentCommands::remember(const QString& path) {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    recent_.removeAll(absolute);
    recent_.prepend(absolute);
    recent_ = recent_.mid(0, kRecentKept);
    QSettings store = settings();
    store.setValue(kRecentKey, recent_);
    store.setValue(kFolderKey, QFileInfo(absolute).absolutePath());
    fillRecentMenu();
    Q_EMIT recentChanged();
}

void DocumentCommands::fillRecentMenu() {
    if (recentMenu_ == nullptr) {
        return;
    }
    recentMenu_->clear();
    for (qsizetype i = 0; i < recent_.size(); ++i) {
        const QString path = recent_[i];
        // Numbered from 1, each number its access key.
        QAction* entry = recentMenu_->addAction(
            QStringLiteral("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName()));
        entry->setObjectName(QStringLiteral("recentGraph%1").arg(i + 1));
        entry->setToolTip(path);
        entry->setStatusTip(path);
        connect(entry, &QAction::triggered, this, [this, path] { openAsked(path); });
    }
}

QString DocumentCommands::dialogFolder() const {
    if (!path_.isEmpty()) {
        return QFileInfo(path_).absolutePath();
    }
    return settings().value(kFolderKey, QDir::currentPath()).toString();
}

void DocumentCommands::open() {
    if (!mayDiscard()) {
        return;
    }
    QFileDialog dialog(&window_, QStringLiteral("Open Graph"), dialogFolder(), kFilter);
    dialog.setObjectName(QStringLiteral("openGraphDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        openNow(dialog.selectedFiles().constFirst());
    }
}

bool DocumentCommands::openAsked(const QString& path) {
    return mayDiscard() && openNow(path);
}

bool DocumentCommands::openNow(const QString& path) {
    const std::optional<std::string> refusal = port_.open(path, [this, path](bool shown) {
        // A stopped computation leaves a part of the picture: it is no document's.
        if (shown) {
            path_ = QFileInfo(path).absoluteFilePath();
            saved_ = port_.capture().value_or(std::string());
            setModified(false);
            updateTitle();
        }
        Q_EMIT documentShown(shown);
    });
    if (refusal) {
        QMessageBox::warning(
            &window_, QStringLiteral("Open Graph"),
            QStringLiteral("%1\n\n%2")
                .arg(QDir::toNativeSeparators(path), QString::fromStdString(*refusal)));
        return false;
    }
    remember(path);
    return true;
}

bool DocumentCommands::save() {
    return path_.isEmpty() ? saveAs() : saveTo(path_);
}

bool DocumentCommands::saveAs() {
    if (!port_.capture()) {
        return false;
    }
    const QString name = path_.isEmpty() ? QStringLiteral("Graph.curvemill") : path_;
    QFileDialog dialog(&window_, QStringLiteral("Save Graph As"),
                       QDir(dialogFolder()).filePath(QFileInfo(name).fileName()), kFilter);
    dialog.setObjectName(QStringLiteral("saveGraphDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(kSuffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return false;
    }
    return saveTo(dialog.selectedFiles().constFirst());
}

bool DocumentCommands::saveTo(const QString& path) {
    const std::optional<std::string> bytes = port_.capture();
    if (!bytes) {
        return false;
    }
    if (const std::optional<std::string> failure = port_.write(path, *bytes)) {
        QMessageBox::critical(
            &window_, QStringLiteral("Save Graph"),
            QStringLiteral("%1\n\n%2")
                .arg(QDir::toNativeSeparators(path), QString::fromStdString(*failure)));
        return false;
    }
    path_ = QFileInfo(path).absoluteFilePath();
    saved_ = *bytes;
    setModified(false);
    updateTitle();
    remember(path_);
    return true;
}

bool DocumentCommands::mayDiscard() {
    check();
    if (!modified_) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, kCaption,
                    QStringLiteral("The graph \"%1\" has changed.\nDo you want to save it?")
                        .arg(QFileInfo(path_).fileName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save:
            return save();
        case QMessageBox::Discard:
            return true;
        default:
            return false;
    }
}

void DocumentCommands::scheduleCheck() {
    if (path_.isEmpty() || checkPending_) {
        return;
    }
    checkPending_ = true;
    QTimer::singleShot(0, this, [this] {
        checkPending_ = false;
        check();
    });
}

// Only a document can differ from itself: a graph never saved has nothing to be compared with.
// On the title page, or halfway through a computation, there is no picture to save, so nothing to
// ask about either: a question whose Save cannot save would keep the window from closing.
void DocumentCommands::check() {
    if (path_.isEmpty()) {
        return;
    }
    const std::optional<std::string> now = port_.capture();
    setModified(now && *now != saved_);
}

void DocumentCommands::watch(QWidget& canvas) {
    canvas.installEventFilter(this);
}

bool DocumentCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        scheduleCheck();
    }
    return QObject::eventFilter(watched, event);
}

void DocumentCommands::setModified(bool modified) {
    modified_ = modified;
    window_.setWindowModified(modified);
}

void DocumentCommands::forget() {
    path_.clear();
    saved_.clear();
    modified_ = false;
    updateTitle();
}

void DocumentCommands::updateTitle() {
    window_.setWindowTitle(
        path_.isEmpty() ? kCaption
                        : QStringLiteral("%1[*] - %2").arg(QFileInfo(path_).fileName(), kCaption));
    window_.setWindowModified(modified_);
}

}  // namespace curvemill
