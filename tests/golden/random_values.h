/// Random values, as they are written behind the '=' of a line.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "golden/independent_placer.h"

namespace paramgen::testing {

class Random {
public:
    explicit Random(std::uint64_t number) : engine_(number) {}

    /// 0 to `end` - 1.
    std::size_t Below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }
    bool OneIn(std::size_t times) { return Below(times) == 0; }
    const char* OneOf(std::initializer_list<const char*> texts) {
        return texts.begin()[Below(texts.size())];
    }

private:
    std::mt19937_64 engine_;
};

/// A value that can be loaded. `modes` are the media modes that the camera's modules may name.
std::string GoodValue(Random& random, const independent::AskedKey& key,
                      const std::vector<std::string>& modes);

/// A value that must be refused; empty when there is none for this kind of key.
std::string BadValue(const independent::AskedKey& key);

}  // namespace paramgen::testing
