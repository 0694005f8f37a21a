#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <platen/tiff/Tiff.h>

namespace inspector {

/// How samples become colours.
struct Rendering {
    bool stretch = false;     ///< gray from the darkest to the brightest sample of the image
    bool colorTable = false;  ///< gray samples in colours, by the steps of an XK colour table
};

/// A directory's image as it is shown: upright, 0xFFRRGGBB, rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    int step = 1;                       ///< every how many-th pixel is shown, in both directions
    std::vector<std::uint32_t> pixels;  ///< empty when the image cannot be shown
    std::string problem;                ///< in plain words, why nothing or not all is shown
};

/// The most pixels that a picture has; of a larger image fewer are shown.
inline constexpr std::int64_t kMostPixels = std::int64_t{1} << 25;

/// Shows uncompressed images in strips: gray of both polarities, palette colour and RGB. Whatever a
/// file says, no more is read than it holds. `file` is the open file that `tiff` has read; its
/// position moves.
Picture ShowPicture(const Tiff& tiff, void* file, short dir, Rendering rendering = {},
                    std::int64_t mostPixels = kMostPixels);

/// Whether a colour table applies to the directory: its own, or that of the file's XK directory.
bool HasColorTable(const Tiff& tiff, short dir);

}  // namespace inspector
