// The toolbar pictures and the program's icon: scalable pictures bundled with the program, so that
// every button is sharp at any screen scale and no icon theme is needed.
#pragma once

#include <QIcon>

namespace curvemill {

// The picture of command `id`'s toolbar button; a null icon for a command without one.
QIcon toolbarIcon(int id);

// The program's own icon, for its windows (resources/curvemill.svg, as installed for the desktop).
QIcon programIcon();

}  // namespace curvemill
