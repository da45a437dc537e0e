#include "shell/ui/ProductWebPage.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QNetworkInformation>
#include <QNetworkInterface>
#include <QUrl>

namespace curvemill {

bool internetConnected() {
    if (QNetworkInformation::loadDefaultBackend() && QNetworkInformation::instance() != nullptr) {
        const auto reachability = QNetworkInformation::instance()->reachability();
        if (reachability != QNetworkInformation::Reachability::Unknown) {
            return reachability == QNetworkInformation::Reachability::Online;
        }
    }
    for (const QNetworkInterface& interface : QNetworkInterface::allInterfaces()) {
        const auto flags = interface.flags();
        if (flags.testFlag(QNetworkInterface::IsUp) &&
            flags.testFlag(QNetworkInterface::IsRunning) &&
            !flags.testFlag(QNetworkInterface::IsLoopBack)) {
            return true;
        }
    }
    return false;
}

void openProductWebPage(QWidget* parent) {
    if (!internetConnected()) {
        QMessageBox::critical(parent, QStringLiteral("ERROR"), QString::fromLatin1(kMsgNoInternet));
        return;
    }
    QDesktopServices::openUrl(QUrl(QString::fromLatin1(kProductWebAddress)));
}

}  // namespace curvemill
