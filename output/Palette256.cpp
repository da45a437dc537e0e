#include "output/Palette256.h"

namespace curvemill {

namespace {

constexpr std::uint32_t rgbOf(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

int channel(std::uint32_t rgb, int shift) {
    return static_cast<int>((rgb >> shift) & 0xff);
}

}  // namespace

Palette256::Palette256() {
    int index = 0;
    for (int red = 0; red < 6; ++red) {
        for (int green = 0; green < 6; ++green) {
            for (int blue = 0; blue < 6; ++blue) {
                colours_[index++] = rgbOf(red * 51, green * 51, blue * 51);
            }
        }
    }
    for (int grey = 0; grey < 40; ++grey) {
        const int level = 8 + 6 * grey;
        colours_[index++] = rgbOf(level, level, level);
    }
}

std::uint8_t Palette256::nearest(std::uint32_t rgb) const {
    const int red = channel(rgb, 16);
    const int green = channel(rgb, 8);
    const int blue = channel(rgb, 0);
    int best = 0;
    int bestDistance = 1 << 30;
    for (int index = 0; index < 256; ++index) {
        const int dr = red - channel(colours_[index], 16);
        const int dg = green - channel(colours_[index], 8);
        const int db = blue - channel(colours_[index], 0);
        const int distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = index;
        }
    }
    return static_cast<std::uint8_t>(best);
}

std::array<std::uint8_t, 1024> Palette256::fileBytes() const {
    std::array<std::uint8_t, 1024> bytes{};
    for (int index = 0; index < 256; ++index) {
        bytes[4 * index] = static_cast<std::uint8_t>(channel(colours_[index], 0));
        bytes[4 * index + 1] = static_cast<std::uint8_t>(channel(colours_[index], 8));
        bytes[4 * index + 2] = static_cast<std::uint8_t>(channel(colours_[index], 16));
    }
    return bytes;
}

NearestColourCache::NearestColourCache(const Palette256& palette) : palette_(palette) {}

std::uint8_t NearestColourCache::operator()(std::uint32_t rgb) {
    rgb &= 0xffffff;
    const std::uint32_t slot = ((rgb * 2654435761u) >> 20) % kSlots;
    const std::uint32_t key = rgb | 0x1000000;
    if (keys_[slot] != key) {
        keys_[slot] = key;
        indices_[slot] = palette_.nearest(rgb);
    }
    return indices_[slot];
}

}  // namespace curvemill
