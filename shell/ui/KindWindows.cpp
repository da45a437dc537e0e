#include "shell/ui/KindWindows.h"

#include <QVariant>
#include <QWidget>

namespace curvemill {

namespace {

const char* const kKindProperty = "curvemillGraphKind";

}  // namespace

void belongToGraphKind(QWidget& window, GraphKind kind) {
    window.setProperty(kKindProperty, static_cast<int>(kind));
}

void closeWindowsOfOtherKinds(QWidget& owner, GraphKind shown) {
    for (QWidget* window : owner.findChildren<QWidget*>()) {
        const QVariant kind = window->property(kKindProperty);
        if (kind.isValid() && kind.toInt() != static_cast<int>(shown) && window->isVisible()) {
            window->close();
        }
    }
}

}  // namespace curvemill
