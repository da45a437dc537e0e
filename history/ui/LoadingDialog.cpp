#include "history/ui/LoadingDialog.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace curvemill {

LoadingDialog::LoadingDialog(std::function<int()> load, QWidget* parent)
    : QDialog(parent), load_(std::move(load)) {
    setObjectName(QStringLiteral("116"));
    setWindowTitle(QStringLiteral("Loading"));
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Loading..."), this);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumSize(220, 60);
    layout->addWidget(label);
}

void LoadingDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (started_) {
        return;
    }
    started_ = true;
    QTimer::singleShot(kDelayMs, this, [this] { done(load_ ? load_() : 0); });
}

}  // namespace curvemill
