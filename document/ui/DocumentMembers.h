// The members of a graph document in the order they are written, walked by both the writer and
// the reader of its JSON file; only the two halves of the file's code include this.
#pragma once

#include <span>
#include <string_view>

#include "document/GraphDocument.h"

namespace curvemill::document_members {

constexpr std::string_view kKindNames[] = {"function", "equation", "surface", "curve"};
constexpr std::string_view kSchemeNames[] = {"grey", "red",     "green",  "blue",
                                             "cyan", "magenta", "yellow", "own"};

// Reading and writing both walk the sections here, so the two can never disagree on a name.
template <typename V>
void visitRange(V& v, const char* name, RangeTexts& range) {
    v.object(name, [&] {
        v.text("begin", range.begin);
        v.text("end", range.end);
    });
}

template <typename V>
void visitView(V& v, FlatViewState& view) {
    v.object("view", [&] {
        v.number("xZoom", view.xZoom);
        v.number("yZoom", view.yZoom);
        v.number("scrollX", view.scrollX);
        v.number("scrollY", view.scrollY);
        v.list("stretches", view.stretches, [&](StretchLevel& level) {
            v.number("xFactor", level.xFactor);
            v.number("yFactor", level.yFactor);
            v.number("cornerX", level.cornerX);
            v.number("cornerY", level.cornerY);
        });
    });
}

template <typename V>
void visitLook(V& v, FlatLook& look) {
    v.object("look", [&] {
        v.whole("maxYRatio", look.settings.maxYRatio);
        v.flag("optimizeDrawing", look.settings.optimizeDrawing);
        v.flag("selectArea", look.settings.selectArea);
        v.flag("tooltips", look.settings.tooltips);
        v.flag("toolbar", look.settings.toolbar);
        v.order("displayOrder", look.settings.displayOrder);
        v.flag("grid", look.grid);
    });
}

template <typename V>
void visitSection(V& v, FunctionSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    v.whole("points", s.points);
    v.text("secondFormula", s.secondFormula);
    v.flag("derivative", s.derivative);
    v.object("integral", [&] {
        v.flag("shown", s.integral.shown);
        visitRange(v, "range", s.integral.range);
        v.flag("precise", s.integral.precise);
    });
    v.flag("integralCurve", s.integralCurve);
    v.flag("indefiniteMarked", s.indefiniteMarked);
    visitView(v, s.view);
    visitLook(v, s.look);
}

template <typename V>
void visitSection(V& v, EquationSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    visitRange(v, "y", s.y);
    v.whole("xPoints", s.xPoints);
    v.whole("yPoints", s.yPoints);
    v.whole("precisionDigits", s.precisionDigits);
    visitView(v, s.view);
    visitLook(v, s.look);
}

template <typename V>
void visitSection(V& v, SurfaceSection& s) {
    v.text("formula", s.formula);
    visitRange(v, "x", s.x);
    visitRange(v, "y", s.y);
    v.whole("xPoints", s.xPoints);
    v.whole("yPoints", s.yPoints);
    v.numbers("angles", s.angles);
    v.number("zoom", s.zoom);
    v.whole("horizontalLocation", s.horizontalLocation);
    v.whole("verticalLocation", s.verticalLocation);
    v.numbers("light", s.light);
    v.whole("ambient", s.ambient);
    v.flag("shiny", s.shiny);
    v.single("specularShare", s.specularShare);
    v.whole("fog", s.fog);
    v.choice("scheme", s.scheme, std::span(kSchemeNames));
    v.wholes("ownColour", s.ownColour);
    v.choice("mode", s.mode, std::span(kDrawingModeNames));
    v.flag("shading", s.shading);
    v.whole("zLimitStep", s.zLimitStep);
    v.flag("gridBox", s.gridBox);
}

template <typename V>
void visitSection(V& v, CurveSection& s) {
    v.flag("polar", s.polar);
    v.text("first", s.first);
    v.text("second", s.second);
    visitRange(v, "t", s.t);
    v.whole("points", s.points);
    v.flag("arrow", s.arrow);
    visitView(v, s.view);
    visitLook(v, s.look);
}

// Everything after "format" and "version".
template <typename V>
void visitDocument(V& v, GraphDocument& document) {
    v.choice("kind", document.kind, std::span(kKindNames));
    v.number("logBase", document.logBase);
    const auto section = [&](auto& members) {
        v.object(kKindNames[static_cast<int>(document.kind)].data(),
                 [&] { visitSection(v, members); });
    };
    switch (document.kind) {
        case DocumentKind::kFunction:
            section(document.function);
            break;
        case DocumentKind::kEquation:
            section(document.equation);
            break;
        case DocumentKind::kSurface:
            section(document.surface);
            break;
        case DocumentKind::kCurve:
            section(document.curve);
            break;
    }
}

}  // namespace curvemill::document_members
