#include "graph2d/ui/FontSubstitutes.h"

#include <QFont>
#include <QFontDatabase>
#include <QString>

namespace curvemill {

void installFontSubstitutes() {
    const struct {
        const char* wanted;
        const char* substitute;
    } pairs[] = {{"Courier New", "Liberation Mono"},
                 {"Arial", "Liberation Sans"},
                 {"Times New Roman", "Liberation Serif"}};
    for (const auto& pair : pairs) {
        const QString wanted = QString::fromLatin1(pair.wanted);
        if (!QFontDatabase::hasFamily(wanted)) {
            // Qt keeps each substitute once, so repeated calls add nothing.
            QFont::insertSubstitution(wanted, QString::fromLatin1(pair.substitute));
        }
    }
}

}  // namespace curvemill
