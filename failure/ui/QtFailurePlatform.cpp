#include "failure/ui/QtFailurePlatform.h"

#include <cstdio>
#include <cstdlib>

#include <QCoreApplication>
#include <QMessageBox>
#include <QProcess>

namespace curvemill {

void QtFailurePlatform::hideWindows() {
    for (const auto& hide : hiders_) {
        hide();
    }
}

void QtFailurePlatform::showErrorMessage(const std::string& text) {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("ERROR MESSAGE"),
                    QString::fromStdString(text), QMessageBox::Ok);
    box.exec();
}

std::string QtFailurePlatform::executablePath() {
    return QCoreApplication::applicationFilePath().toStdString();
}

void QtFailurePlatform::startDetached(const std::string& program) {
    QProcess::startDetached(QString::fromStdString(program), {});
}

void QtFailurePlatform::focusMainWindow() {
    if (focuser_) {
        focuser_();
    }
}

void QtFailurePlatform::exitProcess(int code) {
    // Static destructors run; the history is not saved, and no event loop is resumed, since the
    // frames that failed may still be on the stack below us.
    std::fflush(nullptr);
    std::exit(code);
}

}  // namespace curvemill
