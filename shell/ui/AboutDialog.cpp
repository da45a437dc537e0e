#include "shell/ui/AboutDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "failure/FailureMessage.h"
#include "shell/ui/ProductWebPage.h"
#include "shell/ui/ToolbarIcons.h"

namespace curvemill {

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("aboutDialog"));
    setWindowTitle(QStringLiteral("About CurveMill"));

    auto* icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("icon"));
    icon->setPixmap(programIcon().pixmap(64, 64));
    icon->setAlignment(Qt::AlignTop);

    auto* name = new QLabel(QStringLiteral("CurveMill"), this);
    name->setObjectName(QStringLiteral("name"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    auto* version =
        new QLabel(QStringLiteral("Version %1").arg(QStringLiteral(CURVEMILL_VERSION)), this);
    version->setObjectName(QStringLiteral("version"));
    auto* what = new QLabel(
        QStringLiteral("Plots and examines mathematical functions: graphs, integrals, values "
                       "and extremes."),
        this);
    what->setObjectName(QStringLiteral("description"));
    what->setWordWrap(true);

    const QString web = QString::fromLatin1(kProductWebAddress);
    auto* link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(web), this);
    link->setObjectName(QStringLiteral("webAddress"));
    link->setTextFormat(Qt::RichText);
    link->setOpenExternalLinks(true);
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    const QString support = QString::fromLatin1(kSupportAddress);
    auto* mail =
        new QLabel(QStringLiteral("Support: <a href=\"mailto:%1\">%1</a>").arg(support), this);
    mail->setObjectName(QStringLiteral("supportAddress"));
    mail->setTextFormat(Qt::RichText);
    mail->setOpenExternalLinks(true);
    mail->setTextInteractionFlags(Qt::TextBrowserInteraction);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("1"));
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* texts = new QVBoxLayout;
    for (QLabel* label : {name, version, what, link, mail}) {
        texts->addWidget(label);
    }
    texts->insertSpacing(3, 8);
    auto* body = new QHBoxLayout;
    body->addWidget(icon);
    body->addSpacing(12);
    body->addLayout(texts, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    what->setMinimumWidth(320);
}

}  // namespace curvemill
