#include "help/ui/HelpBrowser.h"

#include <QDesktopServices>
#include <QHelpEngine>

namespace curvemill {

HelpBrowser::HelpBrowser(QHelpEngine& engine, QWidget* parent)
    : QTextBrowser(parent), engine_(engine) {
    setObjectName(QStringLiteral("helpPage"));
    // Links inside the archive are followed here; links to the web go to the user's browser.
    setOpenLinks(true);
    setOpenExternalLinks(true);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (name.scheme() == QLatin1String("qthelp")) {
        return engine_.fileData(name);
    }
    return QTextBrowser::loadResource(type, name);
}

}  // namespace curvemill
