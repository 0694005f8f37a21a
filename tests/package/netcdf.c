/* A C program that links platen and uses netCDF through it: "write FILE" makes a file and reads it
 * back; "missing" opens a file that is not there, with the options as they are; "quiet" the same
 * with the options cleared. */
#include <platen/exports/netcdf.h>

#include <stdio.h>
#include <string.h>

static int Write(const char* name) {
    static const char kUnits[] = "optical density";
    int file = nccreate(name, NC_CLOBBER);
    int variable = ncvardef(file, "scan", NC_SHORT, 0, NULL);
    ncattput(file, variable, "units", NC_CHAR, (int)strlen(kUnits), kUnits);
    ncendef(file);
    ncclose(file);

    char units[64] = "";
    nc_type type = NC_NAT;
    int length = 0;
    file = ncopen(name, NC_NOWRITE);
    variable = ncvarid(file, "scan");
    ncattinq(file, variable, "units", &type, &length);
    ncattget(file, variable, "units", units);
    ncclose(file);
    printf("%s, %d, %.*s\n", type == NC_CHAR ? "text" : "no text", length, length, units);
    return 0;
}

int main(int argc, char** argv) {
    if (argc > 2 && strcmp(argv[1], "write") == 0) {
        return Write(argv[2]);
    }
    if (argc > 1 && strcmp(argv[1], "quiet") == 0) {
        ncopts = 0;
    }
    printf("%d\n", ncopen("there is no such file", NC_NOWRITE));
    return 0;
}
