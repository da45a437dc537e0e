#include "shell/ui/CalculatorLookup.h"

#include <QStandardPaths>
#include <QStringList>

namespace curvemill {

std::string findCalculator(std::string_view searchPath) {
    QStringList directories;
    for (const QString& entry :
         QString::fromLocal8Bit(searchPath.data(), qsizetype(searchPath.size())).split(u':')) {
        // An empty entry means the current directory, as the shell reads PATH; Qt would skip it.
        directories.append(entry.isEmpty() ? QStringLiteral(".") : entry);
    }
    for (std::string_view program : kCalculatorPrograms) {
        const QString found = QStandardPaths::findExecutable(
            QString::fromLatin1(program.data(), qsizetype(program.size())), directories);
        if (!found.isEmpty()) {
            return found.toLocal8Bit().toStdString();
        }
    }
    return {};
}

}  // namespace curvemill
