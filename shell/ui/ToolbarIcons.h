// The toolbar pictures, drawn by the program itself so that no icon theme is needed.
#pragma once

#include <QIcon>

namespace curvemill {

// The picture of command `id`'s toolbar button; a plain mark for a command without one.
QIcon toolbarIcon(int id);

// The program's own icon, for its windows (the same design as resources/curvemill.svg).
QIcon programIcon();

}  // namespace curvemill
