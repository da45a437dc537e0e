#include "mathtools/ui/InformationDialog.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "engine/NumberEntry.h"
#include "mathtools/ui/FunctionValuePage.h"
#include "mathtools/ui/MathControlIds.h"
#include "worker/ui/WindowJob.h"
#include "worker/ui/Worker.h"

namespace curvemill {

InformationDialog::InformationDialog(Formula& formula, const TwoDGraph& graph, Worker& worker,
                                     QWidget* parent)
    : QDialog(parent), worker_(worker) {
    setWindowTitle(QStringLiteral("Information"));
    pages_ = new QStackedWidget(this);
    pages_->setObjectName(QString::number(information_ids::kPages));
    functionPage_ = new FunctionValuePage(formula, graph, pages_);
    pages_->addWidget(functionPage_);

    calculateButton_ = new QPushButton(QStringLiteral("&Calculate"), this);
    calculateButton_->setObjectName(QString::number(information_ids::kCalculate));
    calculateButton_->setDefault(true);
    closeButton_ = new QPushButton(QStringLiteral("C&lose"), this);
    closeButton_->setObjectName(QString::number(information_ids::kClose));
    closeButton_->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(calculateButton_);
    buttons->addWidget(closeButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages_);
    layout->addLayout(buttons);

    connect(calculateButton_, &QPushButton::clicked, this, &InformationDialog::accept);
    connect(closeButton_, &QPushButton::clicked, this, &InformationDialog::reject);
}

int InformationDialog::addPage(InformationPage* page) {
    connect(page, &InformationPage::finished, this, [this] { setWaiting(false); });
    return pages_->addWidget(page);
}

void InformationDialog::showPage(int index) {
    pages_->setCurrentIndex(index);
}

InformationPage* InformationDialog::currentPage() const {
    return static_cast<InformationPage*>(pages_->currentWidget());
}

void InformationDialog::setWaiting(bool waiting) {
    waiting_ = waiting;
    calculateButton_->setEnabled(!waiting);
    closeButton_->setEnabled(!waiting);
}

void InformationDialog::accept() {
    if (waiting_) {
        return;
    }
    // A computation on the worker uses the formula engine this page would evaluate with.
    if (worker_.isBusy()) {
        QMessageBox::information(this, QString::fromLatin1(kBoxCaption),
                                 QString::fromLatin1(kMsgWorkerBusy));
        return;
    }
    InformationPage* page = currentPage();
    if (page->calculate() && page->usesWorker()) {
        setWaiting(true);
    }
}

void InformationDialog::reject() {
    if (waiting_) {
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
