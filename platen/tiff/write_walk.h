#pragma once

#include <platen/tiff/Tiff.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/image_data.h>
#include <platen/tiff/tag_table.h>

/// The walks over the written directories, shared by the layout, the passes and the data writers.

/// `visit(dir)` answers whether to go on.
template <typename Visit>
void Tiff::ForEachWritten(Visit visit) const {
    if (IsTIFFClassXKold(0) == 1) {
        return;
    }
    for (short dir = 0; m_StdDir != nullptr && dir < m_NumIFDStdDir; ++dir) {
        const TiffIFDStdDirStruct& record = m_StdDir[dir];
        const bool written = record.NewSubfileType != platen::tiff::kNone32 ||
                             record.SubfileType != platen::tiff::kNone16;
        if (written && !visit(dir)) {
            return;
        }
    }
}

/// `visit(dir, start, size)` is handed where each directory's data area starts, and its bytes: the
/// areas lie back to back, whether a file has room for them or not.
template <typename Visit>
void Tiff::ForEachDataArea(Visit visit) const {
    std::int64_t position = platen::tiff::kHeaderSize;
    ForEachWritten([&](short dir) {
        const std::int64_t size = platen::tiff::DataSize(m_StdDir[dir]);
        visit(dir, position, size);
        position += size;
        return true;
    });
}
