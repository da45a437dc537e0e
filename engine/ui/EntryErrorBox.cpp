#include "engine/ui/EntryErrorBox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>

#include "engine/NumberEntry.h"

namespace curvemill {

void showEntryError(QWidget* dialog, const QString& text, const QWidget* edit) {
    QMessageBox box(QMessageBox::Critical, QString::fromLatin1(kBoxCaption), text,
                    QMessageBox::Ok | QMessageBox::Help, dialog);
    box.setObjectName(QStringLiteral("error") + (edit != nullptr ? edit->objectName() : QString()));
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    box.exec();
    if (box.clickedButton() == box.button(QMessageBox::Help)) {
        QEvent request(QEvent::HelpRequest);
        QCoreApplication::sendEvent(&box, &request);
    }
}

void showRefusal(QWidget* dialog, const QString& text, QLineEdit* box, bool explained) {
    if (explained) {
        showEntryError(dialog, text, box);
    } else {
        QMessageBox::critical(dialog, QString::fromLatin1(kBoxCaption), text);
    }
    if (box != nullptr) {
        box->setFocus();
        box->selectAll();
    }
}

}  // namespace curvemill
