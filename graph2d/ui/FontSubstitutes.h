// The font names the drawings ask for, mapped to metric-compatible free fonts where missing.
#pragma once

namespace curvemill {

// Where "Courier New", "Arial" or "Times New Roman" is not installed, Qt is told to use Liberation
// Mono, Sans or Serif, which have the same character widths, so that labels and titles take the
// room the layout gives them instead of that of whatever font the system falls back to. Applies
// to every window; safe to call more than once. Needs a QGuiApplication.
void installFontSubstitutes();

}  // namespace curvemill
