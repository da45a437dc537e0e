// What the main window shows: the title page or one graph of a kind.
#pragma once

namespace curvemill {

enum class GraphKind {
    TitlePage,
    Function2D,
    Equation,
    Surface3D,
};

}  // namespace curvemill
