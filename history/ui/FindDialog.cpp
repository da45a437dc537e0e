#include "history/ui/FindDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "history/SearchRing.h"

namespace curvemill {

FindDialog::FindDialog(SearchRing& ring, bool hasSelection, QWidget* parent)
    : QDialog(parent), ring_(ring), combo_(new QComboBox(this)) {
    setWindowTitle(QStringLiteral("Find"));
    setObjectName(QStringLiteral("115"));
    combo_->setEditable(true);
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setMinimumWidth(260);
    for (const std::string& text : ring.newestFirst()) {
        combo_->addItem(QString::fromStdString(text));
    }
    combo_->setCurrentIndex(combo_->count() > 0 ? 0 : -1);
    combo_->lineEdit()->selectAll();

    auto* start = new QGroupBox(QStringLiteral("Start"), this);
    auto* fromHead = new QRadioButton(QStringLiteral("From the top of the list"), start);
    fromSelection_ = new QRadioButton(QStringLiteral("From the selected entry"), start);
    fromSelection_->setEnabled(hasSelection);
    (hasSelection ? fromSelection_ : fromHead)->setChecked(true);
    auto* startLayout = new QVBoxLayout(start);
    startLayout->addWidget(fromHead);
    startLayout->addWidget(fromSelection_);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Find"));
    connect(buttons, &QDialogButtonBox::accepted, this, &FindDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Find what:"), this);
    label->setBuddy(combo_);
    layout->addWidget(label);
    layout->addWidget(combo_);
    layout->addWidget(start);
    layout->addWidget(buttons);
}

QString FindDialog::text() const {
    return combo_->currentText();
}

void FindDialog::accept() {
    if (text().isEmpty()) {
        return;
    }
    ring_.add(text().toStdString());
    done(fromSelection_->isChecked() ? kFromSelection : kFromHead);
}

}  // namespace curvemill
