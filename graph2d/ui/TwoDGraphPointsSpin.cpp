#include "graph2d/ui/TwoDGraphPointsSpin.h"

#include <algorithm>

#include <QLineEdit>

#include "graph2d/TwoDGraph.h"

namespace curvemill {

TwoDGraphPointsSpin::TwoDGraphPointsSpin(QWidget* parent) : QSpinBox(parent) {
    setRange(1, kMostPointsPerRun / kPointsPerRunUnit);
    setValue(10);
    setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    setKeyboardTracking(true);
    lineEdit()->setMaxLength(70);
}

QValidator::State TwoDGraphPointsSpin::validate(QString& input, int&) const {
    if (input.isEmpty()) {
        return QValidator::Intermediate;
    }
    bool number = false;
    const int value = input.toInt(&number);
    if (!number || input.startsWith(QLatin1Char('-')) || input.startsWith(QLatin1Char('+'))) {
        return QValidator::Invalid;
    }
    return value >= minimum() && value <= maximum() ? QValidator::Acceptable
                                                    : QValidator::Intermediate;
}

void TwoDGraphPointsSpin::fixup(QString& input) const {
    input = QString::number(correctedValueOf(input));
}

int TwoDGraphPointsSpin::correctedValueOf(const QString& text) const {
    bool number = false;
    const long long typed = text.toLongLong(&number);
    if (!number) {
        return value();
    }
    return static_cast<int>(std::clamp<long long>(typed, minimum(), maximum()));
}

int TwoDGraphPointsSpin::correctedValue() const {
    return correctedValueOf(lineEdit()->text());
}

}  // namespace curvemill
