#include <gtest/gtest.h>

#include <iterator>

#include <platen/platform/win32.h>

namespace {

TEST(NetCdf, ANameLeadsElsewhere) {
    const HMODULE library = LoadLibraryA("platen.dll");
    ASSERT_NE(library, nullptr);
    const auto addressOf = [library](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(library, name));
    };
    const char* const names[] = {"ncopen",  "nccreate", "ncendef",  "ncclose", "ncvardef",
                                 "ncvarid", "ncattput", "ncattinq", "ncattget"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        void* const address = addressOf(names[i]);
        ASSERT_NE(address, nullptr) << names[i];
        EXPECT_EQ(reinterpret_cast<int (*)()>(address)(), static_cast<int>(i) + 1) << names[i];
    }
    auto* const options = static_cast<int*>(addressOf("ncopts"));
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(*options, 10);
    EXPECT_EQ(options,
              reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("netcdf.dll"), "ncopts")))
        << "a variable of its own, which netCDF does not heed";
    FreeLibrary(library);
}

}  // namespace
