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

void openProductWebPage(QWidget* parent, const WebPageRoute& route) {
    if (route.connected && !route.connected()) {
        QMessageBox::critical(parent, QStringLiteral("ERROR"), QString::fromLatin1(kMsgNoInternet));
        return;
    }
    const QUrl address(QString::fromLatin1(kProductWebAddress));
    // The desktop's URL handler (xdg-open on Linux) starts the user's browser; it fails when
    // there is no handler or no browser behind it.
    const bool started = route.open ? route.open(address) : QDesktopServices::openUrl(address);
    if (!started) {
        QMessageBox::warning(parent, QStringLiteral("ERROR"), QString::fromLatin1(kMsgNoBrowser));
    }
}

}  // namespace curvemill
