/* Runs several commands in turn, many times over, and tells how long each run took: one line per
 * round on standard output, the nanoseconds of each command from its start to its end. What disturbs
 * the machine for a while then disturbs all of them. Each round starts with another command.
 *
 * race <rounds> <file for their standard output, or "pipe"> <command>... [-- <command>...]...
 */
#include <fcntl.h>
#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

enum { kCommandMax = 16 };

extern char** environ;

static long long Now(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000LL + now.tv_nsec;
}

static void Check(int holds, const char* what) {
    if (!holds) {
        fprintf(stderr, "race: %s failed\n", what);
        exit(1);
    }
}

static void ReadToEnd(int from) {
    static char buffer[64 * 1024];
    while (read(from, buffer, sizeof buffer) > 0) {
    }
}

/* Both ends of the command's standard output; ours is -1 when it is a file. */
static void OpenOutput(const char* output, int ends[2]) {
    if (strcmp(output, "pipe") == 0) {
        Check(pipe(ends) == 0, "pipe");
        return;
    }
    ends[0] = -1;
    ends[1] = open(output, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    Check(ends[1] >= 0, output);
}

static long long TimeOf(char** command, const char* output) {
    int ends[2];
    OpenOutput(output, ends);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    pid_t child = 0;
    int status = 0;

    const long long start = Now();
    Check(posix_spawn(&child, command[0], &actions, NULL, command, environ) == 0, command[0]);
    close(ends[1]);
    if (ends[0] >= 0) {
        ReadToEnd(ends[0]);
    }
    Check(waitpid(child, &status, 0) == child && status == 0, command[0]);
    const long long end = Now();

    posix_spawn_file_actions_destroy(&actions);
    if (ends[0] >= 0) {
        close(ends[0]);
    }
    return end - start;
}

/* Cuts the arguments into commands. Returns how many there are. */
static int FindCommands(char** arguments, char** commands[kCommandMax]) {
    int count = 0;
    while (*arguments != NULL) {
        Check(count < kCommandMax, "too many commands");
        commands[count++] = arguments;
        while (*arguments != NULL && strcmp(*arguments, "--") != 0) {
            ++arguments;
        }
        if (*arguments != NULL) {
            *arguments++ = NULL;
        }
    }
    return count;
}

int main(int argumentCount, char** arguments) {
    if (argumentCount < 4) {
        return 2;
    }
    const long rounds = strtol(arguments[1], NULL, 10);
    char** commands[kCommandMax];
    const int count = FindCommands(arguments + 3, commands);
    for (long round = 0; round < rounds; ++round) {
        long long times[kCommandMax];
        for (int turn = 0; turn < count; ++turn) {
            const int number = (int)((round + turn) % count);
            times[number] = TimeOf(commands[number], arguments[2]);
        }
        for (int number = 0; number < count; ++number) {
            printf("%lld%c", times[number], number + 1 < count ? ' ' : '\n');
        }
    }
    return 0;
}
