#pragma once

/* The version 2 interface of the netCDF library, which this library passes through: a program that
 * links platen finds nccreate, ncopen, ncendef, ncclose, ncvardef, ncvarid, ncattput, ncattinq,
 * ncattget and the option word ncopts without naming netCDF itself. They are netCDF's own, and so
 * is their documentation; `ncopts` is one variable, and setting it changes what netCDF does on an
 * error. On Windows the DLL's entries lead on to netcdf.dll, which must be found when they are
 * first used; the header comes with netCDF's own development files. */
#include <netcdf.h>
