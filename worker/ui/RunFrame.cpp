#include "worker/ui/RunFrame.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

namespace curvemill {

QLineEdit* makeEntryBox(QWidget* window, int id, const QString& text, int maxLength) {
    auto* edit = new QLineEdit(text, window);
    edit->setObjectName(QString::number(id));
    edit->setMaxLength(maxLength);
    return edit;
}

QPushButton* makeWindowButton(QWidget* window, int id, const QString& text) {
    auto* button = new QPushButton(text, window);
    button->setObjectName(QString::number(id));
    button->setAutoDefault(false);
    return button;
}

QPushButton* makeHelpButton(QWidget* window, int id) {
    QPushButton* help = makeWindowButton(window, id, QStringLiteral("&Help"));
    QObject::connect(help, &QPushButton::clicked, window, [window] {
        QEvent request(QEvent::HelpRequest);
        QCoreApplication::sendEvent(window, &request);
    });
    return help;
}

QProgressBar* makeRunProgress(QWidget* window, int id, bool keepRoom) {
    auto* progress = new QProgressBar(window);
    progress->setObjectName(QString::number(id));
    progress->setRange(0, 100);
    if (keepRoom) {
        QSizePolicy policy = progress->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        progress->setSizePolicy(policy);
    }
    return progress;
}

void showRunning(bool running, std::initializer_list<QWidget*> inputs, QPushButton* stop,
                 QProgressBar* progress) {
    for (QWidget* input : inputs) {
        input->setEnabled(!running);
    }
    stop->setEnabled(running);
    progress->setVisible(running);
    if (running) {
        progress->setValue(0);
        stop->setFocus();
    }
}

}  // namespace curvemill
