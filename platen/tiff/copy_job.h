#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <platen/tiff/TiffCopy.h>
#include <platen/tiff/directory_bytes.h>
#include <platen/tiff/strip_plan.h>

namespace platen::tiff {

/// What a copy is made of. Everything belongs to the source object.
struct CopySource {
    std::span<const TiffCopy::KeptEntry> kept;
    std::span<const std::int64_t> pixelBytes;  ///< of every image as it was read
    std::span<const TiffIFDStdDirStruct> records;
    void* file;
    std::int64_t fileSize;
    std::int64_t tagBytes;  ///< of all entries and their values as they were read
    std::uint16_t order;
    bool isWhole;
};

/// Where a copy goes, from its first byte to its last.
struct CopyOutput {
    TiffCopy::Sink sink;
    void* context;

    [[nodiscard]] bool Write(const void* bytes, std::size_t size) const {
        return sink(context, bytes, size);
    }
};

/// One copy: plans every image first, so that a refusal costs nothing, then writes the header, all
/// images, and the directories behind them.
class CopyJob {
  public:
    CopyJob(const CopySource& source, std::uint16_t order) : m_source(source), m_order(order) {}

    TiffCopy::Result Plan();
    TiffCopy::Result Write(const CopyOutput& output, const TiffCopy::Options& options);

  private:
    struct Image {
        StripPlan plan;
        std::int64_t offset = 0;  ///< in the copy
    };

    [[nodiscard]] std::span<const TiffCopy::KeptEntry> KeptOf(short dir) const;
    [[nodiscard]] const char* RefusedTag(short dir) const;
    [[nodiscard]] std::uint32_t RowsPerStrip(short dir) const;
    [[nodiscard]] bool IsAsRead(std::size_t dir) const;
    [[nodiscard]] bool NeedsSwap() const { return m_order != m_source.order; }

    TiffCopy::Result CopyImages(const CopyOutput& output, const TiffCopy::Options& options);
    TiffCopy::Result WriteDirectories(const CopyOutput& output, const TiffCopy::Options& options);
    TiffCopy::Result CollectEntries(short dir, DirectoryBytes& directory);
    void AddStrips(const Image& image, DirectoryBytes& directory);
    TiffCopy::Result AddKept(const TiffIFDEntryStruct& entry, DirectoryBytes& directory) const;

    CopySource m_source;
    std::uint16_t m_order;
    std::vector<Image> m_images;
    std::int64_t m_imagesEnd = 0;
    std::int64_t m_total = 0;              ///< bytes of image data
    std::vector<std::uint32_t> m_numbers;  ///< lives while a directory is collected
};

}  // namespace platen::tiff
