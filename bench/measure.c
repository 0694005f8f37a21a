/* measure FILE PROGRAM ARGUMENTS...: runs the program as a child of this small process, so that its
   peak memory is its own, and writes that, in KiB, to FILE. */
#include <stdio.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 3) {
        return 2;
    }
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        _exit(127);
    }
    int status = 0;
    struct rusage usage;
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
        return 1;
    }
    FILE* file = fopen(argv[1], "w");
    if (file == NULL) {
        return 1;
    }
    const int written = fprintf(file, "%ld\n", usage.ru_maxrss);
    return fclose(file) == 0 && written > 0 ? 0 : 1;
}
