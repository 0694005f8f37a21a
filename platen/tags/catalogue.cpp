#include <platen/tags/catalogue.h>

#include <algorithm>
#include <functional>
#include <iterator>

#include <platen/tags/names.h>
#include <platen/tags/tables/camera.h>
#include <platen/tags/tables/dng.h>
#include <platen/tags/tables/exif.h>
#include <platen/tags/tables/geotiff.h>
#include <platen/tags/tables/gps.h>
#include <platen/tags/tables/interoperability.h>
#include <platen/tags/tables/private_tags.h>
#include <platen/tags/tables/supplements.h>
#include <platen/tags/tables/tiff6.h>
#include <platen/tags/tables/tiff_ep.h>
#include <platen/tags/tables/tiff_it.h>

namespace platen {
namespace tags {
namespace {

/// The rows of several tables as one, in ascending order.
template <std::size_t... Sizes>
constexpr auto Merged(TagDirectory directory, const Row (&... tables)[Sizes]) {
    std::array<TagInfo, (Sizes + ...)> tags;
    auto end = tags.begin();
    ((end = std::ranges::transform(tables, end, &Row::info).out), ...);
    std::ranges::sort(tags, {}, &TagInfo::number);
    for (TagInfo& tag : tags) {
        tag.directory = directory;
    }
    return tags;
}

constexpr auto kImageTags = Merged(TagDirectory::Image, kTiff6, kSupplements, kTiffIt, kCamera,
                                   kTiffEp, kDng, kGeoTiff, kPrivateTags);
constexpr auto kExifTags = Merged(TagDirectory::Exif, kCamera, kExif);
constexpr auto kGpsTags = Merged(TagDirectory::Gps, kGps);
constexpr auto kInteroperabilityTags = Merged(TagDirectory::Interoperability, kInteroperability);
constexpr auto kGeoKeyTags = Merged(TagDirectory::GeoKeys, kGeoKeys);

constexpr bool Ascends(std::span<const TagInfo> tags) {
    return std::ranges::adjacent_find(tags, std::ranges::greater_equal{}, &TagInfo::number) ==
           tags.end();
}

constexpr bool TableAscends(std::span<const Row> table) {
    return std::ranges::adjacent_find(table, std::ranges::greater_equal{}, [](const Row& row) {
               return row.info.number;
           }) == table.end();
}

/// The same for names that are alike.
constexpr std::uint64_t Fingerprint(std::string_view name) {
    std::uint64_t print = 14695981039346656037U;
    for (const char letter : name) {
        print = (print ^ static_cast<unsigned char>(Lower(letter))) * 1099511628211U;
    }
    return print;
}

/// No name, first or other, leads to two tags.
template <std::size_t Size>
constexpr bool NamesAreUnique(const std::array<TagInfo, Size>& tags) {
    std::array<std::uint64_t, 3 * Size> prints{};
    std::size_t count = 0;
    for (const TagInfo& tag : tags) {
        for (const char* name : {tag.name, tag.otherNames[0], tag.otherNames[1]}) {
            if (name != nullptr) {
                prints[count++] = Fingerprint(name);
            }
        }
    }
    const auto end = prints.begin() + count;
    std::sort(prints.begin(), end);
    return std::adjacent_find(prints.begin(), end) == end;
}

static_assert(TableAscends(kTiff6) && TableAscends(kSupplements) && TableAscends(kTiffIt) &&
              TableAscends(kCamera) && TableAscends(kTiffEp) && TableAscends(kDng) &&
              TableAscends(kGeoTiff) && TableAscends(kPrivateTags));
static_assert(Ascends(kImageTags) && NamesAreUnique(kImageTags));
static_assert(Ascends(kExifTags) && NamesAreUnique(kExifTags));
static_assert(Ascends(kGpsTags) && NamesAreUnique(kGpsTags));
static_assert(Ascends(kInteroperabilityTags) && NamesAreUnique(kInteroperabilityTags));
static_assert(Ascends(kGeoKeyTags) && NamesAreUnique(kGeoKeyTags));

bool HasName(const TagInfo& tag, std::string_view name) {
    return SameName(tag.name, name) ||
           std::ranges::any_of(tag.otherNames, [name](const char* other) {
               return other != nullptr && SameName(other, name);
           });
}

}  // namespace
}  // namespace tags

std::span<const TagInfo> TagsIn(TagDirectory directory) {
    switch (directory) {
        case TagDirectory::Image:
            return tags::kImageTags;
        case TagDirectory::Exif:
            return tags::kExifTags;
        case TagDirectory::Gps:
            return tags::kGpsTags;
        case TagDirectory::Interoperability:
            return tags::kInteroperabilityTags;
        case TagDirectory::GeoKeys:
            return tags::kGeoKeyTags;
    }
    return {};
}

const TagInfo* FindTag(std::uint16_t number, TagDirectory directory) {
    const std::span<const TagInfo> all = TagsIn(directory);
    const auto tag = std::ranges::lower_bound(all, number, {}, &TagInfo::number);
    return tag != all.end() && tag->number == number ? &*tag : nullptr;
}

const TagInfo* FindTag(std::string_view name, TagDirectory directory) {
    const std::span<const TagInfo> all = TagsIn(directory);
    const auto tag = std::ranges::find_if(
        all, [name](const TagInfo& candidate) { return tags::HasName(candidate, name); });
    return tag != all.end() ? &*tag : nullptr;
}

const char* FindWord(const TagInfo& tag, std::uint64_t value) {
    const auto word = std::ranges::find(tag.words, value, &ValueWord::value);
    return word != tag.words.end() ? word->text : nullptr;
}

}  // namespace platen
