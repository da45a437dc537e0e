// Reading number boxes: constant expressions such as "pi/2" evaluated in the number slot.
#pragma once

#include <string>
#include <string_view>

namespace curvemill {

class Formula;

struct NumberReading {
    bool ok = false;
    double value = 0.0;
    // On failure: "ERROR IN <box name> EDIT BOX:\n<check message>".
    std::string message;
};

// Reads at most 99 characters of `text` as a number box named `boxName` (e.g. "X_BEG").
NumberReading readNumberEntry(Formula& formula, std::string_view text, std::string_view boxName);

// A number box with its edited flag: the text is checked at every reading, but the value is
// evaluated again only when the box was edited since it was last taken.
class NumberBox {
  public:
    explicit NumberBox(std::string name) : name_(std::move(name)) {}
    void setText(std::string text);  // the box's change notification: sets the edited flag
    const std::string& text() const { return text_; }
    const std::string& name() const { return name_; }
    bool edited() const { return edited_; }
    NumberReading read(Formula& formula);

  private:
    std::string name_;
    std::string text_;
    bool edited_ = true;
    double value_ = 0.0;
};

// Composes "ERROR IN %s EDIT BOX:\n%s".
std::string composeBoxError(std::string_view boxName, std::string_view message);

// The caption of every message box that has no title of its own, refusals of an entry first.
inline constexpr const char* kBoxCaption = "CURVEMILL";

}  // namespace curvemill
