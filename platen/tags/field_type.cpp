#include <platen/tags/field_type.h>

#include <iterator>

namespace platen {
namespace {

struct TypeRow {
    unsigned size;
    const char* name;
};

/// By number; numbers that are no types have no name.
constexpr TypeRow kTypes[] = {{0, nullptr},  {1, "BYTE"},     {1, "ASCII"},     {2, "SHORT"},
                              {4, "LONG"},   {8, "RATIONAL"}, {1, "SBYTE"},     {1, "UNDEFINED"},
                              {2, "SSHORT"}, {4, "SLONG"},    {8, "SRATIONAL"}, {4, "FLOAT"},
                              {8, "DOUBLE"}, {4, "IFD"},      {0, nullptr},     {0, nullptr},
                              {8, "LONG8"},  {8, "SLONG8"},   {8, "IFD8"}};

constexpr TypeRow RowOf(FieldType type) {
    const auto number = static_cast<std::size_t>(type);
    return number < std::size(kTypes) ? kTypes[number] : kTypes[0];
}

}  // namespace

unsigned FieldTypeSize(FieldType type) {
    return RowOf(type).size;
}

const char* FieldTypeName(FieldType type) {
    return RowOf(type).name;
}

}  // namespace platen
