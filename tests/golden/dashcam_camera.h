/// The camera of the example product, word by word.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "golden/dashcam.h"
#include "support/bytes.h"

namespace paramgen::testing {

class DashcamCamera : public Dashcam {
protected:
    /// Expects `words` in the image from `offset` on.
    void ExpectWords(std::size_t offset, std::span<const std::int32_t> words) const {
        ASSERT_EQ(image_.size(), 29928U);
        for (std::size_t i = 0; i < words.size(); ++i) {
            EXPECT_EQ(Part(offset + 4 * i, 4), LittleEndian(words[i], 4))
                << "word " << i << " should be " << words[i];
        }
    }
};

}  // namespace paramgen::testing
