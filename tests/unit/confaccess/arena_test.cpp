#include "confaccess/arena.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace paramgen::testing {
namespace {

struct Piece {
    unsigned char* bytes;
    std::size_t size;
    unsigned char mark;
};

/// Takes a piece, checks that it is all zeros, and marks all of it.
Piece TakeMarked(Arena* arena, std::size_t size, unsigned char mark) {
    auto* bytes = static_cast<unsigned char*>(arena->Take(size));
    EXPECT_NE(bytes, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % 8, 0U);
    EXPECT_TRUE(std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; }));
    std::memset(bytes, mark, size);
    return {.bytes = bytes, .size = size, .mark = mark};
}

void ExpectMarked(const Piece& piece) {
    EXPECT_TRUE(std::all_of(piece.bytes, piece.bytes + piece.size,
                            [&](unsigned char byte) { return byte == piece.mark; }));
}

TEST(Arena, GivesZerosThatNobodyElseHas) {
    Arena arena;
    std::vector<Piece> pieces;
    // Small ones until several chunks are full, and large ones between them.
    for (std::size_t number = 0; number < 3000; ++number) {
        const std::size_t size = number % 500 == 499 ? 70'000 + number : 1 + number % 600;
        pieces.push_back(TakeMarked(&arena, size, static_cast<unsigned char>(number % 255 + 1)));
    }
    for (const Piece& piece : pieces) {
        ExpectMarked(piece);
    }
}

TEST(Arena, GivesPiecesOfEverySizeAroundItsChunks) {
    for (const std::size_t size : {std::size_t{64} * 1024, std::size_t{256} * 1024}) {
        for (std::size_t around = size - 20; around < size + 20; ++around) {
            Arena arena;
            const Piece first = TakeMarked(&arena, around, 1);
            const Piece second = TakeMarked(&arena, around, 2);
            const Piece third = TakeMarked(&arena, 100, 3);
            ExpectMarked(first);
            ExpectMarked(second);
            ExpectMarked(third);
        }
    }
}

TEST(Arena, GivesNothingBeyondAllMemory) {
    Arena arena;
    EXPECT_EQ(arena.Take(UINT64_MAX), nullptr);
    EXPECT_EQ(arena.Take(UINT64_MAX - 7), nullptr);
    ExpectMarked(TakeMarked(&arena, 100, 1));
}

TEST(Arena, CutsFromItsFirstMemoryAsLongAsThatLasts) {
    alignas(8) char memory[1000] = {};
    Arena arena(memory);
    const Piece first = TakeMarked(&arena, 601, 1);
    EXPECT_EQ(reinterpret_cast<char*>(first.bytes), memory);
    const Piece large = TakeMarked(&arena, 100'000, 2);
    const Piece second = TakeMarked(&arena, 392, 3);
    EXPECT_EQ(reinterpret_cast<char*>(second.bytes), memory + 608);
    const Piece third = TakeMarked(&arena, 1, 4);
    for (const Piece& piece : {first, large, second, third}) {
        ExpectMarked(piece);
    }
}

TEST(Arena, KeepsTheBeginningOfTheLastPiece) {
    for (const std::size_t size : {100U, 1000U, 100'000U}) {
        Arena arena;
        auto* piece = static_cast<unsigned char*>(arena.Take(size));
        ASSERT_NE(piece, nullptr);
        std::memset(piece, 1, 17);
        arena.KeepOfLast(piece, 17);
        const Piece next = TakeMarked(&arena, 500, 2);
        EXPECT_TRUE(size > 10'000 || next.bytes == piece + 24) << size;
        ExpectMarked({.bytes = piece, .size = 17, .mark = 1});
        arena.KeepOfLast(piece, 1);  // not the last one any more
        ExpectMarked(TakeMarked(&arena, 100, 3));
        ExpectMarked(next);
    }
}

TEST(Arena, TakesBackWhatCameAfterAMark) {
    // Small pieces, a large one, and as many small ones as begin another chunk; from an arena that
    // is empty, from one with a piece, and from one whose chunk is nearly full.
    for (const int before : {0, 1, 40}) {
        for (const int after : {0, 1, 300}) {
            for (const std::size_t large : {0U, 100'000U}) {
                Arena arena;
                std::vector<Piece> kept;
                for (int number = 0; number < before; ++number) {
                    kept.push_back(
                        TakeMarked(&arena, 6000, static_cast<unsigned char>(number + 1)));
                }
                const Arena::Mark mark = arena.Now();
                void* const next = before == 1 ? arena.Take(1) : nullptr;
                for (int number = 0; number < after; ++number) {
                    TakeMarked(&arena, 1000, 0xFF);
                }
                if (large != 0) {
                    TakeMarked(&arena, large, 0xFF);
                }
                TakeMarked(&arena, 10, 0xFF);
                arena.BackTo(mark);
                for (const Piece& piece : kept) {
                    ExpectMarked(piece);
                }
                if (next != nullptr) {
                    EXPECT_EQ(arena.Take(1), next);
                }
                // Zeros again, and nobody else's.
                for (int number = 0; number < 400; ++number) {
                    kept.push_back(TakeMarked(&arena, 1000, 0x55));
                }
                for (const Piece& piece : kept) {
                    ExpectMarked(piece);
                }
            }
        }
    }
}

}  // namespace
}  // namespace paramgen::testing
