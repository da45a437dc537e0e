// The order a 2D graph's curves are drawn in, its letters in files and on the command line, and
// the customization dialog's picking of it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace curvemill {

enum class GraphCurve { kMain, kDerivative, kIntegral, kSecond };

// The letter a curve goes by: f main, d derivative, i integral, F second function.
char curveLetter(GraphCurve curve);
std::optional<GraphCurve> curveOfLetter(char letter);

// Every curve once, first drawn first; none left out, none twice.
class DisplayOrder {
  public:
    // Main function, derivative, integral, second function.
    DisplayOrder() = default;

    auto begin() const { return curves_.begin(); }
    auto end() const { return curves_.end(); }
    // "fdiF" for the default order.
    std::string letters() const;
    // Nothing unless `letters` holds each curve's letter exactly once.
    static std::optional<DisplayOrder> ofLetters(std::string_view letters);

    friend bool operator==(const DisplayOrder&, const DisplayOrder&) = default;

  private:
    friend class DisplayOrderPicker;
    std::array<GraphCurve, 4> curves_{GraphCurve::kMain, GraphCurve::kDerivative,
                                      GraphCurve::kIntegral, GraphCurve::kSecond};
};

// The working display order of the dialog: each curve button pressed takes the next place.
class DisplayOrderPicker {
  public:
    // Nothing placed yet.
    DisplayOrderPicker() = default;
    // Starts from the order in use, so every button shows its place until "Reset".
    explicit DisplayOrderPicker(const DisplayOrder& order);

    // The place (1..4) `curve` takes, or 0 when it has one already.
    int press(GraphCurve curve);
    void reset() { placed_ = 0; }
    // 0 when not placed.
    int placeOf(GraphCurve curve) const;
    // The curves at their places; curves never placed follow in the default order, so a curve
    // left out after "Reset" is drawn last rather than not at all.
    DisplayOrder order() const;

  private:
    std::array<GraphCurve, 4> working_{};
    std::size_t placed_ = 0;
};

}  // namespace curvemill
