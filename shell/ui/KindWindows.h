// Tool windows that work on one kind of graph: the equation's solutions and information, the
// surface's rotation. When another kind (or none) takes the screen they close, so that none of
// them acts on a graph that is gone.
#pragma once

#include "shell/GraphKind.h"

class QWidget;

namespace curvemill {

// `window` works on graphs of `kind`; it must be a child of the main window.
void belongToGraphKind(QWidget& window, GraphKind kind);

// `shown` is on screen now: every window of `owner` that belongs to another kind closes.
void closeWindowsOfOtherKinds(QWidget& owner, GraphKind shown);

}  // namespace curvemill
