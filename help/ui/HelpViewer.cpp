#include "help/ui/HelpViewer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHelpEngine>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QUrl>

#include "help/HelpTopics.h"
#include "help/ui/HelpWindow.h"

namespace curvemill {

namespace {

QUrl topicUrl(int topic, const char* anchor) {
    return QUrl(QString::fromStdString(helpTopicAddress(topic, anchor != nullptr ? anchor : "")));
}

}  // namespace

HelpViewer::HelpViewer(std::function<QString()> findArchive, std::function<void()> openWebPage,
                       QObject* parent)
    : QObject(parent),
      findArchive_(std::move(findArchive)),
      openWebPage_(std::move(openWebPage)),
      archive_([this] { return openArchive(); }) {}

HelpViewer::~HelpViewer() {
    // The window shows the engine's widgets: it goes first.
    window_.reset();
    engine_.reset();
}

bool HelpViewer::openArchive() {
    const QString path = findArchive_ ? findArchive_() : QString();
    if (path.isEmpty() || !QFileInfo(path).isReadable()) {
        return false;
    }
    collectionDir_ = std::make_unique<QTemporaryDir>();
    if (!collectionDir_->isValid()) {
        return false;
    }
    engine_ = std::make_unique<QHelpEngine>(collectionDir_->filePath(QStringLiteral("help.qhc")));
    // The collection is ours to write: it is created empty and the archive registered into it.
    engine_->setReadOnly(false);
    engine_->setUsesFilterEngine(true);
    if (!engine_->setupData() || !engine_->registerDocumentation(path)) {
        engine_.reset();
        return false;
    }
    // An archive that opens but lacks its home topic is not ours, or is damaged.
    if (!engine_->findFile(topicUrl(kHelpHomeTopic, nullptr)).isValid()) {
        engine_.reset();
        return false;
    }
    window_ = std::make_unique<HelpWindow>(*engine_, topicUrl(kHelpHomeTopic, nullptr));
    return true;
}

QWidget* HelpViewer::showHelpTopic(int topic, const char* anchor) {
    const QUrl address = topicUrl(topic, anchor);
    if (!address.isEmpty() && archive_.ready() &&
        engine_->findFile(address.adjusted(QUrl::RemoveFragment)).isValid()) {
        window_->showTopic(address);
        window_->show();
        window_->raise();
        window_->activateWindow();
        return window_.get();
    }
    // Without an owner, as it may come from any window, or from none.
    QMessageBox question(QMessageBox::Warning, QStringLiteral("ERROR"),
                         QString::fromLatin1(kMsgHelpMissing), QMessageBox::Yes | QMessageBox::No);
    question.setObjectName(QStringLiteral("helpMissing"));
    if (question.exec() == QMessageBox::Yes && openWebPage_) {
        openWebPage_();
    }
    return nullptr;
}

QString findInstalledHelpArchive() {
    const std::string dir = QCoreApplication::applicationDirPath().toStdString();
    for (const std::string& candidate : helpArchiveCandidates(dir)) {
        const QString path = QString::fromStdString(candidate);
        if (QFileInfo(path).isFile()) {
            return QFileInfo(path).canonicalFilePath();
        }
    }
    return {};
}

}  // namespace curvemill
