// Display names of the procedures that catch failures, one constant per window or dialog class.
#pragma once

namespace curvemill {

// Compared by address where identity matters (the demonstration name), so always pass these
// constants, never a copy of their text.
using ProcedureName = const char*;

inline constexpr char kProcWinMain[] = "WinMain";
inline constexpr char kProcMainWindow[] = "Main Window Procedure";
inline constexpr char kProcPrinterHook[] = "Printer Hook Procedure";
inline constexpr char kProcLogBaseDialog[] = "Log Base Dialog Procedure";
inline constexpr char kProcTwoDGraphDialog[] = "Two D Graph Dialog Procedure";
inline constexpr char kProcInformationDialog[] = "Information Dialog Procedure";
inline constexpr char kProcTwoDCustomizationDialog[] = "2D Customization Dialog Procedure";
inline constexpr char kProcEquationMathDialog[] = "Eqiation Math Dialog Procedure";
inline constexpr char kProcMathDialog[] = "Math Dialog Procedure";
inline constexpr char kProcTextFindDialog[] = "Text Find Dialog Procedure";
inline constexpr char kProcLoadingDialog[] = "Loading Dialog Procedure";
inline constexpr char kProcPreviewWindow[] = "Preview Window Procedure";
inline constexpr char kProcHistoryWindow[] = "History Window Procedure";
inline constexpr char kProcSaveToFileDialog[] = "Save to File Dialog Procedure";
inline constexpr char kProcEquationWindow[] = "Equation Window Procedure";
inline constexpr char kProcThreeDCustomizationMain[] = "3D Customization Main Dialog";
inline constexpr char kProcThreeDCustomizationDialog[] = "3D Customization Dialog Procedure";
inline constexpr char kProcThreeDColorsDialog[] = "3D Colors Dialog Procedure";
inline constexpr char kProcThreeDVisualEffectsDialog[] = "3D Visual Effects Dialog Procedure";
inline constexpr char kProcAboutDialog[] = "About Dialog Procedure";
inline constexpr char kProcTooltipMessageDialog[] = "Tooltip Message Dialog Procedure";
inline constexpr char kProcListMouseHook[] = "List Mouse Hook Procedure";
inline constexpr char kProcMouseHook[] = "Mouse Hook Procedure";
inline constexpr char kProcThreeDRotationDialog[] = "3D Rotation Dialog Procedure";
inline constexpr char kProcThreeDGrid[] = "ThreeD Grid Procedure";
// Our own window, for the parametric and polar curves.
inline constexpr char kProcCurveWindow[] = "Curve Window Procedure";

// The demonstration command's name: recognised by identity, so a window that happened to be
// called "TEST" would still get the ordinary message.
inline constexpr char kProcTest[] = "TEST";

inline bool isDemonstration(ProcedureName name) {
    return name == kProcTest;
}

// Implemented by every window or dialog class that reports failures under a name of its own.
class FailureScope {
  public:
    virtual ~FailureScope() = default;
    virtual ProcedureName procedureName() const = 0;
};

}  // namespace curvemill
