/* Runs a command and tells on standard error how much memory it had resident at its peak: the
 * high-water mark at its exit, in KiB. (What wait4 tells counts the parent's pages before exec in.)
 *
 * peak_memory <program> [<argument>...]
 */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

static void TellHighWaterMark(pid_t child) {
    char line[128];
    snprintf(line, sizeof line, "/proc/%d/status", (int)child);
    FILE* status = fopen(line, "r");
    while (status != NULL && fgets(line, sizeof line, status) != NULL) {
        if (strncmp(line, "VmHWM:", 6) == 0) {
            fprintf(stderr, "%ld\n", strtol(line + 6, NULL, 10));
        }
    }
    if (status != NULL) {
        fclose(status);
    }
}

int main(int count, char** arguments) {
    if (count < 2) {
        return 2;
    }
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, NULL, NULL);
        execv(arguments[1], arguments + 1);
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0); /* stopped at exec */
    ptrace(PTRACE_SETOPTIONS, child, NULL, (void*)PTRACE_O_TRACEEXIT);
    while (WIFSTOPPED(status)) {
        const int isExit = status >> 8 == (SIGTRAP | PTRACE_EVENT_EXIT << 8);
        if (isExit) {
            TellHighWaterMark(child);
        }
        const int signal = WSTOPSIG(status) == SIGTRAP ? 0 : WSTOPSIG(status);
        ptrace(PTRACE_CONT, child, NULL, (void*)(long)signal);
        waitpid(child, &status, 0);
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
