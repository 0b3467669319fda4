/// The local time of day, as log records print it.
#pragma once

namespace paramgen {

/// A moment of the local day.
struct WallClock {
    int hour;               ///< 0 to 23
    int minute;             ///< 0 to 59
    int second;             ///< 0 to 60
    long long millisecond;  ///< 0 to 999
};

/// Reads the wall clock and converts it to local time.
WallClock ReadWallClock();

}  // namespace paramgen
