#include "log/wall_clock.h"

#include <sys/time.h>

#include <ctime>

namespace paramgen {

WallClock ReadWallClock() {
    timeval now = {};
    gettimeofday(&now, nullptr);
    const std::time_t seconds = now.tv_sec;
    std::tm local = {};
    localtime_r(&seconds, &local);
    return {.hour = local.tm_hour,
            .minute = local.tm_min,
            .second = local.tm_sec,
            .millisecond = static_cast<long long>(now.tv_usec) / 1000};
}

}  // namespace paramgen
