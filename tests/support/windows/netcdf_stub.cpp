/// What stands for netCDF's own DLL: its ten names, each with an answer of its own.
extern "C" {
#define PLATEN_ANSWER(name, answer)    \
    __declspec(dllexport) int name() { \
        return answer;                 \
    }
PLATEN_ANSWER(ncopen, 1)
PLATEN_ANSWER(nccreate, 2)
PLATEN_ANSWER(ncendef, 3)
PLATEN_ANSWER(ncclose, 4)
PLATEN_ANSWER(ncvardef, 5)
PLATEN_ANSWER(ncvarid, 6)
PLATEN_ANSWER(ncattput, 7)
PLATEN_ANSWER(ncattinq, 8)
PLATEN_ANSWER(ncattget, 9)
extern __declspec(dllexport) int ncopts;
int ncopts = 10;
}
