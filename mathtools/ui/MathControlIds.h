// Control identifiers of the Math and Information dialogs (each widget's objectName).
#pragma once

namespace curvemill {

namespace math_ids {
// The integral group.
inline constexpr int kXBegin = 1000;
inline constexpr int kXEnd = 1002;
inline constexpr int kPrecise = 1068;
inline constexpr int kProgress = 1012;
inline constexpr int kOk = 1;
inline constexpr int kStop = 1014;
inline constexpr int kCancel = 2;
// Opens the Information dialog for the same function.
inline constexpr int kInformation = 1069;
// Draws the derivative curve of the function on screen.
inline constexpr int kDrawDerivative = 1075;
// Marks the stretches where the function has no value.
inline constexpr int kMarkIndefinite = 1076;
// Draws the running integral of the function on screen.
inline constexpr int kDisplayIntegral = 1077;
// The "Extreme Values" group.
inline constexpr int kFindExtremes = 1071;
inline constexpr int kExtremeList = 1072;
inline constexpr int kXInPi = 1073;
inline constexpr int kYInPi = 1074;
inline constexpr int kShowBoth = 1197;
inline constexpr int kShowMaxima = 1198;
inline constexpr int kShowMinima = 1199;
}  // namespace math_ids

namespace information_ids {
// The page per kind of graph; the function's page is the first.
inline constexpr int kPages = 1080;
// The function page.
inline constexpr int kX = 1081;
inline constexpr int kYResult = 1082;
inline constexpr int kSlopeResult = 1083;
inline constexpr int kPiUnits = 1084;
inline constexpr int kCalculate = 1;
inline constexpr int kClose = 2;
}  // namespace information_ids

}  // namespace curvemill
