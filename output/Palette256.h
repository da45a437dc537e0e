// The fixed 256-colour table of 8-bit files and the mapping of any colour to its nearest entry.
#pragma once

#include <array>
#include <cstdint>

namespace curvemill {

// Colours here are 0xRRGGBB, as a 32-bit image pixel holds them (the top byte is ignored).
class Palette256 {
  public:
    // A 6 x 6 x 6 colour cube (0, 51, ... 255 per channel) followed by 40 greys 8, 14, ... 242:
    // the cube keeps pure hues exact, the greys keep the light backgrounds and grid lines of
    // a graph from turning into a blotchy cube grey (230, the drawing surface's, is one of them).
    Palette256();

    std::uint32_t colour(int index) const { return colours_[index]; }
    // The entry closest in squared red, green and blue distance; ties go to the lower index.
    std::uint8_t nearest(std::uint32_t rgb) const;
    // The 1024 bytes of the file's palette: blue, green, red, 0 per entry.
    std::array<std::uint8_t, 1024> fileBytes() const;

  private:
    std::array<std::uint32_t, 256> colours_{};
};

// Remembers recent answers of Palette256::nearest: a drawing holds few distinct colours, so a
// small direct-mapped cache makes the search nearly free. One per export, never shared.
class NearestColourCache {
  public:
    explicit NearestColourCache(const Palette256& palette);
    std::uint8_t operator()(std::uint32_t rgb);

  private:
    static constexpr int kSlots = 4096;
    const Palette256& palette_;
    // The colour held by each slot, with bit 24 set once the slot is filled.
    std::array<std::uint32_t, kSlots> keys_{};
    std::array<std::uint8_t, kSlots> indices_{};
};

}  // namespace curvemill
