#include "document/DocumentCheck.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>

#include "engine/Formula.h"
#include "engine/LogBase.h"
#include "engine/NumberEntry.h"
#include "graph2d/GraphEntries.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "graph3d/SurfaceLookRules.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceView.h"
#include "mathtools/Integral.h"
#include "mathtools/MathMessages.h"
#include "parametric/CurveEntries.h"
#include "twovar/TwoVariableEntries.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill {

namespace {

// A number box holds no more than this.
constexpr std::size_t kBoxCharacters = 99;

using Refusal = std::optional<DocumentRefusal>;

Refusal refuse(std::string field, std::string reason) {
    return DocumentRefusal{std::move(field), std::move(reason)};
}

std::string_view kindName(DocumentKind kind) {
    switch (kind) {
        case DocumentKind::kFunction:
            return "function";
        case DocumentKind::kEquation:
            return "equation";
        case DocumentKind::kSurface:
            return "surface";
        case DocumentKind::kCurve:
            return "curve";
    }
    return "function";
}

std::string fieldOf(DocumentKind kind, std::string_view member) {
    std::string field(kindName(kind));
    field += '.';
    field += member;
    return field;
}

Refusal checkLogBase(Formula& formula, double base) {
    // The dialog's own route: base 10 by its option, any other base as its box's text.
    const std::string text = numberEntryText(base);
    const LogBaseResult result =
        base == 10.0 ? applyLogBase(formula, false, {}) : applyLogBase(formula, true, text);
    if (!result.accepted) {
        return refuse("logBase", result.message);
    }
    return std::nullopt;
}

Refusal prepareFunction(Formula& formula, const FunctionSection& section, DocumentValues& values) {
    const auto field = [](std::string_view member) {
        return fieldOf(DocumentKind::kFunction, member);
    };
    NumberBox begin(kXBeginBoxName);
    NumberBox end(kXEndBoxName);
    begin.setText(section.x.begin);
    end.setText(section.x.end);
    const auto boxField = [&field](GraphEntryBox box, bool second) {
        switch (box) {
            case GraphEntryBox::kXBegin:
                return field("x.begin");
            case GraphEntryBox::kXEnd:
                return field("x.end");
            case GraphEntryBox::kFormula:
                break;
        }
        return field(second ? "secondFormula" : "formula");
    };
    // Texts are held to the formula check's limits rather than to the dialog's edit length, so
    // that a graph made on the command line, whose formulas no edit cut short, opens as well.
    const GraphEntries main = checkGraphEntries(formula, begin, end, section.formula);
    if (main.refusal) {
        return refuse(boxField(main.refusal->box, false), main.refusal->message);
    }
    values.xBegin = main.xBegin;
    values.xEnd = main.xEnd;
    if (!section.secondFormula.empty()) {
        const GraphEntries second =
            checkGraphEntries(formula, begin, end, section.secondFormula, section.formula);
        if (second.refusal) {
            return refuse(boxField(second.refusal->box, true), second.refusal->message);
        }
    }
    if (section.integral.shown) {
        NumberBox from(math_messages::kBoxXBegin);
        NumberBox to(math_messages::kBoxXEnd);
        from.setText(section.integral.range.begin);
        to.setText(section.integral.range.end);
        IntegralState state;
        if (auto message =
                readIntegralInterval(formula, values.xBegin, values.xEnd, from, to, state)) {
            return refuse(field("integral.range"), *message);
        }
        values.integralBegin = state.begin;
        values.integralEnd = state.end;
    }
    return std::nullopt;
}

Refusal prepareTwoVariable(Formula& formula, DocumentKind kind, const std::string& text,
                           const RangeTexts& x, const RangeTexts& y, DocumentValues& values) {
    const TwoVariableEntries entries =
        checkTwoVariableEntries(formula, TwoVariableTexts{x.begin, x.end, y.begin, y.end, text});
    if (entries.refusal) {
        constexpr std::string_view kBoxFields[] = {"x.begin", "x.end", "y.begin", "y.end",
                                                   "formula"};
        return refuse(fieldOf(kind, kBoxFields[static_cast<int>(entries.refusal->box)]),
                      entries.refusal->message);
    }
    values.xBegin = entries.xBegin;
    values.xEnd = entries.xEnd;
    values.yBegin = entries.yBegin;
    values.yEnd = entries.yEnd;
    return std::nullopt;
}

Refusal prepareCurve(Formula& formula, const CurveSection& section, DocumentValues& values) {
    NumberBox begin(kTBeginBoxName);
    NumberBox end(kTEndBoxName);
    begin.setText(section.t.begin);
    end.setText(section.t.end);
    const CurveEntries entries =
        checkCurveEntries(formula, section.polar ? CurveForm::Polar : CurveForm::Parametric, begin,
                          end, section.first, section.polar ? std::string() : section.second);
    if (entries.refusal) {
        constexpr std::string_view kBoxFields[] = {"t.begin", "t.end", "first", "second"};
        return refuse(
            fieldOf(DocumentKind::kCurve, kBoxFields[static_cast<int>(entries.refusal->box)]),
            entries.refusal->message);
    }
    values.xBegin = entries.tBegin;
    values.xEnd = entries.tEnd;
    return std::nullopt;
}

// A count its spin could show: whole units from one unit to the most.
Refusal checkCount(DocumentKind kind, std::string_view member, std::int32_t count,
                   std::int32_t unit, std::int32_t most) {
    if (count < unit || count > most || count % unit != 0) {
        return refuse(fieldOf(kind, member), "must be a multiple of " + std::to_string(unit) +
                                                 " from " + std::to_string(unit) + " to " +
                                                 std::to_string(most) + ", not " +
                                                 std::to_string(count));
    }
    return std::nullopt;
}

Refusal checkWhole(DocumentKind kind, std::string_view member, std::int32_t value,
                   std::int32_t least, std::int32_t most) {
    if (value < least || value > most) {
        return refuse(fieldOf(kind, member), "must be from " + std::to_string(least) + " to " +
                                                 std::to_string(most) + ", not " +
                                                 std::to_string(value));
    }
    return std::nullopt;
}

Refusal checkFlatView(DocumentKind kind, const FlatViewState& view) {
    const auto zoomRefusal = [kind](std::string_view member, double zoom) -> Refusal {
        if (!(zoom >= kBottomZoom && zoom <= kTopZoom)) {
            return refuse(fieldOf(kind, member), "must be from 1/256 to 65536");
        }
        return std::nullopt;
    };
    if (auto refusal = zoomRefusal("view.xZoom", view.xZoom)) {
        return refusal;
    }
    if (auto refusal = zoomRefusal("view.yZoom", view.yZoom)) {
        return refusal;
    }
    // Offsets past the content are held to it when the view is put back, as after a resize.
    for (const auto& [member, offset] :
         {std::pair{"view.scrollX", view.scrollX}, std::pair{"view.scrollY", view.scrollY}}) {
        if (!(offset >= 0.0 && std::isfinite(offset))) {
            return refuse(fieldOf(kind, member), "must be a finite number, 0 or more");
        }
    }
    if (view.stretches.size() > std::size_t(StretchStack::kLevels)) {
        return refuse(fieldOf(kind, "view.stretches"),
                      "holds at most " + std::to_string(StretchStack::kLevels) + " stretches");
    }
    for (const StretchLevel& level : view.stretches) {
        if (!(level.xFactor > 0.0 && level.xFactor <= kTopZoom && level.yFactor > 0.0 &&
              level.yFactor <= kTopZoom && std::isfinite(level.cornerX) &&
              std::isfinite(level.cornerY))) {
            return refuse(fieldOf(kind, "view.stretches"),
                          "factors must be above 0 and at most 65536, corners finite");
        }
    }
    return std::nullopt;
}

Refusal checkFlatLook(DocumentKind kind, const FlatLook& look) {
    return checkWhole(kind, "look.maxYRatio", look.settings.maxYRatio, 1, kMostYRatio);
}

Refusal checkSurfaceLook(const SurfaceSection& section) {
    const auto field = [](std::string_view member) {
        return fieldOf(DocumentKind::kSurface, member);
    };
    for (const double angle : section.angles) {
        if (!std::isfinite(angle) || wrapDegrees(angle) != angle) {
            return refuse(field("angles"), "must be degrees above -180, at most 180");
        }
    }
    SurfaceView zoomed;
    if (!std::isfinite(section.zoom) || !zoomFigure(zoomed, section.zoom)) {
        return refuse(field("zoom"), "must be from 1/1024 to 1024");
    }
    if (auto refusal =
            checkWhole(DocumentKind::kSurface, "horizontalLocation", section.horizontalLocation,
                       kHorizontalLocationLow, kHorizontalLocationHigh)) {
        return refusal;
    }
    if (auto refusal =
            checkWhole(DocumentKind::kSurface, "verticalLocation", section.verticalLocation,
                       kVerticalLocationLow, kVerticalLocationHigh)) {
        return refusal;
    }
    const auto& l = section.light;
    if (!std::all_of(l.begin(), l.end(), [](double c) { return std::isfinite(c); }) ||
        (l[0] == 0.0 && l[1] == 0.0 && l[2] == 0.0)) {
        return refuse(field("light"), "must be three finite numbers, not all 0");
    }
    if (ambientFromPosition(ambientPosition(section.ambient)) != section.ambient) {
        return refuse(field("ambient"), "must be a multiple of 10 from 0 to 100");
    }
    if (specularFromPosition(specularPosition(section.specularShare)) != section.specularShare) {
        return refuse(field("specularShare"), "must be a tenth from 0 to 1");
    }
    if (auto refusal = checkWhole(DocumentKind::kSurface, "fog", section.fog, 0, kLookSliderMax)) {
        return refusal;
    }
    for (const std::int32_t channel : section.ownColour) {
        if (channel < 0 || channel > 255) {
            return refuse(field("ownColour"), "must be three whole numbers from 0 to 255");
        }
    }
    // The spin's top is known only once the surface is computed; applying holds the step to it.
    if (section.zLimitStep < 1) {
        return refuse(field("zLimitStep"), "must be 1 or more");
    }
    return std::nullopt;
}

Refusal checkCounts(const GraphDocument& document) {
    switch (document.kind) {
        case DocumentKind::kFunction:
            return checkCount(document.kind, "points", document.function.points, kPointsPerRunUnit,
                              kMostPointsPerRun);
        case DocumentKind::kCurve:
            return checkCount(document.kind, "points", document.curve.points, kPointsPerRunUnit,
                              kMostPointsPerRun);
        case DocumentKind::kEquation: {
            const EquationSection& e = document.equation;
            if (auto r = checkCount(document.kind, "xPoints", e.xPoints, kGridPointsUnit,
                                    kMostEquationPoints)) {
                return r;
            }
            if (auto r = checkCount(document.kind, "yPoints", e.yPoints, kGridPointsUnit,
                                    kMostEquationPoints)) {
                return r;
            }
            return checkWhole(document.kind, "precisionDigits", e.precisionDigits, 1,
                              kMostPrecisionDigits);
        }
        case DocumentKind::kSurface: {
            const SurfaceSection& s = document.surface;
            if (auto r = checkCount(document.kind, "xPoints", s.xPoints, kGridPointsUnit,
                                    kMostSurfacePoints)) {
                return r;
            }
            return checkCount(document.kind, "yPoints", s.yPoints, kGridPointsUnit,
                              kMostSurfacePoints);
        }
    }
    return std::nullopt;
}

}  // namespace

std::string DocumentRefusal::text() const {
    return field + ": " + reason;
}

std::string numberEntryText(double value) {
    char buffer[400];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    if (error != std::errc() || std::size_t(end - buffer) > kBoxCharacters) {
        return {};
    }
    return std::string(buffer, end);
}

PreparedDocument prepareDocumentFormulas(Formula& formula, const GraphDocument& document) {
    PreparedDocument prepared;
    prepared.refusal = checkLogBase(formula, document.logBase);
    if (prepared.refusal) {
        return prepared;
    }
    DocumentValues& values = prepared.values;
    switch (document.kind) {
        case DocumentKind::kFunction:
            prepared.refusal = prepareFunction(formula, document.function, values);
            break;
        case DocumentKind::kEquation:
            prepared.refusal = prepareTwoVariable(formula, document.kind, document.equation.formula,
                                                  document.equation.x, document.equation.y, values);
            break;
        case DocumentKind::kSurface:
            prepared.refusal = prepareTwoVariable(formula, document.kind, document.surface.formula,
                                                  document.surface.x, document.surface.y, values);
            break;
        case DocumentKind::kCurve:
            prepared.refusal = prepareCurve(formula, document.curve, values);
            break;
    }
    return prepared;
}

std::optional<DocumentRefusal> checkGraphDocument(const GraphDocument& document) {
    // A formula of its own: whatever the caller shows keeps its slots and Log Base.
    const auto formula = std::make_unique<Formula>();
    if (auto refusal = prepareDocumentFormulas(*formula, document).refusal) {
        return refusal;
    }
    if (auto refusal = checkCounts(document)) {
        return refusal;
    }
    const DocumentKind kind = document.kind;
    switch (kind) {
        case DocumentKind::kFunction:
            if (auto r = checkFlatView(kind, document.function.view)) {
                return r;
            }
            return checkFlatLook(kind, document.function.look);
        case DocumentKind::kEquation:
            if (auto r = checkFlatView(kind, document.equation.view)) {
                return r;
            }
            return checkFlatLook(kind, document.equation.look);
        case DocumentKind::kCurve:
            if (auto r = checkFlatView(kind, document.curve.view)) {
                return r;
            }
            return checkFlatLook(kind, document.curve.look);
        case DocumentKind::kSurface:
            return checkSurfaceLook(document.surface);
    }
    return std::nullopt;
}

}  // namespace curvemill
