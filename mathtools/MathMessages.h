// The texts the Math and Information dialogs show, letter for letter.
#pragma once

namespace curvemill::math_messages {

// Integral interval (Math dialog), in the order the dialog checks them.
inline constexpr const char* kXBeginOutside = "X_BEGIN IS OUTSIDE THE RANGE OF FUNCTION";
inline constexpr const char* kXEndOutside = "X_END IS OUTSIDE THE RANGE OF FUNCTION";
inline constexpr const char* kXEndNotGreater = "X_END MUST BE GREATER THAN X_BEGIN";
inline constexpr const char* kCannotIntegrate =
    "INTEGRAL CANNOT BE CALCULATED, \nSINCE THIS INTERVAL CONTAINS\nINDEFINITE AND/OR INFINITE "
    "NUMBERS";

// The Yes/No question after a quick integral that is not precise enough (exclamation icon);
// its text comes from preciseQuestionText().
inline constexpr const char* kWarningTitle = "Warning";

// Values at a point and root scans (Information dialog).
inline constexpr const char* kXOutsideFunction = "X IS OUTSIDE THE RANGE OF FUNCTION";
// Followed by the range the value had to lie in (see rootValueRefusal).
inline constexpr const char* kYOutsideSelectedRange =
    "Y IS OUTSIDE THE CURRENTLY SELECTED RANGE:\n";
inline constexpr const char* kIndefiniteY = "y=INDEFINITE";
inline constexpr const char* kIndefiniteSlope = "y'=INDEFINITE";
// Shown (exclamation icon) when the solution list takes no further line; listing stops there.
inline constexpr const char* kNotAllValuesTitle = "WARNING";
inline constexpr const char* kNotAllValues = "NOT ALL VALUES CAN BE DISPLAYED";

// Box names for composeBoxError ("ERROR IN %s EDIT BOX:\n%s").
inline constexpr const char* kBoxXBegin = "X_BEG";
inline constexpr const char* kBoxXEnd = "X_END";
inline constexpr const char* kBoxX = "X";
inline constexpr const char* kBoxY = "Y";

}  // namespace curvemill::math_messages
