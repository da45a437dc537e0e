// A graph document: everything needed to draw the same picture again, without its computed points.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "graph2d/TwoDSettings.h"
#include "graph3d/SurfaceStyle.h"

namespace curvemill {

// The first two members of every file; a reader refuses another format or a newer version.
inline constexpr const char* kGraphFormatName = "curvemill-graph";
inline constexpr int kGraphFormatVersion = 1;

enum class DocumentKind { kFunction, kEquation, kSurface, kCurve };

// A range as its two boxes hold it: typed texts, read again by the boxes' own checks on opening.
struct RangeTexts {
    std::string begin;
    std::string end;
    friend bool operator==(const RangeTexts&, const RangeTexts&) = default;
};

// One "Select Area" stretch: the zoom factors it multiplied and where the selection's corner sat.
struct StretchLevel {
    double xFactor = 1.0;
    double yFactor = 1.0;
    double cornerX = 0.0;
    double cornerY = 0.0;
    friend bool operator==(const StretchLevel&, const StretchLevel&) = default;
};

// Where the 2D view stands: zoom factors, scroll offsets (layout pixels) and the stretch stack,
// oldest first.
struct FlatViewState {
    double xZoom = 1.0;
    double yZoom = 1.0;
    double scrollX = 0.0;
    double scrollY = 0.0;
    std::vector<StretchLevel> stretches;
    friend bool operator==(const FlatViewState&, const FlatViewState&) = default;
};

// The TwoD / Equation Customization settings and the grid.
struct FlatLook {
    TwoDSettings settings;
    bool grid = true;
    friend bool operator==(const FlatLook&, const FlatLook&) = default;
};

// The integral painted under the main curve, its range as the Math dialog's boxes hold it.
struct IntegralArea {
    bool shown = false;
    RangeTexts range;
    // Computed with "Calculate Precisely" on the worker rather than from the samples.
    bool precise = false;
    friend bool operator==(const IntegralArea&, const IntegralArea&) = default;
};

struct FunctionSection {
    std::string formula;
    // The second function shares the graph's X range: both curves always cover it.
    RangeTexts x;
    // Regular samples per run (the Two D Graph dialog's points).
    std::int32_t points = 100000;
    // Empty: no second function.
    std::string secondFormula;
    bool derivative = false;
    IntegralArea integral;
    bool integralCurve = false;
    bool indefiniteMarked = false;
    FlatViewState view;
    FlatLook look;
    friend bool operator==(const FunctionSection&, const FunctionSection&) = default;
};

struct EquationSection {
    std::string formula;
    RangeTexts x;
    RangeTexts y;
    std::int32_t xPoints = 500;
    std::int32_t yPoints = 500;
    std::int32_t precisionDigits = 5;
    FlatViewState view;
    FlatLook look;
    friend bool operator==(const EquationSection&, const EquationSection&) = default;
};

struct SurfaceSection {
    std::string formula;
    RangeTexts x;
    RangeTexts y;
    std::int32_t xPoints = 100;
    std::int32_t yPoints = 100;
    // Degrees about the grid's x, y and z axes.
    std::array<double, 3> angles{0.0, 0.0, 0.0};
    // The figure's zoom (Zoom > Both, the wheel).
    double zoom = 1.0;
    std::int32_t horizontalLocation = 5;
    std::int32_t verticalLocation = 3;
    std::array<double, 3> light{-1.0, -1.0, 0.0};
    std::int32_t ambient = 50;
    bool shiny = false;
    float specularShare = 0.5f;
    std::int32_t fog = 5;
    ColourScheme scheme = ColourScheme::kRed;
    // The own colour, 0..255 per channel.
    std::array<std::int32_t, 3> ownColour{191, 65, 41};
    DrawingMode mode = DrawingMode::kPolygons;
    bool shading = false;
    // The Z-limit step; it counts only for a surface whose heights get limits.
    std::int32_t zLimitStep = 5;
    bool gridBox = false;
    friend bool operator==(const SurfaceSection&, const SurfaceSection&) = default;
};

// A parametric curve x(t), y(t) or a polar one r(t).
struct CurveSection {
    bool polar = false;
    // x(t) or r(t), then y(t) (empty for a polar curve).
    std::string first;
    std::string second;
    RangeTexts t;
    std::int32_t points = 100000;
    // The small arrow at the start that shows which way t runs.
    bool arrow = true;
    FlatViewState view;
    FlatLook look;
    friend bool operator==(const CurveSection&, const CurveSection&) = default;
};

struct GraphDocument {
    DocumentKind kind = DocumentKind::kFunction;
    // Log Base of every log( in the formulas.
    double logBase = 10.0;
    // Only the section of `kind` is written and read; the others keep their defaults.
    FunctionSection function;
    EquationSection equation;
    SurfaceSection surface;
    CurveSection curve;
    friend bool operator==(const GraphDocument&, const GraphDocument&) = default;
};

}  // namespace curvemill
