#include "examples/inspector/picture.h"

#include <algorithm>
#include <array>
#include <limits>

#include <platen/base/files.h>

#include "examples/inspector/image_layout.h"
#include "examples/inspector/tag_values.h"

namespace inspector {
namespace {

using Samples = std::vector<std::uint16_t>;

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kMissing = 0xFFB0B0B0;
constexpr std::size_t kSteps = 16;

/// From the lowest to the highest step of a colour table.
constexpr std::array<std::uint32_t, kSteps> kStepColors = {
    0x30123B, 0x4145AB, 0x4675ED, 0x39A2FC, 0x1BCFD4, 0x24ECA6, 0x61FC6C, 0xA4FC3B,
    0xD1E834, 0xF3C63A, 0xFE9B2D, 0xF36315, 0xD93806, 0xB11901, 0x7A0402, 0x4A0000};

std::uint32_t Color(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return kOpaque | red << 16 | green << 8 | blue;
}

/// Where pixels go, so that a picture stands as Orientation says.
class Placement {
  public:
    Placement(std::uint16_t orientation, std::int64_t columns, std::int64_t rows)
        : m_columns(columns), m_rows(rows) {
        const bool known = orientation >= 1 && orientation <= 8;
        m_turned = known && orientation >= 5;
        m_fromRight = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
        m_fromBottom = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    }

    [[nodiscard]] std::int64_t Width() const { return m_turned ? m_rows : m_columns; }
    [[nodiscard]] std::int64_t Height() const { return m_turned ? m_columns : m_rows; }
    [[nodiscard]] std::size_t Index(std::int64_t column, std::int64_t row) const {
        const std::int64_t across = m_fromRight ? m_columns - 1 - column : column;
        const std::int64_t down = m_fromBottom ? m_rows - 1 - row : row;
        return static_cast<std::size_t>(m_turned ? across * m_rows + down
                                                 : down * m_columns + across);
    }

  private:
    std::int64_t m_columns;
    std::int64_t m_rows;
    bool m_turned;
    bool m_fromRight;
    bool m_fromBottom;
};

/// Reads the shown samples of one channel of a row.
class RowReader {
  public:
    RowReader(const Tiff& tiff, void* file, const ImageLayout& layout, std::int64_t step)
        : m_layout(layout),
          m_file(file),
          m_fileSize(tiff.getFileSize()),
          m_step(step),
          m_bigEndian(tiff.getFormat() == platen::kMotorola),
          m_bytes(static_cast<std::size_t>(layout.rowBytes)) {}

    /// False when the file does not hold the row.
    bool Read(std::int64_t row, std::int64_t channel, Samples& samples) {
        if (!Fetch(row, m_layout.separate ? channel : 0)) {
            return false;
        }
        const std::int64_t first = m_layout.separate ? 0 : channel;
        const std::int64_t apart = m_layout.samples * m_step;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i] = Sample(static_cast<std::size_t>(first + apart * static_cast<long>(i)));
        }
        return true;
    }

  private:
    bool Fetch(std::int64_t row, std::int64_t plane) {
        const std::int64_t offset = m_layout.RowOffset(row, plane);
        if (offset == m_fetched && offset >= 0) {
            return true;
        }
        m_fetched = -1;
        if (offset < 0 || offset + m_layout.rowBytes > m_fileSize) {
            return false;
        }
        const auto count = static_cast<LONG>(m_layout.rowBytes);
        FILE_lseek(m_file, static_cast<LONG>(offset), 0);
        if (FILE_read(m_file, m_bytes.data(), count) != count) {
            return false;
        }
        m_fetched = offset;
        return true;
    }

    [[nodiscard]] std::uint16_t Sample(std::size_t index) const {
        const auto bits = static_cast<unsigned>(m_layout.bits);
        if (bits == 8) {
            return m_bytes[index];
        }
        if (bits == 16) {
            const unsigned first = m_bytes[index * 2];
            const unsigned second = m_bytes[index * 2 + 1];
            return static_cast<std::uint16_t>(m_bigEndian ? first << 8 | second
                                                          : second << 8 | first);
        }
        const auto inByte = static_cast<unsigned>(index * bits % 8);
        const unsigned byte = m_bytes[index * bits / 8];
        const unsigned shift = m_layout.lowBitFirst ? inByte : 8 - bits - inByte;
        return static_cast<std::uint16_t>(byte >> shift & ((1U << bits) - 1));
    }

    const ImageLayout& m_layout;
    void* m_file;
    std::int64_t m_fileSize;
    std::int64_t m_step;
    bool m_bigEndian;
    std::int64_t m_fetched = -1;  ///< offset of the row in `m_bytes`
    std::vector<std::uint8_t> m_bytes;
};

/// The samples that are black and white.
struct Range {
    std::uint32_t low;
    std::uint32_t high;
};

Range RangeOf(RowReader& rows, std::int64_t height, std::int64_t step, Samples& samples) {
    Range range = {std::numeric_limits<std::uint16_t>::max(), 0};
    for (std::int64_t row = 0; row < height; ++row) {
        if (rows.Read(row * step, 0, samples)) {
            const auto [least, most] = std::ranges::minmax(samples);
            range.low = std::min<std::uint32_t>(range.low, least);
            range.high = std::max<std::uint32_t>(range.high, most);
        }
    }
    return range;
}

/// By sample, its colour.
using Lookup = std::vector<std::uint32_t>;

Lookup GrayLookup(const ImageLayout& layout, Range range) {
    Lookup lookup(std::size_t{1} << layout.bits);
    const std::uint32_t span = std::max(range.high, range.low + 1) - range.low;
    for (std::uint32_t sample = 0; sample < lookup.size(); ++sample) {
        const std::uint32_t above = std::clamp(sample, range.low, range.low + span) - range.low;
        const std::uint32_t level = above * 255 / span;
        const std::uint32_t shown = layout.colors == Colors::WhiteIsZero ? 255 - level : level;
        lookup[sample] = Color(shown, shown, shown);
    }
    return lookup;
}

/// Null when no colour table applies.
const std::uint16_t* ColorTableOf(const Tiff& tiff, short dir) {
    const auto tableAt = [&tiff](short at) -> const std::uint16_t* {
        const std::uint16_t* table = at < 0 ? nullptr : tiff.getStdDir()[at].ColorTable;
        return table != nullptr && table[kSteps] > table[0] ? table : nullptr;
    };
    const std::uint16_t* own = tableAt(dir);
    return own != nullptr ? own : tableAt(tiff.GetXKIFDDir());
}

/// Samples below the first bound are black, those above the last one white.
Lookup StepLookup(const ImageLayout& layout, const std::uint16_t* table) {
    Lookup lookup(std::size_t{1} << layout.bits);
    for (std::size_t sample = 0; sample < lookup.size(); ++sample) {
        const auto bounds = static_cast<std::size_t>(
            std::count_if(table, table + kSteps, [sample](auto bound) { return bound <= sample; }));
        const bool above = sample > table[kSteps];
        lookup[sample] = above         ? Color(255, 255, 255)
                         : bounds == 0 ? Color(0, 0, 0)
                                       : kOpaque | kStepColors[bounds - 1];
    }
    return lookup;
}

/// Empty when the colour map does not fit the samples.
Lookup PaletteLookup(const Tiff& tiff, short dir, const ImageLayout& layout) {
    Lookup lookup(std::size_t{1} << layout.bits);
    const auto map = NumbersOf<std::uint16_t>(tiff, 320, dir);
    if (map.size() != lookup.size() * 3) {
        return {};
    }
    // Some writers give 8-bit colours where 16-bit ones are due.
    const unsigned shift = std::ranges::max(map) < 256 ? 0 : 8;
    for (std::size_t i = 0; i < lookup.size(); ++i) {
        const auto channel = [&](std::size_t which) {
            return std::uint32_t{map[which * lookup.size() + i]} >> shift;
        };
        lookup[i] = Color(channel(0), channel(1), channel(2));
    }
    return lookup;
}

/// One image on its way to a picture.
class Painter {
  public:
    Painter(const Tiff& tiff, void* file, short dir, const ImageLayout& layout, std::int64_t step)
        : m_tiff(tiff),
          m_dir(dir),
          m_layout(layout),
          m_step(step),
          m_placement(tiff.getStdDir()[dir].Orientation, (layout.width + step - 1) / step,
                      (layout.length + step - 1) / step),
          m_rows(tiff, file, layout, step),
          m_columns((layout.width + step - 1) / step),
          m_height((layout.length + step - 1) / step) {}

    Picture Paint(Rendering rendering) {
        Picture picture;
        const bool rgb = m_layout.colors == Colors::Rgb;
        const Lookup lookup = rgb ? Lookup() : LookupFor(rendering);
        if (!rgb && lookup.empty()) {
            picture.problem = "The colour map does not fit the samples.";
            return picture;
        }
        picture.width = static_cast<int>(m_placement.Width());
        picture.height = static_cast<int>(m_placement.Height());
        picture.step = static_cast<int>(m_step);
        picture.pixels.assign(static_cast<std::size_t>(m_columns * m_height), kMissing);
        std::int64_t missing = 0;
        for (std::int64_t row = 0; row < m_height; ++row) {
            const bool painted = rgb ? PaintRgb(row, picture) : PaintGray(row, lookup, picture);
            missing += painted ? 0 : 1;
        }
        if (missing == m_height) {
            picture = {};
            picture.problem = "None of the image's rows lies within the file.";
        } else if (missing != 0) {
            picture.problem = std::to_string(missing * m_step) + " of " +
                              std::to_string(m_layout.length) +
                              " rows lie beyond the end of the file.";
        }
        return picture;
    }

  private:
    Lookup LookupFor(Rendering rendering) {
        if (m_layout.colors == Colors::Palette) {
            return PaletteLookup(m_tiff, m_dir, m_layout);
        }
        if (rendering.colorTable) {
            if (const std::uint16_t* table = ColorTableOf(m_tiff, m_dir)) {
                return StepLookup(m_layout, table);
            }
        }
        Samples samples(static_cast<std::size_t>(m_columns));
        return GrayLookup(m_layout, rendering.stretch ? RangeOf(m_rows, m_height, m_step, samples)
                                                      : Range{0, (1U << m_layout.bits) - 1});
    }

    bool PaintGray(std::int64_t row, const Lookup& lookup, Picture& picture) {
        Samples& samples = m_channels[0];
        samples.resize(static_cast<std::size_t>(m_columns));
        if (!m_rows.Read(row * m_step, 0, samples)) {
            return false;
        }
        for (std::int64_t column = 0; column < m_columns; ++column) {
            picture.pixels[m_placement.Index(column, row)] =
                lookup[samples[static_cast<std::size_t>(column)]];
        }
        return true;
    }

    bool PaintRgb(std::int64_t row, Picture& picture) {
        for (std::size_t channel = 0; channel < m_channels.size(); ++channel) {
            m_channels[channel].resize(static_cast<std::size_t>(m_columns));
            if (!m_rows.Read(row * m_step, static_cast<std::int64_t>(channel),
                             m_channels[channel])) {
                return false;
            }
        }
        const std::uint32_t most = (1U << m_layout.bits) - 1;
        for (std::int64_t column = 0; column < m_columns; ++column) {
            const auto level = [&](std::size_t channel) {
                return m_channels[channel][static_cast<std::size_t>(column)] * 255U / most;
            };
            picture.pixels[m_placement.Index(column, row)] = Color(level(0), level(1), level(2));
        }
        return true;
    }

    const Tiff& m_tiff;
    short m_dir;
    const ImageLayout& m_layout;
    std::int64_t m_step;
    Placement m_placement;
    RowReader m_rows;
    std::int64_t m_columns;
    std::int64_t m_height;
    std::array<Samples, 3> m_channels;
};

}  // namespace

Picture ShowPicture(const Tiff& tiff, void* file, short dir, Rendering rendering,
                    std::int64_t mostPixels) {
    Picture nothing;
    if (dir < 0 || dir >= tiff.getFileNumIFDStdDir() || tiff.getStdDir() == nullptr) {
        nothing.problem = "There is no such directory.";
        return nothing;
    }
    const ImageLayout layout = LayoutOf(tiff, dir);
    if (!layout.problem.empty()) {
        nothing.problem = layout.problem;
        return nothing;
    }
    std::int64_t step = 1;
    while ((layout.width + step - 1) / step * ((layout.length + step - 1) / step) > mostPixels) {
        ++step;
    }
    return Painter(tiff, file, dir, layout, step).Paint(rendering);
}

bool HasColorTable(const Tiff& tiff, short dir) {
    return ColorTableOf(tiff, dir) != nullptr;
}

}  // namespace inspector
