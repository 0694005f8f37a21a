/* Prints the netCDF names that are found through the library named by the argument. */
#include <dlfcn.h>
#include <stdio.h>

int main(int argc, char** argv) {
    static const char* const kNames[] = {"ncopen",  "nccreate", "ncendef",  "ncclose",  "ncvardef",
                                         "ncvarid", "ncattput", "ncattinq", "ncattget", "ncopts"};
    void* library = argc > 1 ? dlopen(argv[1], RTLD_NOW) : NULL;
    int found = 0;
    for (unsigned i = 0; library != NULL && i < sizeof kNames / sizeof kNames[0]; ++i) {
        found += dlsym(library, kNames[i]) != NULL;
    }
    printf("%d\n", found);
    return 0;
}
